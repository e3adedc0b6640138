// Helpers shared by the live-control commands (zel ports, zel monitor, zel key).
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

#include "cli/command_registry.h"
#include "control/vc_state.h"

namespace zel::cli {

// Scanner text is 8-bit; JSON wants Unicode: every byte is read as Latin-1.
inline std::string jsonText(std::string_view s) {
  std::string out = "\"";
  for (char c : s) {
    auto u = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (u < 0x20 || u >= 0x7f) {
      char buf[8];
      std::snprintf(buf, sizeof buf, "\\u%04x", u);
      out += buf;
    } else {
      out += c;
    }
  }
  return out + "\"";
}

inline control::Family familyFromText(const std::string& text) {
  return text == "sds" ? control::Family::Sds : control::Family::Bcd;
}

}  // namespace zel::cli

#include "control/serial_port.h"

#include <cctype>

#include "core/text.h"

namespace zel::control {

bool SerialPort::exists(std::string_view port) const {
  for (const auto& info : availablePorts()) {
    if (info.name == port) return true;
  }
  return false;
}

bool parsePortSettings(std::string_view text, PortSettings& out) {
  auto parts = splitView(text, ',');
  if (parts.size() != 4) return false;
  for (auto p : parts) {
    if (trimView(p).empty()) return false;
  }
  if (!isPlainNumber(trimView(parts[0])) || !isPlainNumber(trimView(parts[2])) ||
      !isPlainNumber(trimView(parts[3])))
    return false;
  PortSettings s;
  s.baud = static_cast<int>(leadingInteger(parts[0]));
  std::string_view parity = trimView(parts[1]);
  if (parity.size() != 1) return false;
  s.parity = static_cast<char>(std::tolower(static_cast<unsigned char>(parity[0])));
  if (s.parity != 'n' && s.parity != 'e' && s.parity != 'o' && s.parity != 'm' && s.parity != 's')
    return false;
  s.dataBits = static_cast<int>(leadingInteger(parts[2]));
  s.stopBits = static_cast<int>(leadingInteger(parts[3]));
  if (s.baud <= 0 || s.dataBits < 5 || s.dataBits > 8 || (s.stopBits != 1 && s.stopBits != 2))
    return false;
  out = s;
  return true;
}

}  // namespace zel::control

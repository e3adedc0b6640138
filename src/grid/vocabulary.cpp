#include "grid/vocabulary.h"

#include <string>

namespace zel::vocab {

namespace {

int positionIn(const std::vector<std::string>& list, std::string_view text) {
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (list[i] == text) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace

std::string squelchCodeKey(std::string_view sqMode) {
  if (sqMode == "DCS" || sqMode == "DTCS" || sqMode == "DCS-R" || sqMode == "DTCS-R") {
    return "SQ Code_d";
  }
  if (sqMode == "P25") return "SQ Code_n";
  if (sqMode == "DMR") return "SQ Code_dmr";
  if (sqMode == "RAN") return "SQ Code_r";
  if (sqMode == "IDAS") return "SQ Code_a";
  if (sqMode == "dPMR" || sqMode == "Common ID") return "SQ Code_dpmr";
  if (sqMode == "Digital") return "SQ Code_digital";
  if (sqMode == "Analog") return "SQ Code_analog";
  // "CTCSS", "All" and any word not named above offer the CTCSS tones.
  return "SQ Code_c";
}

std::string valueCheck(std::string_view text, const std::vector<std::string>& list,
                       int defaultPosition) {
  if (!text.empty() && positionIn(list, text) >= 0) return std::string(text);
  if (defaultPosition < 0 || defaultPosition >= static_cast<int>(list.size())) return {};
  return list[defaultPosition];
}

std::string toneCheck(std::string_view text) {
  if (text.empty() || text == "Search" || text.find("RAN") != std::string_view::npos ||
      text.find("IDAS") != std::string_view::npos) {
    return std::string(text);
  }
  int position = positionIn(ctcssTones(), text);
  if (position < 0) position = positionIn(dcsCodes(), text);
  return std::to_string(position + 1);  // not found (-1) gives "0"
}

}  // namespace zel::vocab

#include "grid/file_forms.h"

#include "grid/vocabulary.h"

namespace zel::vocab {

namespace {

bool onList(const std::vector<std::string>& list, std::string_view word) {
  for (const auto& item : list) {
    if (item == word) return true;
  }
  return false;
}

}  // namespace

std::string fileModulation(std::string_view cell) {
  if (cell == "AM" || cell == "FM" || cell == "NFM") return std::string(cell);
  return "AUTO";
}

std::string fileAudioType(std::string_view cell) {
  if (cell == "Analog") return "ANALOG";
  if (cell == "Digital") return "DIGITAL";
  return "ALL";
}

std::string cellAudioType(std::string_view file) {
  if (file == "ANALOG" || file == "Analog") return "Analog";
  if (file == "DIGITAL" || file == "Digital") return "Digital";
  return "All";
}

std::string fileVolumeOffset(std::string_view word) {
  return valueCheck(word, tabel("Volume Offset"), 3);
}

std::string fileAlertTone(std::string_view word) {
  return valueCheck(word, tabel("Alert Tone"), 0);
}

std::string fileAlertLevel(std::string_view word) {
  return valueCheck(word, tabel("Alert Level"), 0);
}

std::string fileAlertLight(std::string_view word) {
  return valueCheck(word, tabel("Alert Light"), 0);
}

std::string fileAlertPattern(std::string_view word) {
  return valueCheck(word, tabel("Alert Pattern"), 0);
}

std::string fileOnOff(std::string_view word) {
  return valueCheck(word, tabel("Avoid"), 0);
}

std::string fileDelay(std::string_view word) {
  if (word == "-2") return "-2";
  return valueCheck(word, tabel("Delay Time"), 4);
}

std::string toneToFile(std::string_view sqMode, std::string_view code) {
  if (sqMode.empty() || sqMode == "All" || sqMode == "None" || sqMode == "Digital" ||
      sqMode == "Analog" || code.empty()) {
    return {};
  }
  if (code == "Search") return sqMode == "P25" ? "NAC=Srch" : "TONE=Srch";

  std::string key = squelchCodeKey(sqMode);
  std::string value(code);
  if (key == "SQ Code_c") return onList(ctcssTones(), code) ? "TONE=C" + value : std::string();
  if (key == "SQ Code_d") return onList(dcsCodes(), code) ? "TONE=D" + value : std::string();
  if (key == "SQ Code_n") return "NAC=" + value;
  if (key == "SQ Code_dmr") return "ColorCode=" + value;
  if (key == "SQ Code_r") return "RAN=" + value;
  if (key == "SQ Code_a") return "Area=" + value;
  if (key == "SQ Code_dpmr") return "CommonId=" + value;
  return {};
}

}  // namespace zel::vocab

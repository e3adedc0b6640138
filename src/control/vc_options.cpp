#include "control/vc_options.h"

#include <algorithm>
#include <filesystem>

#include "core/text.h"

namespace zel::control {

const char* familyName(Family f) {
  return f == Family::Bcd ? "bcd" : "sds";
}

const char* settingsSection(Family f) {
  return f == Family::Bcd ? "vc" : "vc_sds";
}

const char* portSettingKey(Family f) {
  return f == Family::Bcd ? "comport" : "comport_sds";
}

std::string optionKey(Family f, int n) {
  return (f == Family::Bcd ? "VC_option" : "VC_options") + std::to_string(n);
}

std::string widthKey(Family f, int n) {
  return (f == Family::Bcd ? "wvc" : "wvc_sds") + std::to_string(n);
}

const std::vector<std::string>& resumeAfterEntries() {
  static const std::vector<std::string> entries{"Disabled", "1",  "2",  "3",   "4",  "5",
                                                "10",       "30", "60", "120", "600"};
  return entries;
}

int clampColumnWidth(int column1, long long stored) {
  if (stored < 10) return column1 == 14 ? 500 : 1000;
  if (stored > 10000) return 10000;
  return static_cast<int>(stored);
}

namespace {
bool isTrue(const std::string& v) {
  return v == "True" || v == "true" || v == "-1";
}
bool isTicked(const std::string& v) {
  return leadingInteger(v) != 0 || isTrue(v);
}
int listIndex(const std::string& v, int count) {
  long long i = leadingInteger(v);
  return static_cast<int>(std::clamp<long long>(i, 0, count - 1));
}
}  // namespace

VcOptions loadOptions(const Settings& s, Family f, const std::string& dataFolder) {
  const std::string sec = settingsSection(f);
  auto get = [&](int n, std::string_view def) { return s.getPlain(sec, optionKey(f, n), def); };
  VcOptions o;
  std::string defaultLog = (std::filesystem::path(dataFolder) / "log.csvx").string();
  o.logFilePath = get(1, defaultLog);
  o.logToFile = isTicked(get(10, "0"));
  // An empty file name cannot be appended to: the tick goes off at load.
  if (o.logFilePath.empty()) o.logToFile = false;
  if (isTrue(get(11, "False"))) {
    o.action = LogAction::Resume;
  } else if (isTrue(get(12, "False"))) {
    o.action = LogAction::ResumeAfter;
  } else if (isTrue(get(13, "True"))) {
    o.action = LogAction::Avoid;
  } else {
    o.action = LogAction::Off;
  }
  o.logSubtones = isTicked(get(14, "1"));
  o.toneOutToFile = isTicked(get(15, "1"));
  o.volumeIndex = listIndex(get(16, "0"), 20);
  o.squelchIndex = listIndex(get(17, "0"), 20);
  o.miniViewWhenMinimized = isTicked(get(18, "1"));
  o.resumeAfterIndex = listIndex(get(19, "0"), static_cast<int>(resumeAfterEntries().size()));
  for (int i = 0; i < 14; ++i) {
    std::string w = s.getPlain(sec, widthKey(f, i + 1), std::to_string(o.columnWidths[i]));
    o.columnWidths[i] = clampColumnWidth(i + 1, leadingInteger(w));
  }
  return o;
}

void saveOptions(Settings& s, Family f, const VcOptions& o) {
  const std::string sec = settingsSection(f);
  auto put = [&](int n, std::string_view v) { s.put(sec, optionKey(f, n), v); };
  auto tf = [](bool b) { return b ? "True" : "False"; };
  put(1, o.logFilePath);
  put(10, o.logToFile ? "1" : "0");
  put(11, tf(o.action == LogAction::Resume));
  put(12, tf(o.action == LogAction::ResumeAfter));
  put(13, tf(o.action == LogAction::Avoid));
  put(14, o.logSubtones ? "1" : "0");
  put(15, o.toneOutToFile ? "1" : "0");
  put(16, std::to_string(o.volumeIndex));
  put(17, std::to_string(o.squelchIndex));
  put(18, o.miniViewWhenMinimized ? "1" : "0");
  put(19, std::to_string(o.resumeAfterIndex));
  for (int i = 0; i < 14; ++i) s.put(sec, widthKey(f, i + 1), std::to_string(o.columnWidths[i]));
}

}  // namespace zel::control

#include "transfer/card_detect.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "core/text.h"

namespace zel::transfer {

namespace fs = std::filesystem;

namespace {

bool fileExists(const fs::path& p) {
  std::error_code ec;
  return fs::is_regular_file(p, ec);
}

std::string stripLineEnd(std::string line) {
  while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.pop_back();
  return line;
}

// A Windows drive letter that the scan only tests when its option is ticked.
bool skippedLetter(const std::string& label, const DetectOptions& o) {
  if (iequals(label, "C:") || iequals(label, "C:\\")) return true;
  if (iequals(label, "D:") || iequals(label, "D:\\")) return !o.includeD;
  if (iequals(label, "E:") || iequals(label, "E:\\")) return !o.includeE;
  return false;
}

}  // namespace

const std::vector<std::string>& acceptedModels() {
  static const std::vector<std::string> models = {"BCD536HP", "SDS",        "UBCD3600XLT",
                                                  "BCD436HP", "UBCD536-PT", "UBCD436-PT"};
  return models;
}

bool isAcceptedModelLine(const std::string& line) {
  if (line.empty()) return false;
  for (const auto& m : acceptedModels()) {
    if (line.find(m) != std::string::npos) return true;
  }
  return false;
}

std::string readDatabaseVersion(const std::string& scannerRoot) {
  std::ifstream in(fs::path(scannerRoot) / "HPDB" / "hpdb.cfg", std::ios::binary);
  std::string line;
  for (int n = 0; n < 10 && std::getline(in, line); ++n) {
    line = stripLineEnd(line);
    if (startsWith(line, "DateModified")) {
      auto tab = line.find('\t');
      return tab == std::string::npos ? std::string{} : trim(line.substr(tab + 1));
    }
  }
  return {};
}

const CardState& CardDetector::detect(const DriveRoots& roots, const DetectOptions& options,
                                      Settings* settings) {
  // Step 1: the flags and the status text start clean; fileFormat is kept.
  state_.isUbcdFolder = false;
  state_.is3600 = false;
  state_.isSds = false;
  state_.label3.clear();
  state_.lamp = kLampOff;

  const auto candidates = roots.roots();

  std::ofstream report;
  if (!options.reportPath.empty()) {
    std::error_code ec;
    fs::remove(options.reportPath, ec);
    report.open(options.reportPath, std::ios::binary | std::ios::trunc);
  }
  auto say = [&report](const std::string& text) {
    if (report) report << text << "\r\n";
  };
  say("ZEL536- " + options.version);
  for (const auto& r : candidates) say(r.label);
  if (options.includeC) say("option c selected");
  if (options.includeD) say("option d selected");
  if (options.includeE) say("option e selected");
  say("");

  CardState found = state_;
  bool any = false;
  for (const auto& root : candidates) {
    if (skippedLetter(root.label, options)) continue;
    bool isUbcd = false;
    const fs::path base(root.path);
    const bool ubcdMarker = fileExists(base / "UBCDx36" / "scanner.inf");
    if (ubcdMarker) isUbcd = true;
    const bool bcdMarker = fileExists(base / "BCDx36HP" / "scanner.inf");
    say(root.label + " ausdir: " + (ubcdMarker ? "1" : "0") + " isaus: " + (isUbcd ? "1" : "0") +
        " bcddir: " + (bcdMarker ? "1" : "0"));

    const fs::path scannerRoot = base / (isUbcd ? "UBCDx36" : "BCDx36HP");
    std::ifstream marker(scannerRoot / "scanner.inf", std::ios::binary);
    if (!marker) {
      say(root.label + " open marker: failed");
      continue;
    }
    say(root.label + " open marker: ok");
    std::string lines[3];
    for (auto& l : lines) {
      if (!std::getline(marker, l)) break;
      l = stripLineEnd(l);
    }
    const std::string& line = lines[2];
    say("ab data: " + line);

    CardState s = found;
    s.isUbcdFolder = isUbcd;
    s.scannerRoot = scannerRoot.string();
    s.is3600 = line.find("UBCD3600XLT") != std::string::npos;
    s.isSds = line.find("SDS") != std::string::npos;
    if (!isAcceptedModelLine(line)) continue;
    say("detected: " + line);

    s.modelLine = replaceAll(line, "\t", ",");
    auto fields = split(s.modelLine, ',');
    s.model = fields.size() > 1 ? trim(fields[1]) : std::string{};
    s.serial = fields.size() > 2 ? fields[2] : std::string{};
    s.firmware = fields.size() > 3 ? fields[3] : std::string{};
    if (startsWith(s.firmware, "2.")) s.fileFormat = 2;
    s.drive = root.label;
    s.dbVersion = readDatabaseVersion(s.scannerRoot);
    if (settings) {
      settings->put("general", "firmware", s.firmware);
      settings->put("general", "serienum", s.serial);
      settings->put("general", "hpinfo", s.modelLine);
    }
    std::string head = " BCDx36HP/3600/SDS detected at drive ";
    if (s.isSds) head = "SDSx00 series detected at drive ";
    if (s.isUbcdFolder) head = "UBCDx36HP detected at drive ";
    s.label3 = head + s.drive + " DBase=" + s.dbVersion + " Firmware=" + s.firmware +
               " Serial=" + s.serial + " FileFormat:" + std::to_string(s.fileFormat);
    s.lamp = kLampGreen;
    found = s;
    any = true;
  }

  if (any) {
    state_ = found;
  } else {
    state_.label3 = kNotFoundHelp;
  }
  return state_;
}

bool CardDetector::gate() {
  if (state_.detected()) return true;
  state_.label3 = kNotDetected;
  return false;
}

}  // namespace zel::transfer

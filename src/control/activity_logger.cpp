#include "control/activity_logger.h"

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "control/vc_timers.h"
#include "core/text.h"

namespace zel::control {

struct ActivityLogger::Row {
  std::string type, frequency, talkgroup, channel, subtone, nac, uid, extra, system, department,
      hits, signal, mode, time, date;
};

std::string subtoneText(std::string_view raw) {
  std::string_view t = trimView(raw);
  if (t.empty() || t == "0" || t == "None") return {};
  const bool point = t.find('.') != std::string_view::npos;
  const double value = leadingNumber(t);
  // Tone table positions run from 1 to 8100. A text with no number ("All", "Search") names
  // no tone; a number beyond the table (of any length) is shown as the scanner gave it.
  if (!(value >= 1)) return {};
  if (value >= 8101) return std::string(t);
  const long long index = static_cast<long long>(std::trunc(value));
  return point ? formatFixed(value, 1) + "C" : padNumber(index, 3) + "D";
}

std::string siteReportCommand(SiteReport report) {
  switch (report) {
    case SiteReport::CurrentActivity:
      return "AST,CURRENT_ACTIVITY,";
    case SiteReport::LcnMonitor:
      return "AST,LCN_MONITOR,";
    case SiteReport::ActivityLog:
      return "AST,ACTIVITY_LOG,";
    case SiteReport::LcnFinder:
      return "AST,LCN_FINDER,";
    case SiteReport::Bandscope:
      return "AST,BAND_SCOPE,1440000,2000,500,FM";
  }
  return {};
}

std::string cleanSiteCapture(std::string_view raw) {
  std::string s(raw);
  for (int n = 0; n <= 32; ++n) {
    s = replaceAll(s, "<CurrentActivity No=\"" + std::to_string(n) + "\" />", "");
  }
  s = replaceAll(s, "<AST>", "");
  s = replaceAll(s, "</AST>", "");
  s = replaceAll(s, "<?xml version=\"1.0\" encoding=\"utf-8\"?>", "");
  s = replaceAll(s, "AST,<XML>,", "");
  return replaceAll(s, "  ", " ");
}

ActivityLogger::ActivityLogger(Family family, ScannerStatus& status, LoggerCounters& counters,
                               VcOptions& options, CommandSurface& commands, ScannerLink& link,
                               SerialPort& port, TimerBank& timers, Feedback& feedback,
                               const Clock& clock)
    : page(logColumns(family).count),
      family_(family),
      st_(status),
      counters_(counters),
      options_(options),
      commands_(commands),
      link_(link),
      port_(port),
      timers_(timers),
      feedback_(feedback),
      clock_(clock) {}

std::string ActivityLogger::compose(const Row& r) const {
  std::vector<std::string> f{r.type, r.frequency, r.talkgroup, r.channel, r.subtone, r.nac, r.uid};
  if (family_ == Family::Sds) f.push_back(r.extra);
  for (const auto* v : {&r.system, &r.department, &r.hits, &r.signal, &r.mode, &r.time, &r.date})
    f.push_back(*v);
  return join(f, ',');
}

void ActivityLogger::appendToFile(const std::string& line) {
  if (options_.logFilePath.empty()) return;
  // A file that cannot be opened loses the line; the page still gets its row.
  std::ofstream out(options_.logFilePath, std::ios::app | std::ios::binary);
  if (out) out << line << "\r\n";
}

void ActivityLogger::storePage() {
  if (!gridIniPath.empty()) page.writeIni(gridIniPath);
}

void ActivityLogger::log(const std::string& line, bool toFile) {
  if (toFile) appendToFile(line);
  page.addLine(line);
  storePage();
  if (onLine) onLine(line);
}

bool ActivityLogger::levelScreen() const {
  auto field = [&](int i) -> const std::string& {
    static const std::string empty;
    return i < static_cast<int>(st_.statusFields.size()) ? st_.statusFields[i] : empty;
  };
  return field(26).find(" LEVEL ") != std::string::npos ||
         field(1).find(" S=") != std::string::npos;
}

std::string ActivityLogger::extraInfo() const {
  std::string info = st_.ldat[ld::kSystemType];
  const std::string& service = st_.ldat[ld::kServiceType];
  if (!service.empty()) {
    if (!info.empty()) info += " / ";
    info += service;
  }
  return info;
}

std::string ActivityLogger::findHits(const std::string& frequency, const std::string& subtone) {
  const LogColumns& c = logColumns(family_);
  const auto& l = st_.ldat;
  int row = 1;
  for (; row <= LogPage::kRows; ++row) {
    if (page.cell(row, c.type) != "LOG") continue;
    bool match;
    if (!l[ld::kFrequency].empty()) {
      // A row logged without a subtone matches the same channel heard with one.
      match = page.cell(row, c.frequency) == frequency &&
              page.cell(row, c.channel) == l[ld::kChannel] &&
              (page.cell(row, c.subtone).empty() || page.cell(row, c.subtone) == subtone);
    } else {
      match = page.cell(row, c.talkgroup) == l[ld::kTalkgroup] &&
              page.cell(row, c.channel) == l[ld::kChannel];
    }
    if (match) {
      foundRow = static_cast<std::int16_t>(row);
      return std::to_string(leadingInteger(page.cell(row, c.hits)) + 1);
    }
  }
  foundRow = static_cast<std::int16_t>(row);  // 1001: no row matched
  return {};
}

void ActivityLogger::onTimer3() {
  const auto& l = st_.ldat;
  const std::string time = clock_.timeOfDay();
  const std::string date = clock_.date();
  // SDS: GLG is read before GSI; a tick between the two would mix two transmissions.
  if (family_ == Family::Sds && st_.gsiPending) return;
  // -999 is the scanner's "no reading".
  const std::string signal = family_ == Family::Sds
                                 ? (l[ld::kRssi] == "-999" ? std::string() : l[ld::kRssi])
                                 : st_.signalValue;

  const std::string& cc = st_.ccdata[0];
  if (!cc.empty() && cc.find("MHz") != std::string::npos && cc != lastCc) {
    Row r;
    r.type = family_ == Family::Sds ? "Closecall" : "CC";
    r.frequency = cc;
    r.channel = "Close Call";
    r.mode = l[ld::kModulation];
    r.time = time;
    r.date = date;
    log(compose(r), options_.logToFile);
    lastCc = cc;
  }

  if (l[ld::kTalkgroup].empty() && l[ld::kFrequency].empty()) return;
  const std::string subtone = subtoneText(l[ld::kSubtone]);
  std::string nac = l[ld::kNac];
  if (nac == "NONE" || nac == "None" || nac == "Off") nac.clear();
  const std::string key =
      (l[ld::kFrequency].empty() ? l[ld::kTalkgroup] : l[ld::kFrequency]) + "-" + l[ld::kChannel];
  const bool hasPoint = l[ld::kFrequency].find('.') != std::string::npos;

  auto base = [&](const char* type) {
    Row r;
    r.type = type;
    r.frequency = l[ld::kFrequency];
    r.talkgroup = l[ld::kTalkgroup];
    r.channel = l[ld::kChannel];
    r.system = l[ld::kSystem];
    r.department = l[ld::kDepartment];
    r.signal = signal;
    r.mode = l[ld::kModulation];
    r.time = time;
    r.date = date;
    if (family_ == Family::Sds) r.extra = extraInfo();
    return r;
  };

  if (st_.busy && key != lastKey) {
    counters_.wasBusy = -1;
    lastKey = key;
    std::string frequency = l[ld::kFrequency].empty() ? st_.frequencyText : l[ld::kFrequency];
    std::string hits = findHits(frequency, subtone);
    if (hits.empty()) hits = "1";
    lastSystemText =
        l[ld::kSystem] == "CloseCall" ? l[ld::kSystem] : l[ld::kSystem] + "/" + l[ld::kDepartment];
    Row r = base("LOG");
    r.frequency = frequency;
    r.subtone = subtone;
    r.nac = nac;
    r.hits = hits;
    const std::string line = compose(r);
    if (options_.logToFile) appendToFile(line);
    const LogColumns& c = logColumns(family_);
    if (foundRow < 1001) {
      page.setCell(foundRow, c.hits, hits);
      page.setCell(foundRow, c.signal, signal);
      page.setCell(foundRow, c.time, time);
      page.setCell(foundRow, c.date, date);
      if (page.cell(foundRow, c.frequency).find('.') == std::string::npos)
        page.setCell(foundRow, c.frequency, frequency);
      storePage();
    } else {
      page.addLine(line);
      storePage();
    }
    if (onLine) onLine(line);

    if (options_.action == LogAction::Resume && !levelScreen()) {
      commands_.PressKey("t");
      st_.busy = false;
      lastKey.clear();
    } else if (options_.action == LogAction::Avoid) {
      // The avoid key toggles: a channel heard again (a reply already on its way when the
      // scanner left it) must not be let back in.
      if (avoidedKeys.insert(key).second) commands_.PressKey("AVOID");
      st_.busy = false;
      lastKey.clear();
    }
  }

  if (st_.busy && options_.logSubtones && !nac.empty() && nac != lastNac) {
    Row r = base("NAC");
    r.nac = nac;
    r.hits = "-";
    log(compose(r), options_.logToFile);
    lastNac = nac;
  }

  if (st_.busy && options_.logSubtones && !subtone.empty() && subtone != lastSubtone && hasPoint) {
    Row r = base("SUB");
    r.subtone = subtone;
    r.hits = "-";
    log(compose(r), options_.logToFile);
    lastSubtone = subtone;
  }

  const std::string& uid = l[ld::kUid];
  if (!uid.empty() && uid != std::string(34, ' ') && uid != lastUid && !hasPoint && st_.busy) {
    Row r = base("UID");
    r.uid = uid;
    log(compose(r), options_.logToFile);
    lastUid = uid;
  }

  auto field = [&](int i) -> std::string {
    return i < static_cast<int>(st_.statusFields.size()) ? st_.statusFields[i] : std::string();
  };
  auto toneOut = [&](int where, int a, int b) {
    const std::string fa = field(a), fb = field(b);
    return startsWith(field(where), "Tone-Out") && fa != lastToneA &&
           fa.find("A :") != std::string::npos && fb.find("B :") != std::string::npos &&
           fa.find("A :   0.0Hz") == std::string::npos;
  };
  auto tones = [&](int a, int b) {
    return trim(mid(field(a), 1, 13)) + " / " + trim(mid(field(b), 1, 13));
  };
  if (toneOut(6, 10, 12)) {
    Row r;
    r.type = "T-OUT";
    r.frequency = tones(10, 12);
    r.system = "Tone-Out";
    r.time = time;
    r.date = date;
    log(compose(r), options_.toneOutToFile);
    lastToneA = field(10);
    lastToneB = field(12);
  }
  if (toneOut(8, 20, 22)) {
    Row r;
    r.type = "T-OUT";
    r.frequency = std::string(mid(field(22), 19, 12));
    r.channel = tones(20, 22);
    r.system = "Tone-Out";
    r.time = time;
    r.date = date;
    log(compose(r), options_.toneOutToFile);
    lastToneA = field(20);
    lastToneB = field(22);
  }
}

void ActivityLogger::onTimer16() {
  if (closing) return;
  if (st_.busy) ++counters_.secondsBusy;
  const auto& entries = resumeAfterEntries();
  int index = options_.resumeAfterIndex;
  if (index > 0 && index < static_cast<int>(entries.size()) &&
      leadingInteger(entries[index]) <= counters_.secondsBusy && !levelScreen()) {
    commands_.PressKey("t");
    timers_.disable(Timer16);
    counters_.secondsBusy = 0;
  }
}

void ActivityLogger::onDelaylog() {
  timers_.disable(delaylog);
  lastKey.clear();
}

bool ActivityLogger::startAnalysis(SiteReport report) {
  if (st_.siteIndex == "0" || st_.siteIndex.empty()) {
    feedback_.message("Please tune scanner to a trunk site first");
    return false;
  }
  std::string command = siteReportCommand(report);
  if (report != SiteReport::Bandscope) command += st_.siteIndex;
  link_.SendCommand(command);
  timers_.disable(Timer1);
  timers_.disable(Timer10);
  timers_.disable(Timer2);
  timers_.enable(Timer8);
  return true;
}

void ActivityLogger::onTimer8() {
  std::string text = port_.readAll();
  captureText = text + " : " + clock_.timeOfDay();
  if (dataFolder.empty() || text.empty()) return;
  std::filesystem::path file =
      std::filesystem::path(dataFolder) / ("analyse_site_id_" + st_.siteIndex + ".txt");
  std::ofstream out(file, std::ios::app | std::ios::binary);
  if (out) out << cleanSiteCapture(text);
}

void ActivityLogger::stopAnalysis() {
  timers_.enable(Timer1);
  timers_.enable(Timer10);
  timers_.enable(Timer2);
  timers_.disable(Timer8);
  link_.SendCommand("JPM,SCN_MODE");
  st_.siteIndex.assign(1, '0');
}

bool ActivityLogger::saveLog(const std::string& path) {
  if (path.empty()) return false;
  std::string target = path;
  if (std::filesystem::path(target).filename().string().find('.') == std::string::npos)
    target += ".csv";
  return writeFileReplacing(target, page.toCsv(family_, clock_.date(), clock_.timeOfDay()));
}

void ActivityLogger::clearLog() {
  if (feedback_.ask("", "Are you sure you want to clear the grid?", Buttons::YesNo) != Answer::Yes)
    return;
  lastKey.clear();
  lastNac.clear();
  lastSubtone.clear();
  lastUid.clear();
  lastCc.clear();
  lastToneA.clear();
  lastToneB.clear();
  page.clear();
  if (!gridIniPath.empty()) std::remove(gridIniPath.c_str());
}

void ActivityLogger::deleteLogFile() {
  if (feedback_.ask("", "Are you sure you want to delete this log file?", Buttons::YesNo) !=
      Answer::Yes)
    return;
  if (!options_.logFilePath.empty()) std::remove(options_.logFilePath.c_str());
}

std::string ActivityLogger::searchFrequency(int row, std::string_view storedUser) const {
  if (storedUser.empty()) return {};
  const std::string& f = page.cell(row, logColumns(family_).frequency);
  return f.find('.') == std::string::npos ? std::string() : f;
}

void ActivityLogger::loadPage() {
  if (!gridIniPath.empty()) page.readIni(gridIniPath);
}

}  // namespace zel::control

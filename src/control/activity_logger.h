// The activity logger of a virtual control window. Every 500 ms (Timer3) it compares the
// decoded channel with the last hit and adds or updates a row of the log page, with a hit
// count per channel; the same lines may be appended to the log file. A channel counts as
// a new hit again only after five quiet seconds (delaylog). Rows:
//
//   LOG,<freq>,<tgid>,<channel>,<subtone>,<nac>,,<system>,<department>,<hits>,<signal>,<mode>,<time>,<date>
//   CC,<freq>,,Close Call,,,,,,,,<mode>,<time>,<date>          (SDS: "Closecall")
//   NAC,<freq>,<tgid>,<channel>,,<nac>,,<system>,<department>,-,<signal>,<mode>,<time>,<date>
//   SUB,<freq>,<tgid>,<channel>,<subtone>,,,<system>,<department>,-,<signal>,<mode>,<time>,<date>
//   UID,<freq>,<tgid>,<channel>,,,<uid>,<system>,<department>,,<signal>,<mode>,<time>,<date>
//   T-OUT,<A tone> / <B tone>,,,,,,Tone-Out,,,,,<time>,<date>
// The SDS rows carry one more field, "Extra Info", after the UID.
//
// The same window can stop polling and capture the scanner's site activity reports (AST)
// to "analyse_site_id_<site>.txt" (Timer8).
#pragma once

#include <functional>
#include <set>
#include <string>

#include "control/command_surface.h"
#include "control/log_page.h"
#include "control/scanner_link.h"
#include "control/serial_port.h"
#include "control/timer_bank.h"
#include "control/vc_options.h"
#include "control/vc_state.h"
#include "core/ports.h"

namespace zel::control {

// The subtone as the log shows it: "127.3C" for a CTCSS tone, "023D" for a DCS code; ""
// for "0", "None", empty and a text without a number ("All"); a number beyond the tone
// table as it stands.
std::string subtoneText(std::string_view raw);

// The site reports that a capture run can ask for.
enum class SiteReport { CurrentActivity, LcnMonitor, ActivityLog, LcnFinder, Bandscope };
// "AST,CURRENT_ACTIVITY," ... (the site index follows); the SDS bandscope entry is complete.
std::string siteReportCommand(SiteReport report);
// The capture text as it goes to the file: empty report slots, the AST wrapping and the
// XML header removed, double blanks made single.
std::string cleanSiteCapture(std::string_view raw);

class ActivityLogger {
 public:
  ActivityLogger(Family family, ScannerStatus& status, LoggerCounters& counters, VcOptions& options,
                 CommandSurface& commands, ScannerLink& link, SerialPort& port, TimerBank& timers,
                 Feedback& feedback, const Clock& clock);

  void onTimer3();    // the logger tick
  void onTimer16();   // "Log And Resume After": one second
  void onDelaylog();  // five quiet seconds: forget the last channel
  void onTimer8();    // capture tick of a site analysis run

  // Site analysis. start() refuses with "Please tune scanner to a trunk site first" while
  // no trunk site is tuned.
  bool startAnalysis(SiteReport report);
  void stopAnalysis();
  std::string captureText;  // what the last capture tick read, with the time

  // Buttons.
  bool saveLog(const std::string& path);  // a name without a point gets ".csv"
  void clearLog();                        // asks first
  void deleteLogFile();                   // asks first

  // "Fr.Search": the frequency of a page row for the RadioReference frequency search, when
  // a user name is stored and the row's frequency holds a point; "" otherwise.
  std::string searchFrequency(int row, std::string_view storedUser) const;

  // Reads the page back from the ini file (a missing file is skipped).
  void loadPage();

  LogPage page;
  std::string gridIniPath;  // "" keeps the page in memory only
  std::string dataFolder;   // where analysis files go
  bool closing = false;
  std::function<void(const std::string& line)> onLine;  // every row that is logged

  // Remembered state of the last hits.
  std::string lastKey, lastNac, lastSubtone, lastUid, lastCc, lastToneA, lastToneB;
  std::int16_t foundRow = 0;
  std::string lastSystemText;  // "system/department" of the last hit
  std::set<std::string> avoidedKeys;  // channels that "Log And Avoid" has locked out

 private:
  struct Row;
  std::string compose(const Row& row) const;
  void log(const std::string& line, bool toFile);
  void appendToFile(const std::string& line);
  void storePage();
  bool levelScreen() const;
  std::string findHits(const std::string& frequency, const std::string& subtone);
  std::string extraInfo() const;

  Family family_;
  ScannerStatus& st_;
  LoggerCounters& counters_;
  VcOptions& options_;
  CommandSurface& commands_;
  ScannerLink& link_;
  SerialPort& port_;
  TimerBank& timers_;
  Feedback& feedback_;
  const Clock& clock_;
};

}  // namespace zel::control

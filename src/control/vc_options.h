// The options of a virtual control window and where they are stored: section "vc" with
// keys "VC_option<n>" for the BCD window, section "vc_sds" with "VC_options<n>" for the SDS
// window. Read at load, written at close.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "control/vc_state.h"
#include "core/settings.h"

namespace zel::control {

// What the logger does after it has logged a new hit.
enum class LogAction { Resume = 0, ResumeAfter = 1, Avoid = 2, Off = 3 };

struct VcOptions {
  bool logToFile = false;  // "Log/Append To File:"
  std::string logFilePath;
  LogAction action = LogAction::Avoid;  // the stored default of "Log And Avoid" is "True"
  bool logSubtones = true;              // "Log Subtones": NAC and subtone rows
  bool toneOutToFile = true;            // Tone-Out rows go to the log file too
  int volumeIndex = 0;                  // the volume list, 0 to 19
  int squelchIndex = 0;                 // the squelch list, 0 to 19
  bool miniViewWhenMinimized = true;    // "Show Mini View when minimized"
  int resumeAfterIndex = 0;             // index into resumeAfterEntries()
  bool subtoneDelay = false;            // "Subtone Delay"
  bool debug = false;                   // raw STS and GLG lines to "datalog.txt"
  bool namesWhileScanning = false;      // between hits, name rows show the last channel
  bool xmlDebug = false;                // SDS: GSI replies to the xml log files
  bool useGpsPort = false;              // SDS: "Use GPS port", slower polling
  std::array<int, 14> columnWidths{1200, 1200, 800, 800, 800,  1000, 1000,
                                   1000, 900,  650, 800, 1000, 1200, 500};
};

const char* settingsSection(Family f);   // "vc", "vc_sds"
const char* portSettingKey(Family f);    // "comport", "comport_sds"
std::string optionKey(Family f, int n);  // "VC_option10", "VC_options10"
std::string widthKey(Family f, int n);   // "wvc1", "wvc_sds1"

// "Disabled", "1", "2", "3", "4", "5", "10", "30", "60", "120", "600".
const std::vector<std::string>& resumeAfterEntries();

// A stored column width under 10 becomes 1000 (500 for the last), one over 10000 10000.
int clampColumnWidth(int column1, long long stored);

// dataFolder gives the default log file: the data folder and "log.csvx".
VcOptions loadOptions(const Settings& settings, Family f, const std::string& dataFolder);
void saveOptions(Settings& settings, Family f, const VcOptions& o);

}  // namespace zel::control

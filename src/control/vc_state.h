// The decoded state of a live scanner, shared by the parts of a virtual control window:
// the channel record `ldat`, the fields of the last screen, and the display model that a
// window paints (rows, marks, icons, signal bars, the SDS needle).
#pragma once

#include <array>
#include <string>
#include <vector>

namespace zel::control {

// The two window families: BCDx36HP and UBCD3600XLT, or the SDS series.
enum class Family { Bcd, Sds };

const char* familyName(Family f);  // "bcd", "sds"

// Indices into `ldat` with a fixed meaning.
namespace ld {
inline constexpr int kTalkgroup = 0;
inline constexpr int kFrequency = 1;
inline constexpr int kSystem = 2;
inline constexpr int kDepartment = 3;
inline constexpr int kChannel = 4;
inline constexpr int kSubtone = 6;
inline constexpr int kModulation = 7;
inline constexpr int kNac = 8;
inline constexpr int kUid = 9;
inline constexpr int kDetectedSubtone = 12;
inline constexpr int kRssi = 14;
inline constexpr int kScanMode = 15;
inline constexpr int kScreen = 16;
// The extra-info items of the SDS window, 17 to 35, in this order.
inline constexpr int kSystemType = 17;
inline constexpr int kInfoScanMode = 18;
inline constexpr int kInfoScreen = 19;
inline constexpr int kListName = 20;
inline constexpr int kListType = 21;
inline constexpr int kListQKey = 22;
inline constexpr int kSysQKey = 23;
inline constexpr int kDepQKey = 24;
inline constexpr int kSiteQKey = 25;
inline constexpr int kTag = 26;
inline constexpr int kSetSlot = 27;
inline constexpr int kRecSlot = 28;
inline constexpr int kUidName = 29;
inline constexpr int kInfoUid = 30;
inline constexpr int kSiteIndex = 31;
inline constexpr int kSystemIndex = 32;
inline constexpr int kRfssId = 33;
inline constexpr int kWacn = 34;
inline constexpr int kServiceType = 35;
inline constexpr int kSize = 36;
}  // namespace ld

struct DisplayRow {
  std::string text;
  bool visible = false;
  bool inverted = false;  // black on yellow (a selected menu line) instead of yellow on black
};

struct RowMarks {
  bool hold = false;
  bool avoid = false;
};

struct DisplayModel {
  std::string formatWord;            // field 1; a four-character word gets two spaces in front
  std::array<DisplayRow, 10> rows;   // the menu and screen lines
  std::array<std::string, 3> names;  // system, department, channel rows
  std::array<RowMarks, 3> marks;     // the hold and avoid marks of those rows
  int signalBars = 0;                // bars shown, 0 to 5
  bool fIcon = false;                // the "F" mark of the function key
  int icon = 0;                      // 0 none, 1 or 2: the two icon glyph pairs
  std::string arrow;                 // "t" or "u": the knob direction glyph
  std::string service;               // service type text of the channel screen
  std::string fav;                   // favorites list name of the channel screen
  std::array<std::string, 4> frequencyLines;
  std::string backlight = "Off";  // the scanner's alert light: "Red", "Blue", ... or "Off"
  int needleLevel = 0;            // SDS signal needle, 0 to 120
  double needleX = 250;           // end of the needle in a 2500 by 1250 dial
  double needleY = 1250;
  std::array<int, 38> services{};  // SVC flags: 1 on (red), 0 off (white), -1 unknown
};

struct ScannerStatus {
  std::array<std::string, ld::kSize> ldat;
  std::vector<std::string> statusFields;  // fields of the last screen: 51, empty beyond it
  std::array<std::string, 29> screenFields;
  std::array<std::string, 41> lineIsRule;  // "1" where the field is a rule of asterisks
  std::array<std::string, 2> ccdata;       // Close Call frequency and its mode text
  std::string signalValue;                 // the number of the last PWR reply
  int displayClass = 0;
  int listScreen = 0;
  bool busy = false;              // a transmission is on (the busy mark)
  bool miniBusy = false;          // the busy mark of the mini view
  bool gsiPending = false;        // SDS: GLG read, the GSI reply of the same round not yet
  std::string screenText;         // the last complete STS reply
  std::string groupText;          // the last GID reply
  std::string glgText;            // the last GLG reply, without its CR
  std::string gsiText;            // the last GSI reply, reshaped
  std::string model;              // from MDL
  std::string volume;             // from VOL (kept, not shown)
  std::string squelch;            // from SQL (kept, not shown)
  std::string frequencyText;      // from WIN: "154.4300"
  std::string idText;             // talkgroup id label
  std::string uidText;            // UID label
  std::string modeText;           // modulation label, only while busy
  std::string rssiText;           // SDS RSSI readout
  std::string siteIndex = "0";    // the trunk site tuned, from GSI; "0" when none
  std::string siteFrequency;      // the site's frequency of a talkgroup hit, from GSI
  std::string waterfallBand;      // SDS waterfall page: WaterfallBand and
  std::string waterfallSettings;  // WaterfallSettings elements as text
  std::string waterfallExtra;     // WaterfallBand Center;Span;Mod
  DisplayModel display;
};

// The activity counters that the busy hold-off resets.
struct LoggerCounters {
  int wasBusy = 0;
  int secondsBusy = 0;  // "Log And Resume After": seconds of the current transmission
};

}  // namespace zel::control

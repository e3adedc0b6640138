// Line conversions of the reader: one HPD line, already in its comma form (TABs turned into
// commas, the file's own commas into ";"), to the record line of a tree node or the row of a
// page file. They know nothing of the tree; the reader places what they return.
//
//   file   Site,SiteId=7,TrunkId=2,Hill,Off,41.4,-81.7,19.1,AUTO,Custom,Wide,Circle,Off
//   record SIT,Site,SiteId=7,TrunkId=2,Hill,Off,41.4,-81.7,19.1,AUTO,Custom/Rebanded,
//              Wide(standard),Circle,0
//
//   file   C-Freq,,,Ops,Off,164225000,NFM,TONE=C146.2,16,Off,2,0,Off,Auto,Off,On,Off,Off
//   row    1,164.225000,Ops,Off,NFM,CTCSS,146.2,Federal,Off,2,0,Off,Auto,Off,On,Off,Off
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "formats/hpd_format.h"

namespace zel::formats {

struct SystemRecord {
  std::string text;  // the SIN line
  std::string name;  // its position 4
  SystemKind kind;   // type label and numeric type
};

class LineReaders {
 public:
  LineReaders(HpdLevel level, bool x36Mode, int fileIndex)
      : level_(level), x36_(x36Mode), fileNumber_(fileIndex) {}
  void setLevel(HpdLevel level) { level_ = level; }

  SystemRecord conventional(std::string_view line);
  SystemRecord trunk(std::string_view line);
  std::string site(std::string_view line);
  // "GIN," or "TIN," and the line of a C-Group or T-Group.
  std::string group(std::string_view tag, std::string_view line);
  std::string bandPlan(std::string_view line);
  std::string fleetMap(std::string_view line);
  std::string siteFrequency(std::string_view line, bool nxdn);
  std::string unitId(std::string_view line);
  // Page rows, numbered `row`. `serviceFallback` stands for a service number that names no
  // type ("NOT DEFINED" when it is empty).
  std::string channelRow(int row, std::string_view line, std::string_view serviceFallback);
  std::string talkgroupRow(int row, std::string_view line, std::string_view serviceFallback);

 private:
  std::string_view withLevelTail(std::string_view line, std::string_view tail);

  HpdLevel level_;
  bool x36_;
  int fileNumber_;
  std::string buffer_;
  std::vector<std::string_view> fields_;
};

// Splits the tone field of a C-Freq line into the row's "SQ Mode" and "SQ Code".
struct ToneCells {
  std::string mode;
  std::string code;
};
ToneCells toneFromFile(std::string_view field);

// The service type name of a file's number: 1 to 37 and 208 to 217 that name a type give
// the name, anything else the fallback (or "NOT DEFINED").
std::string serviceTextFromFile(std::string_view number, std::string_view fallback);

}  // namespace zel::formats

// Line builders of the writer: a record line of the tree, or a row of a page file, to one
// HPD line in its TAB form (no line end). Every word bound for a closed list passes a check
// that moves a word outside the list to the list's default, as the scanner needs it.
//
//   row    3,154.785000,Fire Disp,Off,NFM,CTCSS,123.0,Fire Dispatch,Off,2,0,Off,Auto,...
//   line   C-Freq<TAB><TAB><TAB>Fire Disp<TAB>Off<TAB>154785000<TAB>NFM<TAB>TONE=C123.0<TAB>3...
//
//   row    1,56421,Fire Dispatch,Off,All,Fire Dispatch,2,0,Off,Auto,Red,On,Off,Off,Any
//   line   TGID<TAB><TAB><TAB>Fire Dispatch<TAB>Off<TAB>56421<TAB>ALL<TAB>3<TAB>2 ... Srch
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "formats/hpd_format.h"

namespace zel::formats {

// What a save would change: values that the writer moves to a default. The writer fills it
// when one is given; `where` names the place the writer is at.
struct WriteNote {
  std::string where;
  std::string field;
  std::string from;
  std::string to;
};

class WriteAudit {
 public:
  std::string where;
  std::vector<WriteNote> moved;                              // a word replaced by the default
  std::map<std::string, std::map<std::string, int>> filled;  // field -> default -> empty values

  void noteMoved(std::string_view field, std::string_view from, std::string_view to);
  void noteFilled(std::string_view field, std::string_view to);
};

struct BuildContext {
  HpdLevel level = HpdLevel::V3;
  // The service type of a row whose type is empty (option entry 7); "Custom 1" when empty.
  std::string serviceFallback;
  WriteAudit* audit = nullptr;
};

// A channel row appended to `out` as a "C-Freq" line (no line end); false, and nothing
// appended, for a row without a frequency. The TGID builder alike for a talkgroup row.
bool appendCFreqLine(std::string& out, std::string_view pageRow, const BuildContext& context);
bool appendTgidLine(std::string& out, std::string_view pageRow, const BuildContext& context);
// A channel row to a "C-Freq" line; "" for a row without a frequency.
std::string buildCFreqLine(std::string_view pageRow, const BuildContext& context);
// A talkgroup row to a "TGID" line; "" for a row without a talkgroup.
std::string buildTgidLine(std::string_view pageRow, const BuildContext& context);

// The tone field of a channel: "NAC=Srch" for a search under any of the five digital modes,
// else the code in the file form of its mode.
std::string toneField(std::string_view sqMode, std::string_view sqCode);
// A number tag: "Off" for "Off", "", "None" and "1000", else the number limited to 0..999.
std::string numberTagField(std::string_view value);
// The system's number for its TrunkId and AgencyId fields: the record's, or "2".
std::string systemNumberField(std::string_view sinLine);

// The structural lines. `sin` is a system record, `site` a SIT/SIF record and so on.
std::string buildTrunkLine(std::string_view sin, const BuildContext& context);
std::string buildConventionalLine(std::string_view sin, const BuildContext& context);
std::vector<std::string> buildAreaLines(std::string_view sin, bool trunked);
std::string buildDqkStatusLine();
// An empty result when the fleet map is missing or the all-zero default.
std::string buildFleetMapLine(std::string_view fmp, std::string_view number);
std::string buildUnitIdLine(std::string_view uid, const BuildContext& context);
std::string buildSiteLine(std::string_view site, int siteId, std::string_view number,
                          const BuildContext& context);
// A site takes a band plan line when it is "Custom" in one of the systems that use one.
bool bandPlanDue(std::string_view site, std::string_view systemWord);
std::string buildBandPlanLine(std::string_view mcp, int siteId);
std::string buildSiteFrequencyLine(std::string_view tfq, int siteId, int position, bool nxdn);
std::string buildGroupLine(std::string_view group, bool talkgroups, int groupId,
                           std::string_view number, const BuildContext& context);

}  // namespace zel::formats

#pragma once
// The line rules of the trunked import, one function a rule, so that the builders in
// rr_import_trunked.cpp and rr_import_sites.cpp only string them together and each rule can
// be checked on its own.
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "radioref/rr_import.h"

namespace zel::radioref {

// ---- System ---------------------------------------------------------------------------------

// The header texts and numeric type of an import type ("MOT 800/900", "LTR", ...).
struct TrunkHeader {
  std::string first;   // "SIN,Motorola,"
  std::string second;  // ",Motorola,,,,,,,,,,,,,,,,"
  int typeCode = 0;    // the system table's field 10
};
// nullptr-free: an import type without a row gives an empty header.
TrunkHeader trunkHeader(const std::string& importType);

// The update date of the header: the service's "2026-06-16T03:53:09+00:00" (or with a blank
// for the "T") becomes "06/16/2026 03:53:09", the month-first form the suite writes in the
// conventional header and the scanner in its database stamp. An empty date gives
// "10-10-2001 10:10:10"; a text of another shape is kept, commas as semicolons.
std::string headerDate(const std::string& lastUpdated);

// The system line: first text, import number, ",StateId=0,", name, ",Off,", date, second text
// and the file number with three digits.
std::string systemLine(const TrunkHeader& header, int importNumber, const std::string& name,
                       const std::string& date, int fileNumber);

// The fleet map size code of a b0..b7 letter ("2" 0, "A" 1 ... "Q" 14); 0 for any other.
int lookup_fm(const std::string& letter);
// "FMP," and the eight codes; "" when the system has no complete fleet map.
std::string fleetMapLine(const std::vector<std::string>& fleetmap);

// ---- Talkgroups -----------------------------------------------------------------------------

enum class TrunkFamily { Other, Ltr, Edacs };

// The identifier of a ticked talkgroup row: its id, or the subfleet form when that is empty
// or "0"; then padded for LTR, turned into AFS for EDACS under "Convert Edacs To AFS", and
// put into the "xx-xxxx" form for flavor 36.
std::string talkgroupId(const TalkgroupRow& row, TrunkFamily family, bool edacsAfs,
                        const std::string& flavorCode);

// "A" gives "Analog", "D" and "T" "Digital", any other code "All" (case-blind).
std::string talkgroupMode(const std::string& tgMode);

struct TalkgroupLines {
  std::string record;  // "TID,..."
  std::string grid;    // the row's fields from the id on, without the row number
};
// The record and the grid row. EDACS rows end without the slot "Any"; a ticked Led row of the
// service puts its colour and pattern into fields 9 and 10 of the grid row.
TalkgroupLines talkgroupLines(const std::string& id, const std::string& name,
                              const std::string& mode, const std::string& service, bool edacs,
                              const std::vector<LedRule>& leds);

// "GIN,C-Group,CGroupId=0,AgencyId=0,<name>,Off,<location>,,<quickKey>,". The location is
// the GPS text unless that is empty, "0,0,0" or ",,".
std::string trunkDepartmentLine(const std::string& name, const std::string& gps,
                                const std::string& quickKey);
inline constexpr const char* kDefaultDepartment = "Department: 1 ";

// ---- Sites ----------------------------------------------------------------------------------

struct SiteTailCase {
  std::string typeName;      // the system's sType name ("Project 25", "Motorola", ...)
  std::string flavorCode;    // "10", "11", ...
  bool hasBandPlan = false;  // the system or this site has a band plan
  bool rebanded = false;     // the flags as the import takes them (Motorola only)
  bool splinter = false;
  std::string nac;
};
// The site line's tail by the tail table, later rows overriding earlier ones.
std::string siteTail(const SiteTailCase& c);

// One row of the three-row plan tables the band plan pane shows for the fixed rebanded plan.
struct RebandRow {
  int firstChannel = 0;
  int lastChannel = 0;
  double stepKhz = 25.0;
  double baseMhz = 0;
};
// The fixed rebanded plan: channels 440-559, 0-719, 720-759, 815-831, 958-1022, 961-1022 from
// the bases 851.025, 851.0125, 848.000, 846.625, 868.975 and 843.4, all 25.0 kHz apart.
std::vector<RebandRow> load_reband();

inline constexpr const char* kRebandedPlanLine =
    "MCP,type,851.0250,854.0000,25.0,440,851.0125,868.9875,25.0,0,,,,,,,,,,,,,,,,,";

// "MCP,type" and one group (low, high, step, offset) a plan row, closed by the sentinel row
// at offset 760, padded with empty groups to six. The fixed rebanded line when `rebanded`, or
// when the first two bases are 851.025 and 851.0125. "" for no rows and not rebanded.
std::string bandPlanLine(const std::vector<RRBandPlan>& rows, bool rebanded);

// Whether a site frequency of `use` is imported under the control channel options: with none
// of the three ticked every frequency is; "Import All Control Channels" takes every "d" and
// "a"; otherwise "d" needs "Import Primary Control Channels" and "a" "Import Alternate
// Control Channels". A frequency that is not a control channel is always taken.
bool controlChannelTaken(const std::string& use, const ImportOptions& options);

// The RAN column as the site frequency keeps it: "RAN=99", "99", "RAN>99" and "" give "Srch";
// a number gets "RAN="; for IDAS (`area`) "RAN=" becomes "Area=".
std::string ranText(const std::string& ran, bool area);

enum class FrequencyForm { Plain, Lcn, Dmr, Nxdn };
// "TFQ,<MHz>,<lcn>,<colour code>[,<RAN>]": the frequency with six decimals; the LCN only for
// the forms that carry one; the colour code for DMR ("Srch" when empty), "Srch" otherwise;
// the RAN field for NXDN, whose colour code stays empty. "" for a frequency of 0.
std::string siteFrequencyLine(const SiteFreqRow& row, FrequencyForm form, bool area);

// ---- Builders -------------------------------------------------------------------------------

// What one site of the import needs: the system made last, its sites' frequency rows, and the
// county lookup for a site at 0,0.
struct SiteBuild {
  Document& doc;
  Feedback& feedback;
  const TrunkSystem& trunk;
  const ImportOptions& options;
  const std::vector<SiteFreqRow>& frequencyRows;
  std::function<std::optional<RRCounty>(int ctid)> countyInfo;
  int system = 0;        // the system's number, 0 when none was made
  int importNumber = 0;  // its TrunkId
  int frequencies = 0;   // frequencies added so far
  // Nodes that join the tree after the whole import (band plans), key and text, and the
  // frequency keys added to both trees.
  std::vector<std::pair<std::string, std::string>> laterNodes;
  std::vector<std::string> frequencyKeys;
};
// Adds one site with its band plan and frequencies to the system. The site's key, or "" when
// there is no system ("error , can not add site.") or no free site number.
std::string create_site245(SiteBuild& build, const SiteRow& row, bool rebanded, bool splinter);

}  // namespace zel::radioref

// The HPD favorites file: what both the reader and the writer need to agree on.
//
//   TargetModel<TAB>BCDx36HP                       level 3 header (x36 family)
//   FormatVersion<TAB>1.00
//   Trunk<TAB><TAB><TAB>Name<TAB>Off<TAB><TAB>P25Standard<TAB>Off ...
//   DQKs_Status<TAB><TAB>On<TAB>On ... (100 times)
//   UnitIds<TAB><TAB><TAB>Station 1<TAB>1872000<TAB>Off<TAB>Auto<TAB>Red<TAB>On
//   Site<TAB>SiteId=3<TAB>TrunkId=2<TAB>Simulcast<TAB>Off<TAB>41.45<TAB>-81.70 ...
//   BandPlan_Mot<TAB>SiteId=3<TAB>851025000<TAB>854000000<TAB>25000<TAB>440 ...
//   T-Freq<TAB>TFreqId=0<TAB>SiteId=3<TAB><TAB>Off<TAB>851900000<TAB>1<TAB>Srch<TAB>Srch
//   T-Group<TAB>TGroupId=9<TAB>TrunkId=2<TAB>Fire<TAB>Off<TAB>41.3<TAB>-81.7<TAB>4.0 ...
//   TGID<TAB><TAB><TAB>Fire Dispatch<TAB>Off<TAB>56421<TAB>ALL<TAB>3<TAB>2 ...
//   Conventional<TAB><TAB><TAB>Federal<TAB>Off<TAB><TAB>Conventional<TAB>Off ...
//   C-Group<TAB>CGroupId=12<TAB>AgencyId=2<TAB>Energy<TAB>Off<TAB>37.87 ...
//   C-Freq<TAB><TAB><TAB>Ops<TAB>Off<TAB>164225000<TAB>NFM<TAB>TONE=C146.2<TAB>16 ...
//
// One record a line, fields split by one TAB, no quoting, CR LF line ends. Inside the
// editor the same lines are held with commas, so a comma that a file field holds is read
// as ";". The first field names the line type; a line is recognised by its leading
// characters, so anything that begins with a type word counts as that type.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zel::formats {

// The three forms of the file. Level 3 is what this system writes in the x36-family mode.
enum class HpdLevel { V1 = 1, V2 = 2, V3 = 3 };

// Load flags of the reader: 1 skips the trunked line types, 2 skips the conventional ones
// and the "FormatVersion" test.
inline constexpr int kSkipTrunked = 1;
inline constexpr int kSkipConventional = 2;

enum class HpdLineType {
  None,
  FormatVersion,
  Conventional,
  CGroup,
  CFreq,
  Trunk,
  FleetMap,
  Site,
  BandPlanMot,
  BandPlanP25,
  TFreq,
  TGroup,
  UnitIds,
  Tgid,
};

// The type of a line by its leading characters, tested in the reader's fixed order with
// the fixed lengths. Types switched off by the load flags yield None.
HpdLineType matchLineType(std::string_view line, int loadFlags = 0);
const char* lineTypeWord(HpdLineType type);

// The word of a line that the reader recognises as the format's own but does not keep
// (TargetModel, FormatVersion, AreaState, AreaCounty, DQKs_Status, Rectangle); "" for any
// other line.
std::string_view notKeptWord(std::string_view line);

// The header lines of a level, without line ends.
std::vector<std::string> headerLines(HpdLevel level);

// Frequency digits of a file (Hz, no point) to the MHz text of a row: eight, nine or ten
// digits are split two, three or four before six decimals, then two leading zeros (or
// else one) are dropped. A string of any other length stays as it was.
std::string frequencyFromFile(std::string_view digits);
// The MHz text of a row (either "." or "," as the decimal mark) to whole Hz digits, the
// sixth decimal rounded. Text that holds no number gives "0"; empty text gives "".
std::string frequencyToFile(std::string_view mhz);

// Hz digits to the MHz text of a band plan ("851025000" -> "851.0250", at least four
// decimals) and kHz steps ("25000" -> "25.0", at least one decimal); and back.
std::string bandPlanMhz(std::string_view hz);
std::string bandPlanKhz(std::string_view hzThousandths);
std::string bandPlanHz(std::string_view mhz);
std::string bandPlanHzThousandths(std::string_view khz);

// Every name that reaches a file passes here: an empty name yields `fallback`, any other
// is cut to 64 characters and then loses the bytes 1 to 20 and 127 to 255.
std::string cleanName(std::string_view name, std::string_view fallback);

// A file's system type word to the label of the system record and its numeric type.
struct SystemKind {
  std::string label;
  int type = -1;  // system table field 10; -1 for an unknown word
  bool dmr = false;
  bool nxdn = false;
};
SystemKind systemKindFromWord(std::string_view word);
// The label of a system record to the type word of the file ("P25 Standard" ->
// "P25Standard"); a label that needs no change comes back as it is.
std::string systemWordFromLabel(std::string_view label);
bool labelIsDmr(std::string_view label);
bool labelIsNxdn(std::string_view label);

// The default band plan record, six groups of lower MHz, upper MHz, step kHz, offset.
inline constexpr std::string_view kDefaultBandPlan =
    "MCP,type,851.0250,854.0000,25.0,440,851.0125,868.9875,25.0,0,0,0,25.0,0,0,0,25.0,0,0,0,"
    "25.0,0,0,0,25.0,0";
// The fleet map of a system that has none of its own.
inline constexpr std::string_view kDefaultFleetMap = "FRN,0,0,0,0,0,0,0,0";

// Splits a comma-joined line into views (field 0 is the tag); `out` is reused.
void splitFields(std::string_view line, std::vector<std::string_view>& out);
// Field n of split fields, "" beyond the end.
inline std::string_view fieldAt(const std::vector<std::string_view>& f, std::size_t n) {
  return n < f.size() ? f[n] : std::string_view{};
}

}  // namespace zel::formats

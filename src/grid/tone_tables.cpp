// The subtone tables: the 50 CTCSS tones and the 104 DCS codes of this scanner family,
// and the combined table that older records index by position.
#include <string>
#include <vector>

#include "grid/vocabulary.h"

namespace zel::vocab {

const std::vector<std::string>& ctcssTones() {
  // Tones of other models ("60.0", "71.0", "120.0") are deliberately absent.
  static const std::vector<std::string> tones = {
      "67.0",  "69.3",  "71.9",  "74.4",  "77.0",  "79.7",  "82.5",  "85.4",  "88.5",  "91.5",
      "94.8",  "97.4",  "100.0", "103.5", "107.2", "110.9", "114.8", "118.8", "123.0", "127.3",
      "131.8", "136.5", "141.3", "146.2", "151.4", "156.7", "159.8", "162.2", "165.5", "167.9",
      "171.3", "173.8", "177.3", "179.9", "183.5", "186.2", "189.9", "192.8", "196.6", "199.5",
      "203.5", "206.5", "210.7", "218.1", "225.7", "229.1", "233.6", "241.8", "250.3", "254.1"};
  return tones;
}

const std::vector<std::string>& dcsCodes() {
  static const std::vector<std::string> codes = {
      "023", "025", "026", "031", "032", "036", "043", "047", "051", "053", "054", "065", "071",
      "072", "073", "074", "114", "115", "116", "122", "125", "131", "132", "134", "143", "145",
      "152", "155", "156", "162", "165", "172", "174", "205", "212", "223", "225", "226", "243",
      "244", "245", "246", "251", "252", "255", "261", "263", "265", "266", "271", "274", "306",
      "311", "315", "325", "331", "332", "343", "346", "351", "356", "364", "365", "371", "411",
      "412", "413", "423", "431", "432", "445", "446", "452", "454", "455", "462", "464", "465",
      "466", "503", "506", "516", "523", "526", "532", "546", "565", "606", "612", "624", "627",
      "631", "632", "654", "662", "664", "703", "712", "723", "731", "732", "734", "743", "754"};
  return codes;
}

const std::vector<std::string>& combinedTones() {
  static const std::vector<std::string> table = [] {
    std::vector<std::string> out(ctcssTones());
    out.insert(out.end(), dcsCodes().begin(), dcsCodes().end());
    for (int ran = 0; ran <= 63; ++ran) out.push_back("RAN " + std::to_string(ran));
    out.push_back("Search");
    out.push_back("None");
    return out;
  }();
  return table;
}

int combinedTonePosition(std::string_view word) {
  const auto& table = combinedTones();
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (table[i] == word) return static_cast<int>(i);
  }
  return -1;
}

std::string combinedToneAt(int position) {
  const auto& table = combinedTones();
  if (position < 0 || position >= static_cast<int>(table.size())) return {};
  return table[position];
}

}  // namespace zel::vocab

// A small state file: a county system of two departments and a P25 system of two sites.
#pragma once

#include <string>

#include "core/text.h"

namespace zel::test {

// "|" stands for a TAB.
const char* const kSampleState[] = {
    "TargetModel|BCDx36HP",
    "FormatVersion|1.00",
    "Conventional|CountyId=11|StateId=1|Ada County|Off||Conventional|||||||||",
    "AreaState|CountyId=11|StateId=1",
    "C-Group|CGroupId=1|CountyId=11|Fire Services|Off|43.600000|-116.200000|10.0|Circle|",
    "C-Freq|CFreqId=1|CGroupId=1|Fire 1|Off|154430000|FM||3||||||||||",
    "C-Freq|CFreqId=2|CGroupId=1|Fire 2|Off|154445000|FM||8||||||||||",
    "C-Group|CGroupId=2|CountyId=11|Roads|Off|0.000000|0.000000|0.0|Circle|",
    "C-Freq|CFreqId=3|CGroupId=2|Plows|Off|453100000|FM||14||||||||||",
    "Trunk|TrunkId=20|StateId=1|Capital Net|Off||P25Standard||||||||||||||",
    "Site|SiteId=5|TrunkId=20|North Hill|Off|44.000000|-116.000000|15.0|AUTO|Standard|Wide|Circle||||||Srch",
    "T-Freq|TFreqId=0|SiteId=5|||851012500|1|",
    "T-Freq|TFreqId=0|SiteId=5|||851512500|2|",
    "Site|SiteId=6|TrunkId=20|South Ridge|Off|42.500000|-114.500000|20.0|AUTO|Standard|Wide|Circle||||||Srch",
    "T-Freq|TFreqId=0|SiteId=6|||852012500|1|",
    "T-Group|TGroupId=7|TrunkId=20|Police|Off|0.000000|0.000000|0.0|Circle|",
    "TGID|Tid=1|TGroupId=7|Dispatch|Off|100|ALL|2|||||||||Any",
    "T-Group|TGroupId=8|TrunkId=20|Schools|Off|0.000000|0.000000|0.0|Circle|",
    "TGID|Tid=2|TGroupId=8|Buses|Off|200|ALL|32|||||||||Any",
    "TGID|Tid=3|TGroupId=8|Campus|Off|201|ALL|32|||||||||Any",
};

inline std::string sampleStateText() {
  std::string text;
  for (const char* line : kSampleState) text += replaceAll(line, "|", "\t") + "\r\n";
  return text;
}

}  // namespace zel::test

// The band tables that name a frequency: 31 US ranges, 31 European ranges and the names of
// the US rows, as three parallel lists. Row names keep their en dash (UTF-8).
#include <string>
#include <vector>

#include "grid/vocabulary_tables.h"

namespace zel::vocab::detail {

const std::vector<std::string>& bandsUs() {
  static const std::vector<std::string> list = {
      "25.00 - 26.96",       "26.965 - 27.405",   "27.41 - 27.995",    "28.00 - 29.68",
      "29.7 - 49.99",        "50.00 - 53.98",     "54.00 - 71.95",     "72.00 - 75.995",
      "76.00 - 87.95",       "88.00 - 107.9",     "108.00 - 136.9916", "137.00 - 143.9875",
      "144.00 - 147.995",    "148.00 - 150.7875", "150.8 - 161.995",   "162.00 - 173.9875",
      "174.00 - 215.95",     "216.00 - 224.98",   "225.00 - 379.975",  "380.00 - 399.9875",
      "400.00 - 405.9875",   "406.00 - 419.9875", "420.00 - 449.9875", "450.00 - 469.9875",
      "470.00 - 512.00",     "758.00 - 787.9937", "788.00 - 805.9937", "806.00 - 823.9875",
      "849.0125 - 868.9875", "894.0125 - 960.00", "1240.00 - 1300.00"};
  return list;
}

const std::vector<std::string>& bandsEurope() {
  static const std::vector<std::string> list = {
      "25.00 - 29.99",    "30.00 - 53.99",    "54.00 - 75.99",    "76.00 - 79.99",
      "80.00 - 82.99",    "83.00 - 83.99",    "84.00 - 87.29",    "87.30 - 87.99",
      "88.00 - 107.99",   "108.00 - 136.99",  "137.00 - 137.99",  "138.00 - 143.99",
      "144.00 - 145.99",  "146.00 - 155.99",  "156.00 - 157.99",  "158.00 - 160.59",
      "160.60 - 162.025", "162.025 - 162.59", "162.60 - 173.99",  "174.00 - 215.99",
      "216.00 - 224.99",  "225.00 - 399.99",  "400.00 - 405.99",  "406.00 - 439.99",
      "440.00 - 449.99",  "450.00 - 465.99",  "466.00 - 469.99",  "470.00 - 520.00",
      "758.00 - 893.99",  "894.00 - 960.00",  "1240.00 - 1300.00"};
  return list;
}

const std::vector<std::string>& bandNames() {
  static const std::vector<std::string> list = {"Petroleum Products & Broadcast Pickup",
                                                "CB Class D Channel",
                                                "Business & Forest Products",
                                                "10 Meter Amateur Band",
                                                "VHF Low Band",
                                                "6 Meter Amateur Band",
                                                "VHF TV Broadcast 2 \u2013 4",
                                                "Intersystem & Astronomy",
                                                "VHF TV Broadcast 5 \u2013 6",
                                                "FM Broadcast",
                                                "Aircraft Band",
                                                "Military Land Mobile",
                                                "2 Meter Amateur Band",
                                                "Military Land Mobile",
                                                "VHF High Band",
                                                "Federal Government",
                                                "TV Broadcast 7 \u2013 13",
                                                "1.25 Meter Amateur Band",
                                                "UHF Aircraft Band",
                                                "Military Band",
                                                "Miscellaneous",
                                                "Federal Government Land Mobile",
                                                "70 cm Amateur Band",
                                                "UHF Standard Band",
                                                "UHF TV",
                                                "Public Service Band",
                                                "Public Service Band",
                                                "Public Service Band",
                                                "Public Service Band",
                                                "Public Service Band",
                                                "23 cm Amateur Band"};
  return list;
}

}  // namespace zel::vocab::detail

// Service types: the scanner's function numbers and their names. The cell holds the name,
// the favorites file the number; the list offered to the user is sorted by name, not by
// number, with the custom and racing types at the end.
#include <array>
#include <string>
#include <vector>

#include "grid/vocabulary.h"

namespace zel::vocab {

namespace {

constexpr int kServiceSlots = 218;  // numbers 0 to 217

const std::array<std::string, kServiceSlots>& byNumber() {
  static const std::array<std::string, kServiceSlots> table = [] {
    std::array<std::string, kServiceSlots> t{};
    // Numbers 5, 10, 18, 19, 27, 28, 35, 36 and 38 to 207 are unassigned.
    t[1] = "Multi-Dispatch";
    t[2] = "Law Dispatch";
    t[3] = "Fire Dispatch";
    t[4] = "EMS Dispatch";
    t[6] = "Multi-Tac";
    t[7] = "Law Tac";
    t[8] = "Fire-Tac";
    t[9] = "EMS-Tac";
    t[11] = "Interop";
    t[12] = "Hospital";
    t[13] = "Ham";
    t[14] = "Public Works";
    t[15] = "Aircraft";
    t[16] = "Federal";
    t[17] = "Business";
    t[20] = "Railroad";
    t[21] = "Other";
    t[22] = "Multi-Talk";
    t[23] = "Law Talk";
    t[24] = "Fire-Talk";
    t[25] = "EMS-Talk";
    t[26] = "Transportation";
    t[29] = "Emergency Ops";
    t[30] = "Military";
    t[31] = "Media";
    t[32] = "Schools";
    t[33] = "Security";
    t[34] = "Utilities";
    t[37] = "Corrections";
    for (int i = 0; i < 8; ++i) t[208 + i] = "Custom " + std::to_string(i + 1);
    t[216] = "Racing Officials";
    t[217] = "Racing Teams";
    return t;
  }();
  return table;
}

}  // namespace

const std::vector<int>& serviceTypeOfferedNumbers() {
  static const std::vector<int> order = {
      15, 17, 37, 29, 4,  9,  25, 16, 3,  8,   24,  13,  12,  11,  2,   7,   23,  31,  30, 1,
      6,  22, 21, 14, 20, 32, 33, 26, 34, 208, 209, 210, 211, 212, 213, 214, 215, 216, 217};
  return order;
}

const std::vector<std::string>& serviceTypesOffered() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> out;
    for (int number : serviceTypeOfferedNumbers()) out.push_back(byNumber()[number]);
    return out;
  }();
  return names;
}

std::string serviceTypeName(int number) {
  if (number < 0 || number >= kServiceSlots) return {};
  return byNumber()[number];
}

int serviceTypeNumber(std::string_view name) {
  if (name.empty()) return 0;  // the unassigned slots are empty and must not match
  const auto& table = byNumber();
  for (int i = 1; i < kServiceSlots; ++i) {
    if (table[i] == name) return i;
  }
  return 0;
}

}  // namespace zel::vocab

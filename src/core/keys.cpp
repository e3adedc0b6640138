#include "core/keys.h"

#include <cctype>

#include "core/text.h"

namespace zel::keys {

std::string system(int sys) { return "SYS-" + padNumber(sys, 3); }
std::string site(int sys, int s) { return "SIT-" + padNumber(sys, 3) + "-" + padNumber(s, 3); }
std::string department(int sys, int d) {
  return "GRP-999-" + padNumber(sys, 3) + "-" + padNumber(d, 3);
}
std::string siteFrequency(int sys, int s, int f) {
  return "TFQ-" + padNumber(sys, 3) + "-" + padNumber(s, 3) + "-" + padNumber(f, 3);
}
std::string fleetMap(int sys) { return "FMP-" + padNumber(sys, 3) + "-000"; }
std::string bandPlan(int sys, int s) {
  return "MCP-" + padNumber(sys, 3) + "-" + padNumber(s, 3);
}
std::string unitHead(int sys) { return "UID-" + padNumber(sys, 3) + "-001"; }
std::string unitId(int sys, int unit) {
  return "UDD-" + padNumber(sys, 3) + "-00-" + padNumber(unit, 4);
}
std::string channel(int sys, int d, int row) {
  return "FRQ-" + padNumber(sys, 3) + "-" + padNumber(d, 3) + "-" + padNumber(row, 4);
}
std::string talkgroup(int sys, int d, int row) {
  return "TID-" + padNumber(sys, 3) + "-" + padNumber(d, 3) + "-" + padNumber(row, 4);
}
std::string favorites(int fileNumber) { return "FAV-" + padNumber(fileNumber, 3); }

int numberAt(std::string_view key, std::size_t position) {
  std::string_view rest = mid(key, position);
  int value = 0;
  bool any = false;
  for (char c : rest) {
    if (!std::isdigit(static_cast<unsigned char>(c))) break;
    value = value * 10 + (c - '0');
    any = true;
    if (value > 1000000) break;
  }
  return any ? value : 0;
}

int systemOf(std::string_view key) {
  if (key.size() < 7) return 0;
  if (startsWith(key, "GRP-")) return numberAt(key, 9);
  return numberAt(key, 5);
}

int siteOf(std::string_view key) {
  if ((startsWith(key, "SIT-") || startsWith(key, "MCP-") || startsWith(key, "TFQ-")) &&
      key.size() >= 11)
    return numberAt(key, 9);
  return -1;
}

int departmentOf(std::string_view key) {
  if (startsWith(key, "GRP-") && key.size() >= 15) return numberAt(key, 13);
  if ((startsWith(key, "FRQ-") || startsWith(key, "TID-")) && key.size() >= 11)
    return numberAt(key, 9);
  return -1;
}

std::string nodeKind(std::string_view key) {
  if (key.find("FAV-") != std::string_view::npos) return "FAV";
  if (startsWith(key, "UID-")) return "UID";
  if (startsWith(key, "SYS-")) return "SYSTEM";
  if (startsWith(key, "GRP-")) return "GROUP";
  if (startsWith(key, "SIT-")) return "SITE";
  if (startsWith(key, "SITELVL-")) return "SITELVL";
  return {};
}

}  // namespace zel::keys

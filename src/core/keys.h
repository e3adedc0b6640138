// Node keys. Every number is decimal with leading zeros, three digits unless told:
//
//   SYS-sss              system                 SIT-sss-nnn      site
//   GRP-999-sss-nnn      department             TFQ-sss-nnn-fff  site frequency
//   FMP-sss-000          fleet map              MCP-sss-nnn      band plan of site nnn
//   UID-sss-001          unit-ID list head      UDD-sss-00-nnnn  one unit ID
//   FRQ-sss-ddd-cccc     channel row            TID-sss-ddd-cccc talkgroup row
//   FAV-...              favorites list (visible tree only)
#pragma once

#include <string>
#include <string_view>

namespace zel::keys {

std::string system(int sys);
std::string site(int sys, int site);
std::string department(int sys, int dept);
std::string siteFrequency(int sys, int site, int freq);
std::string fleetMap(int sys);
std::string bandPlan(int sys, int site);
std::string unitHead(int sys);
std::string unitId(int sys, int unit);
std::string channel(int sys, int dept, int row);
std::string talkgroup(int sys, int dept, int row);
std::string favorites(int fileNumber);

// The number read from the digits at a 1-based key position ("SYS-001" at 5 gives 1).
int numberAt(std::string_view key, std::size_t position);
// The system number of any key that carries one, or 0.
int systemOf(std::string_view key);
// The site number of a SIT-/MCP- key or department number of a GRP- key, or -1.
int siteOf(std::string_view key);
int departmentOf(std::string_view key);

// What a click on a node of the visible tree means: "FAV", "UID", "SYSTEM", "GROUP",
// "SITE", "SITELVL", or "" for anything else.
std::string nodeKind(std::string_view key);

}  // namespace zel::keys

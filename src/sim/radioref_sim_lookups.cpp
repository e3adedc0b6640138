// The lookup lists of the simulated service: service tags, modes, trunked system types,
// flavors and voices, metro areas. The numbering is the service's, so that the recorded
// replies and the built-in data speak of the same things.
#include "sim/radioref_sim_dataset.h"

namespace zel::sim::rrdata {

const std::vector<Lookup>& tags() {
  static const std::vector<Lookup> v{
      {1, "Multi-Dispatch"}, {2, "Law Dispatch"},    {3, "Fire Dispatch"},  {4, "EMS Dispatch"},
      {6, "Multi-Tac"},      {7, "Law Tac"},         {8, "Fire-Tac"},       {9, "EMS-Tac"},
      {11, "Interop"},       {12, "Hospital"},       {13, "Ham"},           {14, "Public Works"},
      {15, "Aircraft"},      {16, "Federal"},        {17, "Business"},      {20, "Railroad"},
      {21, "Other"},         {22, "Multi-Talk"},     {23, "Law Talk"},      {24, "Fire-Talk"},
      {25, "EMS-Talk"},      {26, "Transportation"}, {29, "Emergency Ops"}, {30, "Military"},
      {31, "Media"},         {32, "Schools"},        {33, "Security"},      {34, "Utilities"},
      {35, "Data"},          {37, "Corrections"},
  };
  return v;
}

const std::vector<Lookup>& modes() {
  static const std::vector<Lookup> v{
      {1, "FM"},  {2, "AM"},   {3, "FMN"}, {4, "P25"}, {5, "Telm"},
      {6, "DMR"}, {7, "NXDN"}, {8, "FMW"}, {9, "USB"}, {10, "D-STAR"},
  };
  return v;
}

const std::vector<Lookup>& trsTypes() {
  static const std::vector<Lookup> v{
      {1, "Motorola"},    {2, "EDACS"},   {3, "LTR"},        {4, "MPT-1327"}, {5, "TETRA"},
      {6, "Midland CMS"}, {7, "OpenSky"}, {8, "Project 25"}, {9, "iDEN"},     {10, "SmarTrunk"},
      {11, "NXDN"},       {12, "DMR"},    {90, "Other"},
  };
  return v;
}

const std::vector<TypedLookup>& trsFlavors() {
  static const std::vector<TypedLookup> v{
      {1, 1, "Type I"},
      {1, 2, "Type II"},
      {1, 3, "Type IIi Hybrid"},
      {1, 4, "Type II SmartZone"},
      {2, 6, "Standard"},
      {2, 8, "Networked Standard"},
      {2, 10, "Narrowband"},
      {2, 11, "Narrowband Networked"},
      {3, 12, "Standard"},
      {3, 14, "Passport"},
      {8, 20, "Phase I"},
      {8, 33, "Phase II"},
      {11, 29, "NEXEDGE 9600"},
      {11, 42, "NEXEDGE 4800"},
      {11, 45, "Conventional Networked"},
      {12, 31, "Motorola Capacity Plus Single Site (TRBO)"},
      {12, 37, "Motorola Capacity Plus Multi Site (TRBO)"},
      {12, 38, "Tier 3 Standard"},
      {12, 43, "Conventional Networked"},
  };
  return v;
}

const std::vector<TypedLookup>& trsVoices() {
  static const std::vector<TypedLookup> v{
      {1, 1, "Analog"},
      {1, 2, "Analog and APCO-25 Common Air Interface"},
      {2, 6, "Analog"},
      {2, 7, "ProVoice Exclusive"},
      {2, 8, "ProVoice and Analog"},
      {3, 11, "Analog"},
      {8, 16, "APCO-25 Common Air Interface Exclusive"},
      {11, 27, "NXDN Digital"},
      {12, 29, "DMR"},
  };
  return v;
}

const std::vector<Lookup>& metroAreas() {
  static const std::vector<Lookup> v{
      {901, "Harbor City Metro"},
      {902, "Granite Falls Area"},
      {951,
       "Grand Montr\xE9"
       "al"},
  };
  return v;
}

}  // namespace zel::sim::rrdata

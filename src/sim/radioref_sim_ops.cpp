// The operation table of the simulated service: parts and reply types as the service
// declares them, and the two naming schemes.
#include "sim/radioref_sim_ops.h"

namespace zel::sim::rrsim {

namespace {

constexpr Part kAuth{"authInfo", "tns:authInfo"};

std::vector<Operation> makeOperations() {
  auto idOnly = [](std::string_view part) { return std::vector<Part>{{part, "xsd:int"}, kAuth}; };
  auto search = [](std::string_view area) {
    return std::vector<Part>{
        {area, "xsd:int"}, {"freq", "xsd:decimal"}, {"tone", "xsd:string"}, kAuth};
  };
  return {
      {"getTrsTalkgroups",
       {{"sid", "xsd:int"},
        {"tgCid", "xsd:int"},
        {"tgTag", "xsd:int"},
        {"tgDec", "xsd:int"},
        kAuth},
       "tns:Talkgroups",
       "Talkgroups of a trunked system, all of them or those of one category; optional filters "
       "by tag and by decimal talkgroup.",
       true},
      {"getTrsTalkgroupCats", idOnly("sid"), "tns:TalkgroupCats",
       "The talkgroup categories of a trunked system.", true},
      {"getTrsDetails", idOnly("sid"), "tns:Trs",
       "The details of a trunked system: type, flavor, voice, system ids, band plan, fleet map.",
       true},
      {"getTrsBySysid",
       {{"sysid", "xsd:string"}, kAuth},
       "tns:TrsList",
       "Trunked systems by system id.",
       false},
      {"getTrsSites", idOnly("sid"), "tns:TrsSites",
       "The sites of a trunked system with their frequencies.", true},
      {"getStatesByList",
       {{"request", "tns:stidList"}, kAuth},
       "tns:States",
       "States by a list of state ids.",
       false},
      {"getCountiesByList",
       {{"request", "tns:ctidList"}, kAuth},
       "tns:Counties",
       "Counties by a list of county ids.",
       false},
      {"getTag", idOnly("id"), "tns:tags", "The service tags; 0 lists them all.", true},
      {"getMode", idOnly("mode"), "tns:modes", "The modes; 0 lists them all.", true},
      {"getTrsType", idOnly("id"), "tns:TrsType", "The trunked system types; 0 lists all.", true},
      {"getTrsFlavor", idOnly("id"), "tns:TrsFlavor", "The trunked system flavors; 0 lists all.",
       true},
      {"getTrsVoice", idOnly("id"), "tns:TrsVoice", "The voice types; 0 lists all.", true},
      {"getCountryList", {}, "tns:Countries", "The countries of the database.", true},
      {"getCountryInfo", idOnly("coid"), "tns:CountryInfo",
       "A country with its states and nationwide agencies.", true},
      {"getStateInfo", idOnly("stid"), "tns:StateInfo",
       "A state with its counties, agencies and statewide trunked systems.", true},
      {"getCountyInfo", idOnly("ctid"), "tns:CountyInfo",
       "A county with its categories, trunked systems and agencies.", true},
      {"getAgencyInfo", idOnly("aid"), "tns:AgencyInfo", "An agency with its categories.", true},
      {"getSubcatFreqs", idOnly("scid"), "tns:Freqs",
       "The conventional frequencies of a subcategory.", true},
      {"searchCountyFreq", search("ctid"), "tns:searchFreqResults",
       "Conventional frequencies of a county by frequency, and tone when given.", true},
      {"searchStateFreq", search("stid"), "tns:searchFreqResults",
       "Conventional frequencies of a state by frequency, and tone when given.", true},
      {"searchMetroFreq", search("mid"), "tns:searchFreqResults",
       "Conventional frequencies of a metro area by frequency and tone.", false},
      {"getCountyFreqsByTag",
       {{"ctid", "xsd:int"}, {"tag", "xsd:int"}, kAuth},
       "tns:Freqs",
       "The conventional frequencies of a county that carry a tag.",
       true},
      {"getAgencyFreqsByTag",
       {{"aid", "xsd:int"}, {"tag", "xsd:int"}, kAuth},
       "tns:Freqs",
       "The conventional frequencies of an agency that carry a tag.",
       false},
      {"getMetroArea", idOnly("mid"), "tns:Metros", "The metro areas; 0 lists them all.", true},
      {"getMetroAreaInfo", idOnly("mid"), "tns:Counties", "The counties of a metro area.", false},
      {"getZipcodeInfo", idOnly("zipcode"), "tns:ZipInfo",
       "Position, city, state and county of a zip code.", true},
      {"fccGetCallsign",
       {{"callsign", "xsd:string"}, kAuth},
       "tns:fccCallsignDetails",
       "A licence by call sign.",
       false},
      {"fccGetRadioServiceCode",
       {{"code", "xsd:string"}, kAuth},
       "tns:fccRadioServiceCodes",
       "Radio service codes.",
       false},
      {"fccGetProxCallsigns",
       {{"lat", "xsd:decimal"},
        {"lon", "xsd:decimal"},
        {"range", "xsd:decimal"},
        {"unit", "xsd:string"},
        kAuth},
       "tns:proxCallsignResults",
       "Licences near a position.",
       false},
      {"getUserData", {kAuth}, "tns:UserInfo", "The account that signs the call.", true},
  };
}

}  // namespace

const std::vector<Operation>& operations() {
  static const std::vector<Operation> ops = makeOperations();
  return ops;
}

const Operation* findOperation(std::string_view name) {
  for (const Operation& op : operations()) {
    if (op.name == name) return &op;
  }
  return nullptr;
}

std::string ServedNames::targetNamespace() const {
  return std::string(renamed ? kRenamedNamespace : kStandardNamespace);
}

std::string ServedNames::inputMessage(std::string_view op) const {
  return std::string(op) + (renamed ? "Call" : "Request");
}

std::string ServedNames::outputMessage(std::string_view op) const {
  return std::string(op) + (renamed ? "Result" : "Response");
}

std::string ServedNames::soapAction(std::string_view op) const {
  if (renamed) return std::string(kRenamedNamespace) + ":action:" + std::string(op);
  return std::string(kStandardNamespace) + "#" + std::string(op);
}

const Operation* ServedNames::operationForMethod(std::string_view element) const {
  for (const Operation& op : operations()) {
    if (element == op.name || element == inputMessage(op.name)) return &op;
  }
  return nullptr;
}

}  // namespace zel::sim::rrsim

// The service description the simulator serves: written from the operation table and the type
// table below, in the layout of the service's own WSDL (rpc/encoded, one port type, one SOAP
// binding, one service whose address is this server).
#include "sim/radioref_sim_wsdl.h"

#include <sstream>

#include "sim/radioref_sim_ops.h"

namespace zel::sim::rrsim {

namespace {

// A complex type: either a record ("name:type ..." with short types i, s, d, t, b for xsd:int,
// string, decimal, dateTime, boolean, anything else a tns: type) or, with a leading "[", a
// SOAP-ENC:Array of the named item type.
struct TypeDef {
  std::string_view name;
  std::string_view layout;
};

constexpr TypeDef kTypes[] = {
    {"authInfo", "username:s password:s appKey:s version:s style:s"},
    {"stidList", "[stid"},
    {"ctidList", "[ctid"},
    {"Talkgroup",
     "tgId:i tgDec:i tgSubfleet:s tgLtr:b tgSlot:s tgDescr:s tgAlpha:s tgMode:s enc:i tags:tags "
     "tgCid:i tgSort:i tgDate:t"},
    {"Talkgroups", "[Talkgroup"},
    {"TalkgroupCat",
     "tgCid:i sid:i tgCname:s tgSort:i tgSortBy:i lat:d lon:d range:d "
     "lastUpdated:t"},
    {"TalkgroupCats", "[TalkgroupCat"},
    {"TrsSite",
     "siteId:i sid:i siteNumber:i siteDescr:s zoneNumber:i zoneDescr:s rfss:i nac:s ran:i "
     "siteNeighbors:s siteLocation:s siteCtid:i siteCt:s siteModulation:s siteNotes:s lat:d "
     "lon:d range:d rectangles:Rectangles splinter:i rebanded:i tdma_cc:i "
     "siteLicenses:TrsSiteLicenses siteFreqs:TrsSiteFreqs bandplan:TrsBrandplan"},
    {"TrsSites", "[TrsSite"},
    {"Rectangle", "nwLat:d nwLon:d seLat:d seLon:d"},
    {"Rectangles", "[Rectangle"},
    {"TrsSiteFreq", "lcn:i freq:d use:s colorCode:s ch_id:s"},
    {"TrsSiteFreqs", "[TrsSiteFreq"},
    {"TrsSiteLicense", "license:s"},
    {"TrsSiteLicenses", "[TrsSiteLicense"},
    {"Trs",
     "sName:s sType:i sFlavor:i sVoice:i sCity:s sCounty:ctids sState:stids sCountry:s lat:d "
     "lon:d range:d lastUpdated:t sysid:TrsSysid bandplan:TrsBrandplan fleetmap:TrsFleetmap"},
    {"TrsListDef", "sid:i sName:s sType:i sFlavor:i sVoice:i sCity:s lastUpdated:t"},
    {"TrsList", "[TrsListDef"},
    {"trsSysidDef", "sysid:s ct:s wacn:s model:s"},
    {"TrsSysid", "[trsSysidDef"},
    {"trsBandplanDef", "base:s spacing:s offset:s"},
    {"TrsBrandplan", "[trsBandplanDef"},
    {"TrsFleetmap", "b0:s b1:s b2:s b3:s b4:s b5:s b6:s b7:s"},
    {"trsTypeDef", "sType:i sTypeDescr:s"},
    {"TrsType", "[trsTypeDef"},
    {"trsFlavorDef", "sType:i sFlavor:i sFlavorDescr:s"},
    {"TrsFlavor", "[trsFlavorDef"},
    {"trsVoiceDef", "sType:i sVoice:i sVoiceDescr:s"},
    {"TrsVoice", "[trsVoiceDef"},
    {"freq",
     "fid:i out:d in:d callsign:s enc:i descr:s alpha:s tone:s mode:s class:s colorCode:s "
     "slot:s tg:s tags:tags scid:i sort:i lastUpdated:t"},
    {"searchFreqResult",
     "out:d in:d callsign:s descr:s alpha:s tone:s mode:s class:s tags:tags scid:i sid:i aid:i "
     "ctid:i"},
    {"searchFreqResults", "[searchFreqResult"},
    {"Freqs", "[freq"},
    {"Cats", "[cat"},
    {"cat", "cid:i cName:s subcats:SubCats"},
    {"SubCats", "[subcat"},
    {"subcat", "scid:i scName:s lat:d lon:d range:d sids:sids"},
    {"sid", "sid:i"},
    {"sids", "[sid"},
    {"AgencyInfo",
     "aid:i agencyName:s agencyType:s ctid:i stid:i lat:d lon:d range:d lastUpdated:t cats:Cats"},
    {"CountyInfo",
     "ctid:i countyName:s countyHeader:s stid:i fips:s lastUpdated:t lat:d lon:d range:d "
     "cats:Cats trsList:TrsList agencyList:Agencies"},
    {"StateInfo",
     "stid:i stateName:s stateEntityType:s trsList:TrsList agencyList:Agencies "
     "countyList:Counties"},
    {"CountryInfo", "coid:i countryName:s countryCode:s agencyList:Agencies stateList:States"},
    {"County", "ctid:i countyName:s countyHeader:s"},
    {"Counties", "[County"},
    {"ctids", "[ctid"},
    {"ctid", "ctid:i"},
    {"States", "[State"},
    {"State", "stid:i stateName:s stateCode:s"},
    {"Metros", "[Metro"},
    {"Metro", "mid:i metroName:s"},
    {"Countries", "[Country"},
    {"Country", "coid:i countryName:s countryCode:s"},
    {"Agencies", "[Agency"},
    {"Agency", "aid:i aName:s aType:i"},
    {"stids", "[stid"},
    {"stid", "stid:i"},
    {"tags", "[tag"},
    {"tag", "tagId:i tagDescr:s"},
    {"modes", "[mode"},
    {"mode", "mode:i modeName:s"},
    {"ZipInfo", "zipCode:i lat:s lon:s city:s stid:i ctid:i"},
    {"UserInfo", "username:s subExpireDate:s"},
    {"fccCallsignDetails",
     "licensee:s callsign:s status:s grantDate:s radioService:s notes:s locations:fccLocations "
     "frequencies:fccFrequencies"},
    {"fccFrequency", "locationNumber:i frequency:d emission:s class:s power:i mobiles:i pagers:i"},
    {"fccFrequencies", "[fccFrequency"},
    {"fccLocation",
     "locationNumber:i towerId:i type:s antennaHeight:i structureHeight:i elevation:i address:s "
     "lat:d lon:d city:s county:s state:s"},
    {"fccLocations", "[fccLocation"},
    {"proxCallsignResult", "callsign:s licensee:s lat:d lon:d distance:d"},
    {"proxCallsignResults", "[proxCallsignResult"},
    {"fccRadioServiceCode", "code:s description:s"},
    {"fccRadioServiceCodes", "[fccRadioServiceCode"},
};

std::string xsdType(std::string_view shortType) {
  if (shortType == "i") return "xsd:int";
  if (shortType == "s") return "xsd:string";
  if (shortType == "d") return "xsd:decimal";
  if (shortType == "t") return "xsd:dateTime";
  if (shortType == "b") return "xsd:boolean";
  return "tns:" + std::string(shortType);
}

void writeType(std::ostringstream& out, const TypeDef& type) {
  out << " <xsd:complexType name=\"" << type.name << "\">\n";
  if (!type.layout.empty() && type.layout.front() == '[') {
    out << "  <xsd:complexContent>\n"
        << "   <xsd:restriction base=\"SOAP-ENC:Array\">\n"
        << "    <xsd:attribute ref=\"SOAP-ENC:arrayType\" wsdl:arrayType=\"tns:"
        << type.layout.substr(1) << "[]\"/>\n"
        << "   </xsd:restriction>\n"
        << "  </xsd:complexContent>\n";
  } else {
    out << "  <xsd:all>\n";
    std::string_view rest = type.layout;
    while (!rest.empty()) {
      std::size_t end = rest.find(' ');
      std::string_view field = rest.substr(0, end);
      rest = end == std::string_view::npos ? std::string_view{} : rest.substr(end + 1);
      std::size_t colon = field.find(':');
      out << "   <xsd:element name=\"" << field.substr(0, colon) << "\" type=\""
          << xsdType(field.substr(colon + 1)) << "\"/>\n";
    }
    out << "  </xsd:all>\n";
  }
  out << " </xsd:complexType>\n";
}

}  // namespace

std::string writeWsdl(const ServedNames& names, const std::string& location) {
  const std::string ns = names.targetNamespace();
  const std::string body = "<soap:body use=\"encoded\" namespace=\"" + ns +
                           "\" encodingStyle=\"http://schemas.xmlsoap.org/soap/encoding/\"/>";
  std::ostringstream out;
  out << "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n"
      << "<definitions xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\" "
         "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\" "
         "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
         "xmlns:SOAP-ENC=\"http://schemas.xmlsoap.org/soap/encoding/\" xmlns:tns=\""
      << ns
      << "\" xmlns:soap=\"http://schemas.xmlsoap.org/wsdl/soap/\" "
         "xmlns:wsdl=\"http://schemas.xmlsoap.org/wsdl/\" "
         "xmlns=\"http://schemas.xmlsoap.org/wsdl/\" targetNamespace=\""
      << ns << "\">\n"
      << "<types>\n<xsd:schema targetNamespace=\"" << ns << "\"\n>\n"
      << " <xsd:import namespace=\"http://schemas.xmlsoap.org/soap/encoding/\" />\n"
      << " <xsd:import namespace=\"http://schemas.xmlsoap.org/wsdl/\" />\n";
  for (const TypeDef& type : kTypes) writeType(out, type);
  out << "</xsd:schema>\n</types>\n";

  for (const Operation& op : operations()) {
    out << "<message name=\"" << names.inputMessage(op.name) << "\">";
    for (const Part& part : op.parts) {
      out << "\n  <part name=\"" << part.name << "\" type=\"" << part.type << "\" />";
    }
    out << "</message>\n<message name=\"" << names.outputMessage(op.name) << "\">\n"
        << "  <part name=\"return\" type=\"" << op.returnType << "\" /></message>\n";
  }

  out << "<portType name=\"RRSimPortType\">\n";
  for (const Operation& op : operations()) {
    out << "  <operation name=\"" << op.name << "\">\n"
        << "    <documentation>" << op.documentation << "</documentation>\n"
        << "    <input message=\"tns:" << names.inputMessage(op.name) << "\"/>\n"
        << "    <output message=\"tns:" << names.outputMessage(op.name) << "\"/>\n"
        << "  </operation>\n";
  }
  out << "</portType>\n"
      << "<binding name=\"RRSimBinding\" type=\"tns:RRSimPortType\">\n"
      << "  <soap:binding style=\"rpc\" transport=\"http://schemas.xmlsoap.org/soap/http\"/>\n";
  for (const Operation& op : operations()) {
    out << "  <operation name=\"" << op.name << "\">\n"
        << "    <soap:operation soapAction=\"" << names.soapAction(op.name)
        << "\" style=\"rpc\"/>\n"
        << "    <input>" << body << "</input>\n"
        << "    <output>" << body << "</output>\n"
        << "  </operation>\n";
  }
  out << "</binding>\n"
      << "<service name=\"RRSim\">\n"
      << "  <port name=\"RRSimPort\" binding=\"tns:RRSimBinding\">\n"
      << "    <soap:address location=\"" << location << "\"/>\n"
      << "  </port>\n"
      << "</service>\n"
      << "</definitions>\n";
  return out.str();
}

}  // namespace zel::sim::rrsim

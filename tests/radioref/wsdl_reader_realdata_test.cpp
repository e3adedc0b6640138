// The reader on the service's own description of 2009: its tables, and every operation
// selectable by name with its request, reply and action.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "radioref/wsdl_tables.h"
#include "rr_test_support.h"

namespace zel::radioref {
namespace {

TEST(RealWsdl, TablesAndEveryOperation) {
  WsdlTables t;
  const WsdlParseResult result =
      ParseWSDL(test::slurp(std::string(ZEL_REALDATA_DIR) + "/radioref/wsdl/rr_soap2_2009.wsdl"), t);
  ASSERT_TRUE(result.ok) << result.reason;
  const std::string ns = "http://api.radioreference.com/soap2";
  EXPECT_EQ(
      std::tie(t.definitions.targetNamespace, t.definitions.xmlnsSoap, t.schema.targetNamespace),
      std::make_tuple(ns, "http://schemas.xmlsoap.org/wsdl/soap/", ns));
  ASSERT_EQ(std::make_pair(t.portTypes.size(), t.bindings.size()), std::make_pair(1ul, 1ul));
  EXPECT_EQ((std::vector<std::size_t>{t.schema.imports.size(), t.schema.complexTypes.size(),
                                      t.messages.size(), t.portTypes[0].operations.size(),
                                      t.bindings[0].operations.size()}),
            (std::vector<std::size_t>{2, 67, 60, 30, 30}));
  EXPECT_EQ(std::tie(t.bindings[0].name, t.bindings[0].type, t.bindings[0].style),
            std::make_tuple("RRWsdlBinding", "tns:RRWsdlPortType", "rpc"));
  ASSERT_EQ(t.services.size(), 1u);
  EXPECT_EQ(std::tie(t.services[0].name, t.services[0].portName, t.services[0].portBinding,
                     t.services[0].location),
            std::make_tuple("RRWsdl", "RRWsdlPort", "tns:RRWsdlBinding", ns + "/index.php"));
  // Every request message but getCountryList's (which has no parts) carries the login, and
  // every element of every type was read from that type alone.
  int withAuth = 0;
  for (const WsdlMessage& m : t.messages) {
    EXPECT_EQ(m.partCount, static_cast<int>(m.parts.size()));
    for (const NameType& part : m.parts) withAuth += part == NameType("authInfo", "tns:authInfo");
  }
  EXPECT_EQ(withAuth, 29);
  for (const WsdlType& type : t.schema.complexTypes) {
    EXPECT_LT(type.elementCount, 40) << type.name;
    EXPECT_TRUE(type.elementCount > 0 || !type.arrayType.empty()) << type.name;
  }
  const auto type = [&](const char* name) -> const WsdlType& {
    return *std::find_if(t.schema.complexTypes.begin(), t.schema.complexTypes.end(),
                         [&](const WsdlType& w) { return w.name == name; });
  };
  const WsdlType& county = type("CountyInfo");
  EXPECT_EQ(
      std::tie(county.elementCount, county.elements.front(), county.elements.back()),
      std::make_tuple(11, NameType("ctid", "xsd:int"), NameType("agencyList", "tns:Agencies")));
  EXPECT_EQ(std::tie(type("Talkgroups").base, type("Talkgroups").ref, type("Talkgroups").arrayType),
            std::make_tuple("SOAP-ENC:Array", "SOAP-ENC:arrayType", "tns:Talkgroup[]"));

  for (const WsdlPortOperation& op : t.portTypes[0].operations) {
    const SelectedOperation s = SelectOperation(t, op.name);
    EXPECT_EQ(fromFifth(s.InputMessage), op.name + "Request");
    EXPECT_EQ(s.OutputMessage, "tns:" + op.name + "Response");
    // No complex type is named after a message in this description.
    EXPECT_EQ(
        std::make_tuple(s.InputParts.empty(), s.OutputParts.size(), s.binding.soapAction, s.found),
        std::make_tuple(op.name == "getCountryList", 1ul, ns + "#" + op.name, false))
        << op.name;
  }
  const SelectedOperation s = SelectOperation(t, "getCountyInfo");
  EXPECT_EQ(s.InputParts,
            (std::vector<NameType>{{"ctid", "xsd:int"}, {"authInfo", "tns:authInfo"}}));
  EXPECT_EQ(s.OutputParts, (std::vector<NameType>{{"return", "tns:CountyInfo"}}));
  const WsdlBindingOperation& b = s.binding;
  const std::string enc = "http://schemas.xmlsoap.org/soap/encoding/";
  EXPECT_EQ(std::tie(b.style, b.inputUse, b.inputNamespace, b.inputEncodingStyle, b.outputUse,
                     b.outputNamespace, b.outputEncodingStyle),
            std::make_tuple("rpc", "encoded", ns, enc, "encoded", ns, enc));
  const auto& ops = t.portTypes[0].operations;
  EXPECT_EQ(std::find_if(ops.begin(), ops.end(), [](const WsdlPortOperation& o) {
              return o.name == "getCountyInfo";
            })->documentation.rfind("Returns assigned frequency categories, subcategories", 0),
            0u);
}

}  // namespace
}  // namespace zel::radioref

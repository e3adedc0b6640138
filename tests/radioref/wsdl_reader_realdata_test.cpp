#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "radioref/wsdl_tables.h"

namespace zel::radioref {
namespace {

std::string readWsdl() {
  std::ifstream in(std::string(ZEL_REALDATA_DIR) + "/radioref/wsdl/rr_soap2_2009.wsdl",
                   std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

class RealWsdl : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    tables_ = new WsdlTables;
    result_ = ParseWSDL(readWsdl(), *tables_);
  }
  static void TearDownTestSuite() { delete tables_; }
  static WsdlTables* tables_;
  static WsdlParseResult result_;
};
WsdlTables* RealWsdl::tables_ = nullptr;
WsdlParseResult RealWsdl::result_;

TEST_F(RealWsdl, TableSizes) {
  ASSERT_TRUE(result_.ok) << result_.reason;
  const WsdlTables& t = *tables_;
  EXPECT_EQ(t.definitions.targetNamespace, "http://api.radioreference.com/soap2");
  EXPECT_EQ(t.definitions.xmlnsSoap, "http://schemas.xmlsoap.org/wsdl/soap/");
  EXPECT_EQ(t.schema.targetNamespace, "http://api.radioreference.com/soap2");
  EXPECT_EQ(t.schema.imports.size(), 2u);
  EXPECT_EQ(t.schema.complexTypes.size(), 67u);
  EXPECT_EQ(t.messages.size(), 60u);
  ASSERT_EQ(t.portTypes.size(), 1u);
  EXPECT_EQ(t.portTypes[0].operations.size(), 30u);
  ASSERT_EQ(t.bindings.size(), 1u);
  EXPECT_EQ(t.bindings[0].operations.size(), 30u);
  EXPECT_EQ(std::tie(t.bindings[0].name, t.bindings[0].type, t.bindings[0].style),
            std::make_tuple("RRWsdlBinding", "tns:RRWsdlPortType", "rpc"));
  ASSERT_EQ(t.services.size(), 1u);
  EXPECT_EQ(std::tie(t.services[0].name, t.services[0].portName, t.services[0].portBinding,
                     t.services[0].location),
            std::make_tuple("RRWsdl", "RRWsdlPort", "tns:RRWsdlBinding",
                            "http://api.radioreference.com/soap2/index.php"));
  // Every request message but getCountryList's (which has no parts) carries the login, and every
  // element of every type was read from that type alone.
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
}

TEST_F(RealWsdl, GetCountyInfoRecords) {
  const SelectedOperation s = SelectOperation(*tables_, "getCountyInfo");
  EXPECT_EQ(s.InputMessage, "tns:getCountyInfoRequest");
  EXPECT_EQ(s.OutputMessage, "tns:getCountyInfoResponse");
  EXPECT_EQ(s.InputParts,
            (std::vector<NameType>{{"ctid", "xsd:int"}, {"authInfo", "tns:authInfo"}}));
  EXPECT_EQ(s.OutputParts, (std::vector<NameType>{{"return", "tns:CountyInfo"}}));
  const WsdlBindingOperation& b = s.binding;
  const std::string ns = "http://api.radioreference.com/soap2";
  const std::string enc = "http://schemas.xmlsoap.org/soap/encoding/";
  EXPECT_EQ(std::tie(b.name, b.soapAction, b.style, b.inputUse, b.inputNamespace,
                     b.inputEncodingStyle, b.outputUse, b.outputNamespace, b.outputEncodingStyle),
            std::make_tuple("getCountyInfo", ns + "#getCountyInfo", "rpc", "encoded", ns, enc,
                            "encoded", ns, enc));
  // No complex type is named after a message in this description.
  EXPECT_EQ(s.TypeName, "");
  EXPECT_FALSE(s.found);

  const auto& ops = tables_->portTypes[0].operations;
  const auto op = std::find_if(
      ops.begin(), ops.end(), [](const WsdlPortOperation& o) { return o.name == "getCountyInfo"; });
  ASSERT_NE(op, ops.end());
  EXPECT_EQ(op->documentation.rfind("Returns assigned frequency categories, subcategories", 0), 0u);

  const auto& types = tables_->schema.complexTypes;
  const auto county = std::find_if(types.begin(), types.end(),
                                   [](const WsdlType& w) { return w.name == "CountyInfo"; });
  ASSERT_NE(county, types.end());
  EXPECT_EQ(county->elementCount, 11);
  EXPECT_EQ(county->elements.front(), NameType("ctid", "xsd:int"));
  EXPECT_EQ(county->elements.back(), NameType("agencyList", "tns:Agencies"));
  const auto talkgroups = std::find_if(types.begin(), types.end(),
                                       [](const WsdlType& w) { return w.name == "Talkgroups"; });
  ASSERT_NE(talkgroups, types.end());
  EXPECT_EQ(std::tie(talkgroups->base, talkgroups->ref, talkgroups->arrayType),
            std::make_tuple("SOAP-ENC:Array", "SOAP-ENC:arrayType", "tns:Talkgroup[]"));
}

TEST_F(RealWsdl, EveryOperationIsSelectable) {
  for (const WsdlPortOperation& op : tables_->portTypes[0].operations) {
    const SelectedOperation s = SelectOperation(*tables_, op.name);
    EXPECT_EQ(fromFifth(s.InputMessage), op.name + "Request");
    EXPECT_EQ(s.InputParts.empty(), op.name == "getCountryList") << op.name;
    EXPECT_EQ(s.OutputParts.size(), 1u) << op.name;
    EXPECT_EQ(s.binding.soapAction, "http://api.radioreference.com/soap2#" + op.name);
  }
}

}  // namespace
}  // namespace zel::radioref

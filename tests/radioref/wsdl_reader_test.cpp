#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "radioref/wsdl_tables.h"

namespace zel::radioref {
namespace {

// Two of everything, so that a query reaching beyond its own subtree shows.
constexpr const char* kWsdl = R"(<?xml version="1.0" encoding="ISO-8859-1"?>
<definitions xmlns:tns="urn:t" xmlns:soap="urn:soap" xmlns:xsd="urn:xsd" xmlns:wsdl="urn:wsdl"
    xmlns="urn:wsdl" targetNamespace="urn:t">
<types><xsd:schema targetNamespace="urn:t">
  <xsd:import namespace="urn:enc"/>
  <xsd:complexType name="getAResponse"><xsd:all>
    <xsd:element name="a1" type="xsd:int"/><xsd:element name="a2" type="xsd:string"/>
  </xsd:all></xsd:complexType>
  <xsd:complexType name="List"><xsd:complexContent><xsd:restriction base="SOAP-ENC:Array">
    <xsd:attribute ref="SOAP-ENC:arrayType" wsdl:arrayType="tns:Item[]"/>
  </xsd:restriction></xsd:complexContent></xsd:complexType>
  <xsd:complexType name="Item"><xsd:all><xsd:element name="i1" type="xsd:int"/></xsd:all>
  </xsd:complexType>
</xsd:schema></types>
<message name="getARequest"><part name="x" type="xsd:int"/><part name="authInfo" type="tns:authInfo"/></message>
<message name="getAResponse"><part name="return" type="tns:getAResponse"/></message>
<message name="getBRequest"><part name="y" type="xsd:string"/></message>
<message name="Request"><part name="lost" type="xsd:int"/></message>
<portType name="PT">
  <operation name="getA"><documentation>Gets A &amp; more</documentation>
    <input message="tns:getARequest"/><output message="tns:getAResponse"/></operation>
  <operation name="getB"><input message="getBRequest"/><output message="tns:getBResponse"/></operation>
</portType>
<binding name="B" type="tns:PT"><soap:binding style="rpc" transport="urn:http"/>
  <operation name="getA"><soap:operation soapAction="urn:t#getA" style="rpc"/>
    <input><soap:body use="encoded" namespace="urn:in-a" encodingStyle="urn:enc-in"/></input>
    <output><soap:body use="literal" namespace="urn:out-a" encodingStyle="urn:enc-out"/></output>
  </operation>
  <operation name="getB"><soap:operation soapAction="urn:t#getB"/>
    <output><soap:body use="encoded" namespace="urn:out-b"/></output>
  </operation>
</binding>
<service name="S"><documentation>x</documentation>
  <port name="P" binding="tns:B"><soap:address location="http://h/soap2/index.php"/></port>
</service>
</definitions>)";

TEST(WsdlReader, EachSubtreeIsQueriedOnItsOwn) {
  WsdlTables tables;
  const WsdlParseResult result = ParseWSDL(kWsdl, tables);
  ASSERT_TRUE(result.ok) << result.reason;
  const auto& d = tables.definitions;
  EXPECT_EQ(std::tie(d.targetNamespace, d.xmlns, d.xmlnsSoapEnc),
            std::make_tuple("urn:t", "urn:wsdl", ""));

  ASSERT_EQ(tables.schema.complexTypes.size(), 3u);
  const WsdlType& a = tables.schema.complexTypes[0];
  EXPECT_EQ(a.elementCount, 2);
  ASSERT_EQ(a.elements.size(), 2u);
  EXPECT_EQ(a.elements[1], NameType("a2", "xsd:string"));
  const WsdlType& list = tables.schema.complexTypes[1];
  EXPECT_EQ(std::tie(list.elementCount, list.base, list.ref, list.arrayType),
            std::make_tuple(0, "SOAP-ENC:Array", "SOAP-ENC:arrayType", "tns:Item[]"));
  EXPECT_EQ(tables.schema.complexTypes[2].elementCount, 1);
  EXPECT_EQ(tables.schema.imports, std::vector<std::string>{"urn:enc"});

  ASSERT_EQ(tables.messages.size(), 4u);
  EXPECT_EQ(tables.messages[0].partCount, 2);
  EXPECT_EQ(tables.messages[2].parts, (std::vector<NameType>{{"y", "xsd:string"}}));

  ASSERT_EQ(tables.portTypes.size(), 1u);
  const auto& ops = tables.portTypes[0].operations;
  ASSERT_EQ(ops.size(), 2u);
  EXPECT_EQ(std::tie(ops[0].documentation, ops[1].documentation, ops[1].inputMessage),
            std::make_tuple("Gets A & more", "", "getBRequest"));

  ASSERT_EQ(tables.bindings.size(), 1u);
  EXPECT_EQ(tables.bindings[0].transport, "urn:http");
  ASSERT_EQ(tables.bindings[0].operations.size(), 2u);
  const WsdlBindingOperation& opA = tables.bindings[0].operations[0];
  EXPECT_EQ(std::tie(opA.soapAction, opA.style, opA.inputUse, opA.inputNamespace, opA.inputEncodingStyle,
                     opA.outputUse, opA.outputNamespace, opA.outputEncodingStyle),
            std::make_tuple("urn:t#getA", "rpc", "encoded", "urn:in-a", "urn:enc-in", "literal",
                            "urn:out-a", "urn:enc-out"));
  // getB's binding has no input and no style: nothing of getA's leaks into it.
  const WsdlBindingOperation& b = tables.bindings[0].operations[1];
  EXPECT_EQ(std::tie(b.style, b.inputUse, b.inputNamespace, b.outputNamespace),
            std::make_tuple("", "", "", "urn:out-b"));
  ASSERT_EQ(tables.services.size(), 1u);
  EXPECT_EQ(std::tie(tables.services[0].portBinding, tables.services[0].location),
            std::make_tuple("tns:B", "http://h/soap2/index.php"));
}

TEST(WsdlReader, SelectOperation) {
  WsdlTables tables;
  ASSERT_TRUE(ParseWSDL(kWsdl, tables).ok);
  struct Case {
    const char* op;
    const char* method;  // the input message from its fifth character
    std::size_t inputParts;
    std::size_t outputParts;
    const char* soapAction;
    const char* typeName;
    bool found;
  };
  const Case cases[] = {
      {"getA", "getARequest", 2, 1, "urn:t#getA", "getAResponse", true},
      // No prefix: four characters are lost all the same, and "Request" is what is looked up.
      {"getB", "Request", 1, 0, "urn:t#getB", "", false},
      {"getGone", "", 0, 0, "", "", false},
  };
  for (const Case& c : cases) {
    const SelectedOperation s = SelectOperation(tables, c.op);
    EXPECT_EQ(std::make_tuple(s.OpName, fromFifth(s.InputMessage), s.InputParts.size(),
                              s.OutputParts.size(), s.binding.soapAction, s.TypeName, s.found),
              std::make_tuple(c.op, c.method, c.inputParts, c.outputParts, c.soapAction, c.typeName,
                              c.found));
  }
  const SelectedOperation b = SelectOperation(tables, "getB");
  ASSERT_EQ(b.InputParts.size(), 1u);
  EXPECT_EQ(b.InputParts[0].first, "lost");
  EXPECT_EQ(SelectOperation(tables, "getA").typeElements.size(), 2u);
  EXPECT_EQ(fromFifth("abcde") + "|" + fromFifth("abcd"), "e|");
}

TEST(WsdlReader, NoTablesFromABadDocument) {
  struct Case {
    std::string text;
    long line;  // 0: well-formed, but no definitions to read
    long position;
  };
  const Case cases[] = {
      {std::string(kWsdl).replace(std::string(kWsdl).find("</portType>"), 11, "</porttype>"), 23,
       3},
      {"<?xml version=\"1.0\"?>\n<definitions>\n<message name=\"x\">\n</definitions>", 4, 3},
      {"<wsdl:definitions xmlns:wsdl=\"urn:w\"><wsdl:message name=\"m\"/></wsdl:definitions>", 0,
       0},
      {"<definitions/>", 0, 0},
      {"", 1, 1},
  };
  for (const Case& c : cases) {
    WsdlTables tables;
    tables.messages.emplace_back();
    const WsdlParseResult result = ParseWSDL(c.text, tables);
    EXPECT_FALSE(result.ok) << c.text;
    EXPECT_FALSE(result.reason.empty());
    EXPECT_EQ(std::tie(result.line, result.position), std::tie(c.line, c.position)) << c.text;
    EXPECT_TRUE(tables.messages.empty() && tables.bindings.empty());
  }
}

}  // namespace
}  // namespace zel::radioref

#include "radioref/soap_envelope.h"

#include <gtest/gtest.h>

#include <string>

namespace zel::radioref {
namespace {

std::string reply(std::string_view body, std::string_view encoding = "utf-8") {
  return "<?xml version=\"1.0\" encoding=\"" + std::string(encoding) +
         "\"?><SOAP-ENV:Envelope xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\" "
         "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
         "xmlns:SOAP-ENC=\"http://schemas.xmlsoap.org/soap/encoding/\" "
         "xmlns:tns=\"urn:t\"><SOAP-ENV:Body>" +
         std::string(body) + "</SOAP-ENV:Body></SOAP-ENV:Envelope>";
}

// Parses what `request` serialises; the method element is the first body node.
const SoapNode& echo(const SoapEnvelope& request, SoapEnvelope& parsed) {
  const SoapParseResult result = parsed.Parse(request.Serialize());
  EXPECT_TRUE(result.ok) << result.error << " at " << result.line << ":" << result.position;
  EXPECT_EQ(parsed.Parameters().Count(), 1u);
  return parsed.Parameters().Item(0);
}

TEST(SoapEnvelope, EveryTextIsEscapedAndComesBackAsLatin1) {
  // Each value and how it must stand in the request.
  const std::pair<const char*, const char*> cases[] = {
      {"pa&ss", "pa&amp;ss"},
      {"<b>", "&lt;b&gt;"},
      {"say \"hi\"", "say &quot;hi&quot;"},
      {"it's", "it&apos;s"},
      {"caf\xE9", "caf\xC3\xA9"},
      {"&amp;", "&amp;amp;"},
      {"Z\xFCrich & K\xF6ln <", "Z\xC3\xBCrich &amp; K\xC3\xB6ln &lt;"}};
  for (const auto& [value, onTheWire] : cases) {
    SoapEnvelope request;
    request.SetMethod("getUserDataRequest", "urn:m");
    SoapNode& auth = request.Parameters().Create("authInfo", {}, "tns:authInfo");
    auth.setKind(SoapNode::Kind::Structure);
    auth.Nodes().Create("password", value, "xsd:string");
    request.Parameters().Create("note", "x", std::string("xsd:string\"") + value);
    const std::string text = request.Serialize();
    EXPECT_NE(text.find(std::string(">") + onTheWire + "</password>"), std::string::npos) << text;
    SoapEnvelope parsed;
    const SoapNode& method = echo(request, parsed);
    EXPECT_EQ(method.Name(), "getUserDataRequest");
    ASSERT_NE(method.Nodes().ItemByName("authInfo"), nullptr);
    EXPECT_EQ(method.Nodes().ItemByName("authInfo")->childText("password"), value);
    EXPECT_EQ(method.Nodes().Item(1).type(), std::string("xsd:string\"") + value);
  }
}

TEST(SoapEnvelope, RequestNamesItsMethodNamespacesAndNil) {
  SoapEnvelope request;
  request.SetMethod("getCountyInfoRequest", "http://example.org/soap2/");
  request.setTypeNamespace("http://example.org/soap2");
  request.Parameters().Create("ctid", "1617", "xsd:int");
  request.Parameters().Create("tag", "", "xsd:int").setNull(true);
  const std::string text = request.Serialize();
  EXPECT_EQ(text.rfind("<?xml version=\"1.0\" encoding=\"UTF-8\"?>", 0), 0u);
  for (const char* part :
       {"<ns1:getCountyInfoRequest xmlns:ns1=\"http://example.org/soap2/\">",
        "xmlns:tns=\"http://example.org/soap2\"", "<ctid xsi:type=\"xsd:int\">1617</ctid>",
        "<tag xsi:nil=\"true\" xsi:type=\"xsd:int\"/>",
        "SOAP-ENV:encodingStyle=\"http://schemas.xmlsoap.org/soap/encoding/\""}) {
    EXPECT_NE(text.find(part), std::string::npos) << part;
  }
  SoapEnvelope parsed;
  const SoapNode& method = echo(request, parsed);
  EXPECT_EQ(method.Nodes().Item(0).ValueInt(), 1617);
  EXPECT_TRUE(method.Nodes().Item(1).IsNull());
}

TEST(SoapEnvelope, ArraysBothWays) {
  struct Case {
    const char* declared;  // arrayType the node holds before serialising
    int items;
    const char* expected;
  };
  const Case cases[] = {
      {"tns:stid", 2, "SOAP-ENC:arrayType=\"tns:stid[2]\""},
      {"tns:stid", 0, "SOAP-ENC:arrayType=\"tns:stid[0]\""},
      {"tns:Talkgroup[5]", 3, "SOAP-ENC:arrayType=\"tns:Talkgroup[3]\""},  // count from items
      {"", 1, "SOAP-ENC:arrayType=\"xsd:int[1]\""},  // item type from the first item
  };
  for (const Case& c : cases) {
    SoapEnvelope request;
    request.SetMethod("m", "urn:m");
    SoapNode& list = request.Parameters().Create("request");
    list.makeArray(c.declared);
    for (int i = 0; i < c.items; ++i)
      list.Nodes().Create("item", std::to_string(10 + i), "xsd:int");
    const std::string text = request.Serialize();
    EXPECT_NE(text.find(c.expected), std::string::npos) << text;
    EXPECT_NE(text.find("<request xsi:type=\"SOAP-ENC:Array\""), std::string::npos);
    SoapEnvelope parsed;
    const SoapNode& back = echo(request, parsed).Nodes().Item(0);
    EXPECT_TRUE(back.IsArray()) << c.expected;
    ASSERT_EQ(back.Nodes().Count(), static_cast<std::size_t>(c.items));
    for (int i = 0; i < c.items; ++i) EXPECT_EQ(back.Nodes().Item(i).ValueInt(), 10 + i);
  }
}

TEST(SoapEnvelope, ReplyNodesTakeLocalNamesNilAndArrays) {
  SoapEnvelope envelope;
  const std::string text = reply(
      "<ns1:getTrsSitesResponse xmlns:ns1=\"urn:x\"><return xsi:type=\"tns:TrsSite\">"
      "<rectangles xsi:type=\"SOAP-ENC:Array\" SOAP-ENC:arrayType=\"tns:Rectangle[0]\">"
      "</rectangles><siteDescr xsi:nil=\"true\" xsi:type=\"xsd:string\"/>"
      "<tags xsi:type=\"SOAP-ENC:Array\"/><siteId xsi:type=\"xsd:int\"> 12 </siteId>"
      "<zone><![CDATA[a<b]]></zone></return></ns1:getTrsSitesResponse>");
  ASSERT_TRUE(envelope.Parse(text).ok);
  EXPECT_FALSE(envelope.isFault());
  EXPECT_EQ(envelope.Serialize(), text);
  const SoapNode& top = envelope.Parameters().Item(0);
  const SoapNode& site = top.Nodes().Item(0);
  EXPECT_EQ(std::make_tuple(top.Name(), site.kind(), site.type()),
            std::make_tuple("getTrsSitesResponse", SoapNode::Kind::Structure, "tns:TrsSite"));

  const SoapNode* rectangles = site.Nodes().ItemByName("rectangles");
  ASSERT_NE(rectangles, nullptr);
  EXPECT_TRUE(rectangles->IsArray() && rectangles->Nodes().Count() == 0u &&
              rectangles->arrayType() == "tns:Rectangle[0]");
  EXPECT_TRUE(site.Nodes().ItemByName("tags")->IsArray());

  const SoapNode* descr = site.Nodes().ItemByName("siteDescr");
  ASSERT_NE(descr, nullptr);
  EXPECT_TRUE(descr->IsNull() && descr->type() == "xsd:string");
  EXPECT_EQ(site.childText("siteDescr") + site.childText("absent") + "|" + site.childText("zone"),
            "|a<b");
  EXPECT_EQ(site.Nodes().ItemByName("siteId")->ValueInt(), 12);
  EXPECT_EQ(site.Nodes().ItemByName("absent"), nullptr);
}

TEST(SoapEnvelope, FaultsInEitherEncoding) {
  struct Case {
    const char* prolog;  // "" for no declaration
    const char* forced;  // the encoding handed to Parse
    std::string detail;  // the fault text's bytes in that encoding
  };
  const std::string latin1 = "Mot de passe erron\xE9", utf8 = "Mot de passe erron\xC3\xA9";
  const Case cases[] = {{"ISO-8859-1", "", latin1},
                        {"utf-8", "", utf8},
                        {"", "ISO-8859-1", latin1},
                        {"ISO-8859-1", "UTF-8", utf8}};
  for (const Case& c : cases) {
    std::string text = reply(
        "<SOAP-ENV:Fault><faultcode xsi:type=\"xsd:string\">AUTH</faultcode>"
        "<faultstring xsi:type=\"xsd:string\">" +
            c.detail + "</faultstring></SOAP-ENV:Fault>",
        c.prolog);
    if (std::string_view(c.prolog).empty()) text = text.substr(text.find("?>") + 2);
    SoapEnvelope envelope;
    const SoapParseResult result = envelope.Parse(text, c.forced);
    ASSERT_TRUE(result.ok) << result.error;
    EXPECT_TRUE(envelope.isFault());
    EXPECT_EQ(std::make_tuple(envelope.fault().faultcode, envelope.fault().faultstring,
                              envelope.Parameters().Item(0).Name()),
              std::make_tuple("AUTH", latin1, "Fault"))
        << c.prolog << c.forced;
  }
}

// Not XML: the reason with its line and position. Well-formed but no envelope (or nested past
// any reply's depth): refused all the same.
TEST(SoapEnvelope, BadRepliesAreRefused) {
  std::string nested;
  for (int i = 0; i < 400; ++i) nested += "<n>";
  for (int i = 0; i < 400; ++i) nested += "</n>";
  struct Case {
    std::string text;
    long line;  // 0: well-formed, no place to report
    long position;
  };
  const Case cases[] = {
      {"<a>\n  <b></c>\n</a>", 2, 8},  // at the wrong end tag's name
      {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<a>\xE9\xE9<</a>", 2, 7},
      {"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>\xC3\xA9\xC3\xA9<</a>", 2, 7},
      {"", 1, 1},
      {"<a x=1/>", 1, 6},
      {"<html><body/></html>", 0, 0},
      {"<SOAP-ENV:Envelope xmlns:SOAP-ENV=\"urn:e\"><Header/></SOAP-ENV:Envelope>", 0, 0},
      {reply(nested), 0, 0},
  };
  for (const Case& c : cases) {
    SoapEnvelope envelope;
    const SoapParseResult result = envelope.Parse(c.text);
    EXPECT_FALSE(result.ok) << c.text.substr(0, 60);
    EXPECT_FALSE(result.error.empty());
    if (c.line > 0) {
      EXPECT_EQ(std::tie(result.line, result.position), std::tie(c.line, c.position)) << c.text;
      EXPECT_EQ(envelope.Serialize(), c.text);
    }
    EXPECT_EQ(envelope.Parameters().Count(), 0u);
  }
}

TEST(SoapNode, ValuesAsNumbers) {
  struct Case {
    const char* text;
    long long whole;
    double real;
  };
  const Case cases[] = {
      {"42", 42, 42.0},     {" 7 ", 7, 7.0},    {"+5", 5, 5.0},
      {"-3.75", -3, -3.75}, {"1e3", 1000, 1e3}, {"12abc", 0, 0.0},
      {"Null", 0, 0.0},     {"", 0, 0.0},       {"851.0125", 851, 851.0125},
      {"1e400", 0, 0.0},    {"9e30", 0, 9e30},
  };
  for (const Case& c : cases) {
    const SoapNode node("f", c.text);
    EXPECT_EQ(node.ValueInt(), c.whole) << c.text;
    EXPECT_DOUBLE_EQ(node.ValueDouble(), c.real) << c.text;
  }
  SoapNode nil("f", "5");
  nil.setNull(true);
  EXPECT_EQ(std::make_pair(nil.ValueInt(), nil.ValueDouble()), std::make_pair(0LL, 0.0));
}

TEST(SoapText, Utf8ToLatin1) {
  const std::pair<std::string, std::string> cases[] = {
      {"caf\xC3\xA9", "caf\xE9"},
      {"\xC2\xA0\xC3\xBF", "\xA0\xFF"},
      {"\xE2\x82\xAC 5", "? 5"},         // beyond Latin-1
      {"\xF0\x9F\x98\x80", "?"},         // four bytes, one character
      {"a\xFFz", "a\xFFz"},              // no UTF-8: kept
      {"\xC3", "\xC3"},                  // cut short: kept
      {"\xC0\x80", "\xC0\x80"},          // overlong: kept
      {"\xED\xA0\x80", "\xED\xA0\x80"},  // surrogate: kept
  };
  for (const auto& [utf8, latin1] : cases) EXPECT_EQ(utf8ToLatin1(utf8), latin1) << utf8;
  for (int b = 0; b < 256; ++b) {
    const std::string one(1, static_cast<char>(b));
    EXPECT_EQ(utf8ToLatin1(latin1ToUtf8(one)), one) << b;
  }
}

}  // namespace
}  // namespace zel::radioref

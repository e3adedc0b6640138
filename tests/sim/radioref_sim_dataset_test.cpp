// The built-in data of the simulated RadioReference service as a client reads it, the
// request reader, and the filter over recorded talkgroups.
#include <gtest/gtest.h>

#include <pugixml.hpp>
#include <set>

#include "sim/radioref_sim.h"
#include "sim/radioref_sim_recorded.h"
#include "sim/radioref_sim_request.h"

namespace zel::sim {
namespace {

constexpr const char* kNs = "http://api.radioreference.com/soap2";

// The items of the reply's "return" array (or the record), parsed.
struct Reply {
  pugi::xml_document doc;
  pugi::xml_node ret;
  int status = 0;
  std::vector<pugi::xml_node> items() const {
    std::vector<pugi::xml_node> out;
    for (pugi::xml_node item : ret.children("item")) out.push_back(item);
    return out;
  }
};

std::unique_ptr<Reply> ask(const std::string& op, const std::string& params) {
  static const RadioRefSim sim({});
  const std::string body =
      "<Envelope><Body><m:" + op + "Request xmlns:m=\"" + kNs + "\">" + params +
      "<authInfo><username>demo</username><password>demo</password><appKey>1</appKey>"
      "</authInfo></m:" +
      op + "Request></Body></Envelope>";
  RadioRefSimReply r = sim.call(std::string(kNs) + "#" + op, body);
  auto reply = std::make_unique<Reply>();
  reply->status = r.status;
  reply->doc.load_string(r.body.c_str());
  reply->ret = reply->doc.first_child().first_child().first_child().child("return");
  return reply;
}

std::multiset<std::string> values(const std::vector<pugi::xml_node>& items, const char* field) {
  std::multiset<std::string> out;
  for (pugi::xml_node item : items) out.insert(item.child_value(field));
  return out;
}

std::string joined(const std::multiset<std::string>& v) {
  std::string out;
  for (const std::string& s : v) out += (out.empty() ? "" : "|") + s;
  return out;
}

TEST(RadioRefSimData, NamesLeaveAsUtf8AndEscaped) {
  auto county = ask("getCountyInfo", "<ctid>9511</ctid>");
  EXPECT_STREQ(county->ret.child_value("countyName"),
               "Montr\xC3\xA9"
               "al");
  auto agency = ask("getStateInfo", "<stid>901</stid>");
  std::set<std::string> names;
  for (pugi::xml_node a : agency->ret.child("agencyList").children("item")) {
    names.insert(a.child_value("aName"));
  }
  EXPECT_TRUE(names.count("Ashland Dept. of \"Natural\" Resources"));
  // A statewide agency without a type is nil, as the service sends it.
  for (pugi::xml_node a : agency->ret.child("agencyList").children("item")) {
    if (std::string(a.child_value("aName")) == "Ashland State Police") {
      EXPECT_STREQ(a.child("aType").attribute("xsi:nil").value(), "true");
    }
  }
}

TEST(RadioRefSimData, ConventionalRowsCoverEveryToneFormAndFlag) {
  std::multiset<std::string> tones;
  int encrypted = 0, telemetry = 0;
  for (int scid = 900101; scid <= 900117; ++scid) {
    auto freqs = ask("getSubcatFreqs", "<scid>" + std::to_string(scid) + "</scid>");
    ASSERT_EQ(freqs->status, 200);
    EXPECT_FALSE(freqs->items().empty()) << scid;
    for (pugi::xml_node f : freqs->items()) {
      EXPECT_EQ(std::stoi(f.child_value("scid")), scid);
      tones.insert(f.child_value("tone"));
      encrypted += std::string(f.child_value("enc")) != "0";
      telemetry += std::string(f.child_value("mode")) == "5";
    }
  }
  for (const char* tone : {"CSQ", "123.0 PL", "023 DPL", "293 NAC", "1 CC", "1 RAN", ""}) {
    EXPECT_TRUE(tones.count(tone)) << tone;
  }
  EXPECT_GE(encrypted, 2);
  EXPECT_GE(telemetry, 2);
}

TEST(RadioRefSimData, FrequencySearchesSelectByPlaceFrequencyAndTone) {
  struct Case {
    std::string op, params;
    const char* descrs;  // sorted, '|' between
  };
  const std::string county = "<ctid>9011</ctid><freq>", state = "<stid>90";
  const std::vector<Case> cases = {
      {"searchCountyFreq", county + "155.475</freq><tone></tone>", "Sheriff Dispatch"},
      {"searchCountyFreq", county + "155.475</freq><tone>100.0 PL</tone>", ""},
      {"searchCountyFreq", county + "460.35</freq><tone>293</tone>", "Sheriff Tactical, Encrypted"},
      {"searchStateFreq", state + "1</stid><freq>155.535</freq><tone></tone>",
       "Troop A, District 1"},
      {"searchStateFreq", state + "2</stid><freq>155.475</freq><tone></tone>", ""},
      {"getCountyFreqsByTag", "<ctid>9011</ctid><tag>13</tag>",
       "Harbor ARC Repeater|National Simplex"},
      {"getCountyFreqsByTag", "<ctid>9012</ctid><tag>13</tag>", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.op + c.params);
    auto reply = ask(c.op, c.params);
    ASSERT_EQ(reply->status, 200);
    EXPECT_EQ(joined(values(reply->items(), "descr")), c.descrs);
  }
  auto hit = ask("searchCountyFreq", "<ctid>9011</ctid><freq>155.475</freq><tone/>");
  ASSERT_EQ(hit->items().size(), 1u);
  EXPECT_EQ(
      std::string(hit->items()[0].child_value("ctid")) + "|" + hit->items()[0].child_value("scid"),
      "9011|900101");
}

TEST(RadioRefSimData, TalkgroupFiltersCombine) {
  // category, tag, decimal id: the decimal ids found, sorted as text
  const std::vector<std::vector<std::string>> cases = {{"0", "0", "0", "112|144|16|48"},
                                                       {"900102", "0", "0", "112|144"},
                                                       {"0", "7", "0", "48"},
                                                       {"0", "0", "144", "144"},
                                                       {"900102", "2", "0", ""}};
  for (const auto& c : cases) {
    const std::string filters =
        "<tgCid>" + c[0] + "</tgCid><tgTag>" + c[1] + "</tgTag><tgDec>" + c[2] + "</tgDec>";
    SCOPED_TRACE(filters);
    EXPECT_EQ(
        joined(values(ask("getTrsTalkgroups", "<sid>90001</sid>" + filters)->items(), "tgDec")),
        c[3]);
  }
}

TEST(RadioRefSimRequest, ReadsParametersByLocalName) {
  using rrsim::parseRequest;
  rrsim::Request a = parseRequest(
      "<s:Envelope xmlns:s=\"e\"><s:Body><getTag xmlns=\"urn:x\"><p:id xmlns:p=\"q\" "
      "xsi:nil=\"true\"/><sid>7</sid><authInfo><username>u</username><appKey>k</appKey>"
      "</authInfo></getTag></s:Body></s:Envelope>");
  ASSERT_TRUE(a.ok) << a.error;
  EXPECT_EQ(a.method + "|" + a.methodNamespace + "|" + a.value("id") + "|" +
                std::to_string(a.integer("sid")),
            "getTag|urn:x||7");
  EXPECT_TRUE(a.has("id"));
  EXPECT_FALSE(a.has("tone"));
  ASSERT_TRUE(a.auth);
  EXPECT_EQ(a.auth->username + "|" + a.auth->password, "u|");

  rrsim::Request b =
      parseRequest("<Envelope><Body><ns:getMode xmlns:other=\"z\"/></Body></Envelope>");
  ASSERT_TRUE(b.ok);
  EXPECT_EQ(b.methodNamespace, "") << "an unbound prefix has no namespace";
  EXPECT_FALSE(b.auth);
}

TEST(RadioRefSimRecorded, TalkgroupFilterKeepsRecordedItems) {
  auto item = [](int cid, int dec, int tag) {
    return "<item xsi:type=\"tns:Talkgroup\"><tgId xsi:type=\"xsd:int\">1</tgId><tgDec "
           "xsi:type=\"xsd:int\">" +
           std::to_string(dec) + "</tgDec><tags><item xsi:type=\"tns:tag\"><tagId>" +
           std::to_string(tag) + "</tagId></item></tags><tgCid xsi:type=\"xsd:int\">" +
           std::to_string(cid) + "</tgCid></item>";
  };
  const std::string head =
      "<x><return xsi:type=\"SOAP-ENC:Array\" "
      "SOAP-ENC:arrayType=\"tns:Talkgroup[3]\">";
  const std::string tail = "</return></x>";
  const std::string reply = head + item(5, 100, 2) + item(6, 200, 3) + item(5, 300, 3) + tail;
  EXPECT_EQ(rrsim::filterRecordedTalkgroups(reply, 5, 0, 0),
            "<x><return xsi:type=\"SOAP-ENC:Array\" SOAP-ENC:arrayType=\"tns:Talkgroup[2]\">" +
                item(5, 100, 2) + item(5, 300, 3) + tail);
  EXPECT_EQ(rrsim::filterRecordedTalkgroups(reply, 0, 3, 300),
            "<x><return xsi:type=\"SOAP-ENC:Array\" SOAP-ENC:arrayType=\"tns:Talkgroup[1]\">" +
                item(5, 300, 3) + tail);
  EXPECT_EQ(rrsim::filterRecordedTalkgroups(reply, 9, 0, 0),
            "<x><return xsi:type=\"SOAP-ENC:Array\" SOAP-ENC:arrayType=\"tns:Talkgroup[0]\"/></x>");
}

}  // namespace
}  // namespace zel::sim

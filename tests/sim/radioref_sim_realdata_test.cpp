// The simulated RadioReference service beside replies of the live one: the recorded replies
// are served byte for byte for their ids, the built-in data still answers the rest, and the
// authentication fault is the live service's own.
#include <gtest/gtest.h>

#include <fstream>
#include <pugixml.hpp>
#include <sstream>

#include "sim/radioref_sim.h"

namespace zel::sim {
namespace {

constexpr const char* kNs = "http://api.radioreference.com/soap2";
const std::string kDir = std::string(ZEL_REALDATA_DIR) + "/radioref/v18";

std::string real(const std::string& file) {
  std::ifstream in(kDir + "/" + file, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

RadioRefSimReply ask(const RadioRefSim& sim, const std::string& op, const std::string& params,
                     const std::string& user = "demo") {
  return sim.call(
      std::string(kNs) + "#" + op,
      "<E:Envelope xmlns:E=\"http://schemas.xmlsoap.org/soap/envelope/\"><E:Body><m:" + op +
          "Request xmlns:m=\"" + kNs + "\">" + params + "<authInfo><username>" + user +
          "</username><password>" + user +
          "</password><appKey>12345678</appKey><version>15</version></authInfo></m:" + op +
          "Request></E:Body></E:Envelope>");
}

const RadioRefSim& recordedSim() {
  static const RadioRefSim sim([] {
    RadioRefSimOptions options;
    options.dataDir = kDir;
    return options;
  }());
  return sim;
}

TEST(RadioRefSimRealdata, AuthFaultIsTheLiveServiceOwn) {
  RadioRefSim sim({});
  RadioRefSimReply reply = ask(sim, "getUserData", "", "nobody");
  EXPECT_EQ(reply.status, 500);
  EXPECT_EQ(reply.body, real("fault_auth.xml"));
}

TEST(RadioRefSimRealdata, RecordedRepliesAreServedByteForByte) {
  const RadioRefSim& sim = recordedSim();
  EXPECT_TRUE(sim.loadError().empty()) << sim.loadError();
  const std::string all = "<tgCid>0</tgCid><tgTag>0</tgTag><tgDec>0</tgDec>";
  const std::vector<std::tuple<std::string, std::string, std::string>> cases = {
      {"getTrsSites", "<sid>6673</sid>", "trs_sites_p25.xml"},
      {"getTrsDetails", "<sid>6673</sid>", "trs_details_p25.xml"},
      {"getTrsTalkgroupCats", "<sid>6673</sid>", "trs_talkgroup_cats_p25.xml"},
      {"getTrsTalkgroups", "<sid>220</sid>" + all, "trs_talkgroups_edacs.xml"},
      {"getTrsDetails", "<sid>220</sid>", "trs_details_edacs.xml"},
      {"getTrsSites", "<sid>12244</sid>", "trs_sites_dmr_conv_small.xml"},
      {"getTrsDetails", "<sid>9340</sid>", "trs_details_dmr_conv.xml"},
      {"getTrsTalkgroups", "<sid>12918</sid>" + all, "trs_talkgroups_nxdn.xml"},
      {"getCountyInfo", "<ctid>841</ctid>", "county_info.xml"},
      {"getStateInfo", "<stid>19</stid>", "state_info.xml"},
      {"getCountryInfo", "<coid>1</coid>", "country_info.xml"},
      {"getZipcodeInfo", "<zipcode>52401</zipcode>", "zipcode_info.xml"},
      {"getTrsType", "<id>0</id>", "trs_types.xml"},
      {"getTrsFlavor", "<id>0</id>", "trs_flavors.xml"},
      {"getTrsVoice", "<id>7</id>", "trs_voices.xml"},
      {"getUserData", "", "user_data.xml"},
  };
  for (const auto& [op, params, file] : cases) {
    SCOPED_TRACE(file);
    RadioRefSimReply reply = ask(sim, op, params);
    EXPECT_EQ(reply.status, 200);
    EXPECT_TRUE(reply.body == real(file)) << reply.body.substr(0, 300);
  }
}

TEST(RadioRefSimRealdata, BuiltInDataAnswersWhatTheRecordingsLack) {
  const RadioRefSim& sim = recordedSim();
  RadioRefSimReply county = ask(sim, "getCountyInfo", "<ctid>9011</ctid>");
  ASSERT_EQ(county.status, 200);
  EXPECT_NE(county.body.find("<countyName xsi:type=\"xsd:string\">Harbor</countyName>"),
            std::string::npos);
  RadioRefSimReply tags = ask(sim, "getTag", "<id>0</id>");  // no recording of the tag list
  ASSERT_EQ(tags.status, 200);
  EXPECT_NE(tags.body.find("Law Dispatch"), std::string::npos);
  // The expired account is not served the recorded account's data.
  RadioRefSimReply expired = ask(sim, "getUserData", "", "expired");
  EXPECT_NE(expired.body.find(">expired<"), std::string::npos);
}

TEST(RadioRefSimRealdata, RecordedTalkgroupsFilterByCategory) {
  const RadioRefSim& sim = recordedSim();
  RadioRefSimReply reply =
      ask(sim, "getTrsTalkgroups",
          "<sid>6673</sid><tgCid>14581</tgCid><tgTag>0</tgTag><tgDec>0</tgDec>");
  ASSERT_EQ(reply.status, 200);
  pugi::xml_document doc;
  ASSERT_TRUE(doc.load_string(reply.body.c_str()));
  pugi::xml_node ret = doc.first_child().first_child().first_child().child("return");
  std::size_t n = 0;
  for (pugi::xml_node item : ret.children("item")) {
    EXPECT_STREQ(item.child_value("tgCid"), "14581");
    ++n;
  }
  EXPECT_GT(n, 0u);
  EXPECT_EQ(std::string(ret.attribute("SOAP-ENC:arrayType").value()),
            "tns:Talkgroup[" + std::to_string(n) + "]");
  const std::string whole = real("trs_talkgroups_p25.xml");
  EXPECT_LT(reply.body.size(), whole.size());
}

TEST(RadioRefSimRealdata, MissingRecordingsFolderRefusesToServe) {
  RadioRefSimOptions options;
  options.dataDir = kDir + "/no-such-folder";
  RadioRefSim sim(options);
  EXPECT_FALSE(sim.loadError().empty());
  std::string error;
  EXPECT_FALSE(sim.start(&error));
  EXPECT_FALSE(error.empty());
}

}  // namespace
}  // namespace zel::sim

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "radioref/soap_envelope.h"

namespace zel::radioref {
namespace {

namespace fs = std::filesystem;

const fs::path kReplies = fs::path(ZEL_REALDATA_DIR) / "radioref" / "v18";

std::string readFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

// Every array holds as many items as its arrayType says; returns the number of arrays seen.
int checkArrays(const SoapNode& node, const std::string& where) {
  int arrays = 0;
  if (node.IsArray()) {
    ++arrays;
    const std::string& declared = node.arrayType();
    const std::size_t open = declared.rfind('[');
    EXPECT_NE(open, std::string::npos) << where;
    if (open != std::string::npos) {
      EXPECT_EQ(std::stoul(declared.substr(open + 1)), node.Nodes().Count()) << where;
    }
  }
  for (const SoapNode& child : node.Nodes()) arrays += checkArrays(child, where);
  return arrays;
}

TEST(RealReplies, EveryReplyParses) {
  int files = 0;
  int arrays = 0;
  for (const fs::directory_entry& entry : fs::directory_iterator(kReplies)) {
    if (entry.path().extension() != ".xml") continue;
    ++files;
    const std::string name = entry.path().filename().string();
    const std::string text = readFile(entry.path());
    SoapEnvelope envelope;
    const SoapParseResult result = envelope.Parse(text);
    ASSERT_TRUE(result.ok) << name << ": " << result.error;
    EXPECT_EQ(envelope.Serialize(), text) << name;
    ASSERT_EQ(envelope.Parameters().Count(), 1u) << name;
    const SoapNode& top = envelope.Parameters().Item(0);
    EXPECT_EQ(envelope.isFault(), name == "fault_auth.xml") << name;
    if (!envelope.isFault()) {
      EXPECT_TRUE(top.Name().ends_with("Response")) << name << " " << top.Name();
      ASSERT_EQ(top.Nodes().Count(), 1u) << name;
      EXPECT_EQ(top.Nodes().Item(0).Name(), "return") << name;
    }
    arrays += checkArrays(top, name);
  }
  EXPECT_EQ(files, 30);
  EXPECT_GT(arrays, 1000);
}

TEST(RealReplies, FieldsOfKnownReplies) {
  struct Case {
    const char* file;
    const char* top;
    std::size_t items;  // items of the part when it is an array, else 0
    const char* field;  // a field of the part (or of its first item)
    const char* text;
  };
  const Case cases[] = {
      {"user_data.xml", "getUserDataResponse", 0, "username", "user"},
      {"user_data.xml", "getUserDataResponse", 0, "subExpireDate", "11-24-2026"},
      {"trs_talkgroups_p25.xml", "getTrsTalkgroupsResponse", 1793, "tgId", "196736"},
      {"trs_talkgroups_p25.xml", "getTrsTalkgroupsResponse", 1793, "tgSubfleet", ""},
      {"trs_talkgroups_p25.xml", "getTrsTalkgroupsResponse", 1793, "tgAlpha", "52 FIRE MUT AID+"},
  };
  for (const Case& c : cases) {
    SoapEnvelope envelope;
    ASSERT_TRUE(envelope.Parse(readFile(kReplies / c.file)).ok) << c.file;
    const SoapNode& top = envelope.Parameters().Item(0);
    EXPECT_EQ(top.Name(), c.top);
    const SoapNode& part = top.Nodes().Item(0);
    EXPECT_EQ(part.IsArray(), c.items > 0) << c.file;
    const SoapNode& record = c.items > 0 ? part.Nodes().Item(0) : part;
    if (c.items > 0) EXPECT_EQ(part.Nodes().Count(), c.items);
    EXPECT_EQ(record.childText(c.field), c.text) << c.file << " " << c.field;
  }
  SoapEnvelope fault;
  ASSERT_TRUE(fault.Parse(readFile(kReplies / "fault_auth.xml")).ok);
  EXPECT_EQ(fault.fault().faultcode, "AUTH");
  EXPECT_EQ(fault.fault().faultstring.rfind("Invalid Username or Password.", 0), 0u);
}

}  // namespace
}  // namespace zel::radioref

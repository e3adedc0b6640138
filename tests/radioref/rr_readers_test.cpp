// The reply readers on small replies written for the cases the live service rarely shows.
#include "radioref/rr_readers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <string>
#include <tuple>

#include "rr_test_support.h"

namespace zel::radioref {
namespace {

// A reply as the service writes it, with `part` as the response's "return" element.
struct Reply : test::ParsedReply {
  explicit Reply(const std::string& part) : ParsedReply(test::replyAround(part)) {
    EXPECT_TRUE(result().ok) << result().error << "\n" << part;
  }
};

std::string arrayOf(const std::string& name, const std::string& items, int count = 1) {
  return "<" + name + " xsi:type=\"SOAP-ENC:Array\" SOAP-ENC:arrayType=\"tns:x[" +
         std::to_string(count) + "]\">" + items + "</" + name + ">";
}
std::string item(const std::string& fields) {
  return "<item xsi:type=\"tns:x\">" + fields + "</item>";
}
std::string field(const std::string& name, const std::string& value) {
  return "<" + name + " xsi:type=\"xsd:string\">" + value + "</" + name + ">";
}
std::string nil(const std::string& name) {
  return "<" + name + " xsi:nil=\"true\" xsi:type=\"xsd:int\"/>";
}
std::string record(const std::string& fields) {
  return "<return xsi:type=\"tns:x\">" + fields + "</return>";
}

TEST(ReplyReaders, AgencyTypeNullNilOrDecimal) {
  const struct {
    std::string aType;
    int expected;
  } cases[] = {
      {field("aType", "Null"), 0},        {nil("aType"), 0},          {"", 0},
      {field("aType", "6"), 6},           {field("aType", "6.0"), 6}, {field("aType", "x6"), 0},
      {field("aType", "99999999999"), 0},
  };
  for (const auto& c : cases) {
    const Reply reply(
        record(field("stid", "19") + arrayOf("agencyList", item(field("aid", "613") + c.aType))));
    const RRState state = readStateInfo(reply.part());
    ASSERT_EQ(state.agencyList.size(), 1u) << c.aType;
    EXPECT_EQ(std::tie(state.agencyList[0].aid, state.agencyList[0].aType),
              std::make_tuple(613, c.expected))
        << c.aType;
  }
}

TEST(ReplyReaders, CountyWithoutItsListsKeepsTheRest) {
  const std::string cats = arrayOf(
      "cats", item(field("cid", "8028") + field("cName", "Linn County") +
                   arrayOf("subcats", item(field("scid", "24967") + field("range", "20")))));
  const std::string trs = arrayOf("trsList", item(field("sid", "6673")));
  const std::string agencies = arrayOf("agencyList", item(field("aid", "4603")));
  const struct {
    std::string lists;
    std::size_t trs, agencies;
  } cases[] = {
      {trs + agencies, 1, 1},
      {agencies, 0, 1},
      {trs, 1, 0},
      {"", 0, 0},
      {nil("trsList") + field("agencyList", "Null"), 0, 0},
      {arrayOf("trsList", "", 0) + arrayOf("agencyList", "", 0), 0, 0},
      {field("trsList", "6673") + agencies, 0, 1},  // a scalar where a list belongs
  };
  for (const auto& c : cases) {
    const Reply reply(record(field("ctid", "841") + field("countyName", "Linn") + cats + c.lists +
                             field("lastUpdated", "2026-06-16T03:53:09+00:00")));
    SCOPED_TRACE(c.lists);
    const RRCounty county = readCountyInfo(reply.part());
    EXPECT_EQ(std::tie(county.ctid, county.countyName, county.lastUpdateText),
              std::make_tuple(841, "Linn", "Last Update: Jun/16/2026"));
    ASSERT_EQ(county.cats.size(), 1u);
    ASSERT_EQ(county.cats[0].subcats.size(), 1u);
    EXPECT_DOUBLE_EQ(county.cats[0].subcats[0].range, 20);
    EXPECT_EQ(std::make_pair(county.trsList.size(), county.agencyList.size()),
              std::make_pair(c.trs, c.agencies));
  }
}

TEST(ReplyReaders, CommasBecomeSemicolonsInTheFourTextsOnly) {
  const std::string texts = field("descr", "Fire, EMS") + field("alpha", "F,E") +
                            field("callsign", "KA,1") + field("tone", "100.0,N");
  const Reply freqs(arrayOf("return", item(texts)));
  const std::vector<RRFrequency> f = readFrequencies(freqs.part());
  ASSERT_EQ(f.size(), 1u);
  EXPECT_EQ(std::tie(f[0].descr, f[0].alpha, f[0].callsign, f[0].tone),
            std::make_tuple("Fire; EMS", "F;E", "KA,1", "100.0,N"));

  const Reply hits(arrayOf("return", item(texts)));
  const std::vector<RRSearchHit> h = readSearchHits(hits.part());
  ASSERT_EQ(h.size(), 1u);
  EXPECT_EQ(std::tie(h[0].descr, h[0].alpha, h[0].callsign),
            std::make_tuple("Fire; EMS", "F;E", "KA,1"));

  const Reply tgs(arrayOf("return", item(field("tgDescr", "Ops, 1,2") + field("tgAlpha", ",A,") +
                                         field("tgMode", "D,T"))));
  const std::vector<RRTalkgroup> t = readTalkgroups(tgs.part());
  ASSERT_EQ(t.size(), 1u);
  EXPECT_EQ(std::tie(t[0].tgDescr, t[0].tgAlpha, t[0].tgMode),
            std::make_tuple("Ops; 1;2", ";A;", "D,T"));

  const Reply cats(arrayOf("return", item(field("tgCname", "Fire, EMS"))));
  EXPECT_EQ(readTalkgroupCats(cats.part()).at(0).tgCname, "Fire, EMS");
}

TEST(ReplyReaders, TagsWithoutAServiceTypeName) {
  const Reply reply(arrayOf(
      "return", item(arrayOf("tags",
                             item(field("tagId", "5") + field("tagDescr", "Unassigned")) +
                                 item(field("tagId", "3") + field("tagDescr", "Fire Dispatch")) +
                                 item(field("tagId", "999")),
                             3))));
  const std::vector<RRFrequency> f = readFrequencies(reply.part());
  ASSERT_EQ(f.size(), 1u);
  ASSERT_EQ(f[0].tags.size(), 3u);
  EXPECT_EQ(f[0].tags[0].tagDescr, "Unassigned");
  EXPECT_EQ(serviceTagName(f[0].tags[0].tagId) + "|" + serviceTagName(f[0].tags[1].tagId) + "|" +
                serviceTagName(f[0].tags[2].tagId),
            "|Fire Dispatch|");
}

// Every list reader, for the cases where the reply holds no list to read.
const std::vector<std::pair<const char*, std::function<std::size_t(const SoapNode&)>>>&
listReaders() {
  static const std::vector<std::pair<const char*, std::function<std::size_t(const SoapNode&)>>>
      readers = {
          {"talkgroups", [](const SoapNode& p) { return readTalkgroups(p).size(); }},
          {"categories", [](const SoapNode& p) { return readTalkgroupCats(p).size(); }},
          {"sites", [](const SoapNode& p) { return readTrsSites(p).size(); }},
          {"frequencies", [](const SoapNode& p) { return readFrequencies(p).size(); }},
          {"search hits", [](const SoapNode& p) { return readSearchHits(p).size(); }},
          {"flavors", [](const SoapNode& p) { return readFlavors(p).size(); }},
          {"voices", [](const SoapNode& p) { return readVoices(p).size(); }},
          {"lookups", [](const SoapNode& p) { return readLookups(p, "tagId", "tagDescr").size(); }},
      };
  return readers;
}

TEST(ReplyReaders, NoListInTheReplyGivesAnEmptyList) {
  const std::string replies[] = {
      arrayOf("return", "", 0),
      "<return xsi:type=\"SOAP-ENC:Array\" SOAP-ENC:arrayType=\"tns:x[0]\"/>",
      "<return xsi:nil=\"true\" xsi:type=\"SOAP-ENC:Array\"/>",
      field("return", "Null"),
      field("return", "12"),
      "<return/>",
      record(field("tgId", "1") + field("sid", "2")),  // a record where a list belongs
      arrayOf("return", "<item xsi:nil=\"true\"/>" + field("item", "7"), 2),
  };
  for (const std::string& text : replies) {
    const Reply reply(text);
    for (const auto& [name, read] : listReaders())
      EXPECT_EQ(read(reply.part()), 0u) << name << ": " << text;
  }
}

TEST(ReplyReaders, ScalarsWhereListsBelongInsideRecords) {
  const std::string scalarLists = field("tags", "11") + field("siteFreqs", "Null") +
                                  nil("siteLicenses") + field("bandplan", "") +
                                  field("sCounty", "841") + field("sState", "Null") +
                                  field("sysid", "034") + field("fleetmap", "Null");
  const Reply talkgroups(arrayOf("return", item(field("tgDec", "3") + scalarLists)));
  const std::vector<RRTalkgroup> t = readTalkgroups(talkgroups.part());
  ASSERT_EQ(t.size(), 1u);
  EXPECT_TRUE(t[0].tgDec == 3 && t[0].tags.empty());

  const Reply sites(arrayOf("return", item(field("siteId", "5") + scalarLists)));
  const std::vector<RRSite> s = readTrsSites(sites.part());
  ASSERT_EQ(s.size(), 1u);
  EXPECT_TRUE(s[0].siteId == 5 && s[0].siteFreqs.empty() && s[0].siteLicenses.empty() &&
              s[0].bandplan.empty());

  const Reply details(record(field("sName", "SARA") + scalarLists));
  const RRSystemDetails d = readTrsDetails(details.part());
  EXPECT_TRUE(d.sName == "SARA" && d.sCounty.empty() && d.sState.empty() && d.sysid.empty() &&
              d.fleetmap.empty());
}

TEST(ReplyReaders, SystemDetailsListsAndFlags) {
  const Reply reply(record(
      field("sName", "Metro") + field("sType", "1") +
      arrayOf("sysid", item(field("sysid", "1A2B") + field("ct", "3") + nil("wacn"))) +
      arrayOf("bandplan",
              item(field("base", "851.0125") + field("offset", "380") + field("spacing", "25")) +
                  item(field("base", "Null")),
              2) +
      "<fleetmap xsi:type=\"tns:TrsFleetmap\">" + field("b0", "A") + field("b1", "B") + nil("b2") +
      field("b7", "H") + "</fleetmap>"));
  const RRSystemDetails d = readTrsDetails(reply.part());
  ASSERT_EQ(d.sysid.size(), 1u);
  EXPECT_EQ(std::tie(d.sysid[0].sysid, d.sysid[0].ct, d.sysid[0].wacn),
            std::make_tuple("1A2B", "3", ""));
  ASSERT_EQ(d.bandplan.size(), 2u);
  EXPECT_EQ(
      std::tie(d.bandplan[0].base, d.bandplan[0].offset, d.bandplan[0].spacing, d.bandplan[1].base),
      std::make_tuple("851.0125", "380", "25", ""));
  EXPECT_EQ(d.fleetmap, (std::vector<std::string>{"A", "B", "", "", "", "", "", "H"}));
  EXPECT_EQ(trunkTypeName(d.sType), "Motorola");

  const struct {
    std::string value;
    bool expected;
  } flags[] = {{"true", true}, {"1", true}, {"false", false}, {"0", false}, {"Null", false}};
  for (const auto& c : flags) {
    const Reply flag(arrayOf("return", item(field("tgLtr", c.value))));
    EXPECT_EQ(readTalkgroups(flag.part()).at(0).tgLtr, c.expected) << c.value;
  }
}

TEST(ReplyReaders, SiteCounties) {
  const struct {
    std::string xml;
    std::vector<std::string> expected;
  } cases[] = {
      {field("siteCtid", "841") + nil("siteCt"), {"841"}},
      {nil("siteCtid"), {}},
      {"", {}},
      {arrayOf("siteCtid", item(field("siteCt", "Linn")) + item(field("siteCt", "Benton")), 2),
       {"Linn", "Benton"}},
  };
  for (const auto& c : cases) {
    const Reply reply(arrayOf("return", item(field("siteId", "1") + c.xml)));
    EXPECT_EQ(readTrsSites(reply.part()).at(0).siteCtid, c.expected) << c.xml;
  }
}

TEST(ReplyReaders, SingleRecordWrappedInAnArray) {
  const Reply reply(
      arrayOf("return", item(field("zipCode", "52401") + field("city", "Cedar Rapids"))));
  const RRZipcode zip = readZipcode(reply.part());
  EXPECT_EQ(std::tie(zip.zipCode, zip.city), std::make_tuple(52401, "Cedar Rapids"));
}

TEST(ReplyReaders, MonthDayYear) {
  const std::pair<const char*, const char*> dates[] = {{"2026-06-16T03:53:09+00:00", "Jun/16/2026"},
                                                       {"2026-06-16 03:53:09", "Jun/16/2026"},
                                                       {"2026-01-05", "Jan/05/2026"},
                                                       {"2009-12-31T23:59:59Z", "Dec/31/2009"},
                                                       {"11-24-2026", "Nov/24/2026"}};
  for (const auto& [in, out] : dates) EXPECT_EQ(monthDayYear(in), out) << in;
  for (const char* bad :
       {"2026-13-01", "2026-00-10", "2026-06-32", "2026-6-16", "2026-06-16x", "Null", ""})
    EXPECT_EQ(monthDayYear(bad), "") << bad;

  const Reply reply(record(field("ctid", "1") + nil("lastUpdated")));
  EXPECT_EQ(readCountyInfo(reply.part()).lastUpdateText, "Last Update: ");
}

TEST(ServiceTables, FilterNamesAreTheTagNamesWithTheirOwnSpelling) {
  const std::vector<std::string>& names = serviceFilterNames();
  ASSERT_EQ(names.size(), 39u);
  const auto lower = [](std::string s) {
    for (char& ch : s) ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    return s;
  };
  int tagNames = 0;
  for (int id = 0; id < 218; ++id) {
    if (serviceTagName(id).empty()) continue;
    ++tagNames;
    const auto hits = std::count_if(names.begin(), names.end(), [&](const std::string& n) {
      return lower(n) == lower(serviceTagName(id));
    });
    EXPECT_EQ(hits, 1) << serviceTagName(id);
  }
  EXPECT_EQ(tagNames, 39);
  for (const auto& [name, listed] : {std::pair{"Law TAC", 1}, {"Multi-TAC", 1}, {"Law Tac", 0}})
    EXPECT_EQ(std::count(names.begin(), names.end(), name), listed) << name;
  // By name up to the custom types, which come last with the racing ones.
  const auto custom = std::find(names.begin(), names.end(), "Custom 1");
  EXPECT_TRUE(std::is_sorted(
      names.begin(), custom,
      [&](const std::string& a, const std::string& b) { return lower(a) < lower(b); }));
  EXPECT_EQ(names.back(), "Racing Teams");
}

TEST(ServiceTables, TrunkTypes) {
  const struct {
    int sType;
    const char* name;
  } cases[] = {{0, "Motorola"}, {1, "Motorola"}, {2, "Edacs"}, {3, "LTR"}, {8, "Project 25"},
               {11, "NXDN"},    {12, "DMR"},     {13, ""},     {89, ""},   {90, "Other"},
               {91, "Unknown"}, {92, ""},        {-1, ""}};
  for (const auto& c : cases) EXPECT_EQ(trunkTypeName(c.sType), c.name) << c.sType;
}

}  // namespace
}  // namespace zel::radioref

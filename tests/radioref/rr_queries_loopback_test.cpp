// The query layer against the simulated service over real HTTP on this machine: a login,
// then every operation the suite calls, walking down from a country the way a user does.
#include <gtest/gtest.h>

#include <set>

#include "radioref/rr_queries.h"
#include "radioref/rr_readers.h"
#include "rr_test_support.h"

namespace zel::radioref {
namespace {

using test::Loopback;

TEST(RRQueriesLoopback, LoginThenEveryOperationDownToTheRows) {
  Loopback l;
  ASSERT_TRUE(l.started) << l.startError;
  auto& q = l.q;
  const auto outcome = q.login("demo", "demo");
  ASSERT_EQ(outcome.result, LoginOutcome::Result::LoggedIn) << l.client.lastError();
  EXPECT_EQ(outcome.statusText, "Subscription expires on: " + outcome.expiry);
  for (const auto* list : {&q.trsTypes, &q.modes, &q.tags, &q.metroAreas})
    EXPECT_FALSE(list->empty());
  EXPECT_FALSE(q.flavors.empty() || q.voices.empty());

  q.getCountryInfo(1);
  ASSERT_FALSE(q.countryInfo.stateList.empty());
  std::set<int> trunkTypes;
  std::set<int> systemsSeen;
  int countiesWithRows = 0;
  // A system is listed by its state, its counties or both; each is walked once.
  auto walkSystem = [&](const RRSystemRef& s) {
    if (!systemsSeen.insert(s.sid).second) return;
    SCOPED_TRACE("sid " + std::to_string(s.sid));
    trunkTypes.insert(s.sType);
    q.getTrsSites(s.sid);
    ASSERT_FALSE(q.trsSites.empty()) << l.client.lastError();
    EXPECT_FALSE(q.trsSites.front().siteFreqs.empty());
    q.getTrsDetails(s.sid);
    EXPECT_EQ(q.trsDetails.sName, s.sName);
    EXPECT_NE(q.trsDetails.readableText.find("\r</item>"), std::string::npos);
    q.getTrsTalkgroupCats(s.sid);
    ASSERT_FALSE(q.talkgroupCats.empty());
    q.getTrsTalkgroups(s.sid, q.talkgroupCats.front().tgCid, 0, 0);
    EXPECT_FALSE(q.talkgroups.empty());
  };
  for (const auto& st : q.countryInfo.stateList) {
    SCOPED_TRACE("stid " + std::to_string(st.stid));
    q.getStateInfo(st.stid);
    EXPECT_EQ(q.stateInfo.stid, st.stid);
    const RRState state = q.stateInfo;
    for (const auto& c : state.countyList) {
      q.getCountyInfo(c.ctid);
      ASSERT_EQ(q.countyInfo.ctid, c.ctid) << l.client.lastError();
      const RRCounty county = q.countyInfo;
      for (const auto& s : county.trsList) walkSystem(s);
      for (const auto& cat : county.cats) {
        for (const auto& sub : cat.subcats) {
          q.getSubcatFreqs(sub.scid);
          if (q.subcatFreqs.empty()) continue;
          ++countiesWithRows;
          const RRFrequency first = q.subcatFreqs.front();
          q.searchCountyFreq(c.ctid, std::stod(first.out), "");
          EXPECT_FALSE(q.searchHits.empty()) << first.out;
          q.searchStateFreq(st.stid, std::stod(first.out), "");
          EXPECT_FALSE(q.searchHits.empty()) << first.out;
          if (!first.tags.empty()) {
            q.getCountyFreqsByTag(c.ctid, first.tags.front().tagId);
            EXPECT_FALSE(q.countyFreqsByTag.empty());
          }
        }
      }
    }
    for (const auto& a : state.agencyList) {
      q.getAgencyInfo(a.aid);
      EXPECT_EQ(q.agencyInfo.aid, a.aid) << l.client.lastError();
    }
    for (const auto& s : state.trsList) walkSystem(s);
  }
  EXPECT_GT(countiesWithRows, 0);
  // Every kind of system an import handles: Motorola, EDACS, LTR, P25, NXDN, DMR.
  for (int type : {1, 2, 3, 8, 11, 12}) EXPECT_TRUE(trunkTypes.count(type)) << type;
  EXPECT_TRUE(l.feedback.messages.empty()) << l.feedback.messages.front();
}

TEST(RRQueriesLoopback, RenamedDescriptionIsFollowedWithoutARebuild) {
  Loopback plain;
  sim::RadioRefSimOptions options;
  options.renamedWsdl = true;
  Loopback renamed(options);
  ASSERT_TRUE(plain.started && renamed.started);
  for (Loopback* l : {&plain, &renamed}) {
    ASSERT_EQ(l->q.login("demo", "demo").result, LoginOutcome::Result::LoggedIn)
        << l->client.lastError();
    l->q.getCountryInfo(1);
    EXPECT_FALSE(l->q.countryInfo.stateList.empty()) << l->client.lastError();
  }
  EXPECT_NE(plain.client.selected().binding.soapAction,
            renamed.client.selected().binding.soapAction);
  EXPECT_NE(plain.client.selected().InputMessage, renamed.client.selected().InputMessage);
  EXPECT_NE(plain.client.tables().definitions.targetNamespace,
            renamed.client.tables().definitions.targetNamespace);
}

TEST(RRQueriesLoopback, WrongLoginEmptiesTheLoginFields) {
  Loopback l;
  ASSERT_TRUE(l.started) << l.startError;
  int emptied = 0;
  l.client.onInvalidLogin = [&] { ++emptied; };
  const auto outcome = l.q.login("demo", "wrong");
  EXPECT_EQ(std::tie(outcome.result, outcome.statusText, emptied, l.client.lastFault()->faultcode),
            std::make_tuple(LoginOutcome::Result::NoUserData, "INIT not ok, can't read user data.",
                            1, "AUTH"));
}

TEST(RRQueriesLoopback, TimeOutsAgainstASlowService) {
  sim::RadioRefSimOptions options;
  options.slowMs = 600;
  Loopback l(options);
  ASSERT_TRUE(l.started) << l.startError;
  // The description is late: a message, and what came (nothing) is all there is.
  l.client.wsdlTimeoutMs = 150;
  l.client.RRUser = l.client.RRPassword = "demo";
  EXPECT_TRUE(l.client.INITSOAP());
  EXPECT_EQ(l.feedback.messages, std::vector<std::string>{"Unexpected HTTP TimeOut"});
  // With time enough for the description, a call that is late fails without a message.
  l.feedback.messages.clear();
  l.client.wsdlTimeoutMs = 5000;
  ASSERT_TRUE(l.client.INITSOAP());
  l.client.callTimeoutMs = 150;
  EXPECT_FALSE(l.q.getUserData());
  EXPECT_TRUE(l.feedback.messages.empty());
  EXPECT_EQ(l.client.lastError(), "The service did not answer within 150 ms.");
}

}  // namespace
}  // namespace zel::radioref

// The client against scripted replies: what it sends, what it tells the user and what it
// writes when the service says no. The description it reads is the simulated service's.
#include "radioref/soap_client.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/memory_ports.h"
#include "radioref/rr_operations.h"
#include "radioref/rr_queries.h"
#include "rr_test_support.h"
#include "sim/radioref_sim.h"
#include "test_folder.h"

namespace zel::radioref {
namespace {

using test::ok;
using test::ScriptedTransport;
using test::slurp;

const std::string& simWsdl() {
  static const std::string text = [] {
    sim::RadioRefSim sim({});
    return sim.wsdl().body;
  }();
  return text;
}

const std::string kAuthText =
    "Invalid Username or Password.  Make sure you are logging in with your username and not "
    "your email address.";

std::string authFault(const std::string& text = kAuthText) {
  return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><SOAP-ENV:Envelope "
         "xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\" "
         "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"><SOAP-ENV:Body><SOAP-ENV:Fault>"
         "<faultcode xsi:type=\"xsd:string\">AUTH</faultcode><faultstring "
         "xsi:type=\"xsd:string\">" +
         text + "</faultstring></SOAP-ENV:Fault></SOAP-ENV:Body></SOAP-ENV:Envelope>";
}
const std::string kAuthFault = authFault();

std::string reply(const std::string& element, const std::string& inner) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?><SOAP-ENV:Envelope "
         "xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\" "
         "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"><SOAP-ENV:Body><ns1:" +
         element + " xmlns:ns1=\"urn:x\">" + inner + "</ns1:" + element +
         "></SOAP-ENV:Body></SOAP-ENV:Envelope>";
}

class SoapClientTest : public ::testing::Test {
 protected:
  SoapClientTest() : client(http, feedback, clock) {
    client.BaseUrl = "http://127.0.0.1:1/soap2/";
    client.WorkFolder = (std::filesystem::path(folder.path()) / "torvosoap" / "ZEL536").string();
    client.documentsFolder = folder.path();
    client.appKeySetting = "12345678";
    client.RRUser = "hobbyist";
    client.RRPassword = "p&ss<word";
    client.onInvalidLogin = [this] { ++invalidLogins; };
    client.traceSink = [this](std::string_view line) { trace += std::string(line) + "\n"; };
  }
  // A client that has read the description.
  void init() {
    http.replies.push_back(ok(simWsdl()));
    ASSERT_TRUE(client.INITSOAP());
    ASSERT_FALSE(client.tables().messages.empty());
  }
  std::string faultLog() const {
    return slurp(std::filesystem::path(client.WorkFolder) / "faultlog.txt");
  }

  TestFolder folder;
  ScriptedTransport http;
  RecordingFeedback feedback;
  ManualClock clock;
  SoapClient client;
  int invalidLogins = 0;
  std::string trace;
};

TEST_F(SoapClientTest, FailedCallsTellTheUserOnlyAboutFaults) {
  struct Case {
    const char* name;
    HttpReply reply;
    std::string message;  // "" when the user is told nothing
    std::string lastError;
    int invalidLogins;
    bool faultLogged;
  };
  const std::string expired = "Subscription expired.", fault = "FaultCode:   AUTH\nFaultString: ";
  const HttpReply refused{false, false, 0, {}, "Connection refused"};
  const std::vector<Case> cases = {
      {"wrong login", ok(kAuthFault, 500), fault + kAuthText, kAuthText, 1, true},
      {"other fault", ok(authFault(expired), 500), fault + expired, expired, 0, true},
      {"missing part", ok("", 500), "",
       "The service refused the request (HTTP 500) without a reply.", 0, false},
      {"wrong element", ok(reply("getTagResponse", "<return/>")),
       "Unexpected Return:getTagResponse - getUserData",
       "The service answered getTagResponse to getUserData.", 0, false},
      {"no connection", refused, "", "The service could not be reached: Connection refused.", 0,
       false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    feedback.messages.clear();
    invalidLogins = 0;
    std::filesystem::remove(std::filesystem::path(client.WorkFolder) / "faultlog.txt");
    init();
    http.replies.push_back(c.reply);
    RRQueries q(client);
    EXPECT_FALSE(q.getUserData());
    EXPECT_TRUE(q.userData.subExpireDate.empty());
    EXPECT_EQ(feedback.messages,
              c.message.empty() ? std::vector<std::string>{} : std::vector{c.message});
    EXPECT_EQ(std::make_tuple(client.lastError(), invalidLogins, !faultLog().empty()),
              std::make_tuple(c.lastError, c.invalidLogins, c.faultLogged));
  }
}

TEST_F(SoapClientTest, FaultLogHoldsTheLabelsButNeverTheLogin) {
  clock.day = "2026-11-24";
  clock.time = "15:04:05";
  init();
  http.replies.push_back(ok(kAuthFault, 500));
  client.call(opGetUserData, {});
  const std::string log = faultLog();
  EXPECT_EQ(
      log.rfind("2026-11-24/15:04:05\r\nApplication: BCD536HP\r\nKey:12345678\r\nUSer:\r\nPW:\r\n"
                "Version:15\r\n<?xml",
                0),
      0u)
      << log;
  for (const char* login : {"hobbyist", "p&ss", "p&amp;ss"})
    EXPECT_EQ(log.find(login), std::string::npos) << login;
}

TEST_F(SoapClientTest, PasswordIsEscapedOnTheWireAndNeverTraced) {
  init();
  http.replies.push_back(ok(kAuthFault, 500));
  client.call(opGetUserData, {});
  const std::string& body = http.sent.back().body;
  EXPECT_NE(body.find("p&amp;ss&lt;word"), std::string::npos) << body;
  EXPECT_NE(trace.find("SET_HTTP1 "), std::string::npos);
  for (const char* password : {"p&amp;ss", "p&ss"})
    EXPECT_EQ(trace.find(password), std::string::npos) << password;
}

TEST_F(SoapClientTest, CallFollowsTheDescription) {
  init();
  const std::string tns = client.tables().definitions.targetNamespace;
  for (int op : {opGetCountyInfo, opGetStateInfo}) {
    http.replies.push_back(ok("", 500));
    client.call(op, {{op == opGetCountyInfo ? "ctid" : "stid", "7", "xsd:int"}});
    const auto& sent = http.sent.back();
    const auto& selected = client.selected();
    EXPECT_EQ(sent.url, "http://127.0.0.1:1/soap2/index.php");
    EXPECT_EQ(sent.soapAction, selected.binding.soapAction);
    EXPECT_NE(sent.body.find(fromFifth(selected.InputMessage)), std::string::npos);
    const bool slash = sent.body.find("\"" + tns + "/\"") != std::string::npos;
    EXPECT_EQ(slash, op == opGetCountyInfo) << sent.body;
  }
}

TEST_F(SoapClientTest, DescriptionIsFetchedOncePerRunAndNeverReadFromDisk) {
  std::filesystem::create_directories(client.WorkFolder);
  std::ofstream(client.WsdlFile()) << simWsdl();  // left by an earlier run
  // The fetch fails: the file on disk is not used, there are no tables.
  RRQueries q(client);
  auto failed = q.login("hobbyist", "secret");
  EXPECT_EQ(
      std::tie(failed.result, failed.statusText),
      std::make_tuple(LoginOutcome::Result::InitFailed, "INIT not ok, check firewall settings."));
  EXPECT_EQ(feedback.messages, std::vector<std::string>{std::string(kWsdlLoadFailed)});
  EXPECT_TRUE(client.tables().messages.empty());

  // A fetch that works is written over the old file; a second login fetches nothing.
  http.replies.push_back(ok(simWsdl()));
  http.replies.push_back(ok(kAuthFault, 500));
  q.login("hobbyist", "secret");
  EXPECT_TRUE(client.InitDone);
  EXPECT_EQ(slurp(client.WsdlFile()), simWsdl());
  const auto gets = [&] {
    return std::count_if(http.sent.begin(), http.sent.end(),
                         [](const auto& s) { return s.soapAction.empty(); });
  };
  const auto getsBefore = gets();
  http.replies.push_back(ok(kAuthFault, 500));
  q.login("hobbyist", "secret");
  EXPECT_EQ(gets(), getsBefore);
}

TEST_F(SoapClientTest, DescriptionProblemsAreMessagesNotFailures) {
  struct Case {
    const char* name;
    HttpReply reply;
    std::string message;
    bool tables;
  };
  HttpReply slow;
  slow.timedOut = true;
  slow.body = simWsdl();
  const std::vector<Case> cases = {
      // A late description is a message; what came is used.
      {"late", slow, "Unexpected HTTP TimeOut", true},
      {"not well-formed", ok("<definitions>\n<types></definitions>"),
       "Error occured when parsing the XML file\nError Code: 14\nLine Number: 2\n"
       "Line Position: 10\nReason: Start-end tags mismatch",
       false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    feedback.messages.clear();
    http.replies.push_back(c.reply);
    EXPECT_TRUE(client.INITSOAP());
    EXPECT_EQ(feedback.messages, std::vector<std::string>{c.message});
    EXPECT_EQ(!client.tables().messages.empty(), c.tables);
  }
}

TEST_F(SoapClientTest, MissingKeyIsOneSentenceAndNoRequest) {
  client.appKeySetting.clear();
  RRQueries q(client);
  auto outcome = q.login("hobbyist", "secret");
  EXPECT_EQ(outcome.result, LoginOutcome::Result::InitFailed);
  EXPECT_EQ(client.lastError(), kMissingAppKey);
  EXPECT_TRUE(http.sent.empty());
}

TEST_F(SoapClientTest, SavedXmlHasWindowsLineEnds) {
  init();
  http.replies.push_back(ok("<a>\n<b/>\r\n</a>\n", 500));
  client.call(opGetUserData, {});
  const auto path = (std::filesystem::path(folder.path()) / "Text.xml").string();
  ASSERT_TRUE(client.saveLastXml(path));
  EXPECT_EQ(slurp(path), "<a>\r\n<b/>\r\n</a>\r\n");
  ASSERT_TRUE(client.loadXml(path));
  EXPECT_EQ(client.LastHttpText, "<a>\r\n<b/>\r\n</a>\r\n");
}

}  // namespace
}  // namespace zel::radioref

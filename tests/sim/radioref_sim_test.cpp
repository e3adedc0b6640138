// The simulated RadioReference service, through its answers (wsdl(), call()) and once over
// real HTTP on the loopback. Every operation the client uses is walked through the client's
// own loopback tests (radioref), under both descriptions; here are the service's refusals.
#include "sim/radioref_sim.h"

#include <gtest/gtest.h>
#include <httplib.h>

#include <chrono>
#include <ctime>
#include <pugixml.hpp>
#include <regex>

#include "sim/radioref_sim_recorded.h"
#include "sim/radioref_sim_request.h"

namespace zel::sim {
namespace {

constexpr const char* kNs = "http://api.radioreference.com/soap2";
constexpr const char* kRenamedNs = "urn:zel536:rrsim:v2";

struct Login {
  std::string user = "demo", password = "demo", appKey = "12345678";
};

// A request as a SOAP toolkit sends it: the method element in its namespace, typed params.
std::string envelope(const std::string& element, const std::string& ns, const std::string& params,
                     const Login& login = {}, bool withAuth = true) {
  std::string auth;
  if (withAuth) {
    auth = "<authInfo xsi:type=\"tns:authInfo\"><username xsi:type=\"xsd:string\">" + login.user +
           "</username><password xsi:type=\"xsd:string\">" + login.password +
           "</password><appKey xsi:type=\"xsd:string\">" + login.appKey +
           "</appKey><version xsi:type=\"xsd:string\">15</version></authInfo>";
  }
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><SOAP-ENV:Envelope "
         "xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\" "
         "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
         "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\"><SOAP-ENV:Body><ns1:" +
         element + " xmlns:ns1=\"" + ns + "\">" + params + auth + "</ns1:" + element +
         "></SOAP-ENV:Body></SOAP-ENV:Envelope>";
}

std::string action(const std::string& op) {
  return std::string("\"") + kNs + "#" + op + "\"";
}

RadioRefSimReply callOp(const RadioRefSim& sim, const std::string& op, const std::string& params,
                        const Login& login = {}) {
  return sim.call(action(op), envelope(op + "Request", kNs, params, login));
}

// The reply element (first child of the Body) of a parsed reply.
pugi::xml_node replyElement(pugi::xml_document& doc, const std::string& body) {
  if (!doc.load_string(body.c_str())) return {};
  return doc.child("SOAP-ENV:Envelope").child("SOAP-ENV:Body").first_child();
}

std::string faultString(const std::string& body) {
  pugi::xml_document doc;
  pugi::xml_node fault = replyElement(doc, body);
  return fault.child("faultcode").text().get() + std::string("|") +
         fault.child("faultstring").text().get();
}

TEST(RadioRefSimWsdl, IsWellFormedAndPointsAtTheServer) {
  RadioRefSim sim({});
  RadioRefSimReply reply = sim.wsdl();
  ASSERT_EQ(reply.status, 200);
  pugi::xml_document doc;
  ASSERT_TRUE(doc.load_string(reply.body.c_str()));
  pugi::xml_node defs = doc.child("definitions");
  EXPECT_STREQ(defs.attribute("targetNamespace").value(), kNs);
  EXPECT_STREQ(defs.attribute("xmlns:tns").value(), kNs);
  for (const char* attr :
       {"xmlns:soap", "xmlns:SOAP-ENC", "xmlns:SOAP-ENV", "xmlns:wsdl", "xmlns:xsi", "xmlns"}) {
    EXPECT_FALSE(std::string(defs.attribute(attr).value()).empty()) << attr;
  }
  EXPECT_EQ(defs.child("service").child("port").child("soap:address").attribute("location").value(),
            sim.endpoint() + "index.php");
  EXPECT_EQ(sim.endpoint().rfind("http://127.0.0.1:", 0), 0u);
}

TEST(RadioRefSimWsdl, RenamedDescriptionMovesActionsAndNames) {
  RadioRefSimOptions options;
  options.renamedWsdl = true;
  RadioRefSim renamed(options);
  RadioRefSim standard({});
  const std::string a = renamed.wsdl().body, b = standard.wsdl().body;
  EXPECT_EQ(b.find(kRenamedNs), std::string::npos);
  EXPECT_EQ(a.find(kNs), std::string::npos) << "no trace of the standard namespace";
  EXPECT_NE(b.find("soapAction=\"http://api.radioreference.com/soap2#getUserData\""),
            std::string::npos);
}

TEST(RadioRefSimCall, MissingPartGetsStatus500AndAnEmptyBody) {
  RadioRefSim sim({});
  const std::vector<std::tuple<std::string, std::string, bool>> cases = {
      {"getTrsTalkgroups", "<sid>90001</sid><tgCid>0</tgCid><tgTag>0</tgTag>", true},
      {"searchCountyFreq", "<ctid>9011</ctid><freq>155.475</freq>", true},
      {"getCountyFreqsByTag", "<tag>2</tag>", true},
      {"getTrsSites", "<sid>90001</sid>", false},
      {"getUserData", "", false},
  };
  for (const auto& [op, params, withAuth] : cases) {
    SCOPED_TRACE(op);
    RadioRefSimReply reply =
        sim.call(action(op), envelope(op + "Request", kNs, params, {}, withAuth));
    EXPECT_EQ(reply.status, 500);
    EXPECT_TRUE(reply.body.empty());
  }
}

TEST(RadioRefSimCall, WrongLoginGetsTheServiceAuthFault) {
  RadioRefSim sim({});
  for (const Login& login : {Login{"demo", "wrong"}, Login{"someone", "demo"},
                             Login{"expired", "demo"}, Login{"", ""}}) {
    RadioRefSimReply reply = callOp(sim, "getTrsSites", "<sid>90001</sid>", login);
    EXPECT_EQ(reply.status, 500);
    EXPECT_EQ(reply.body.rfind("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>", 0), 0u);
    EXPECT_EQ(faultString(reply.body),
              "AUTH|Invalid Username or Password.  Make sure you are logging in with your "
              "username and not your email address.");
  }
}

TEST(RadioRefSimCall, EmptyAppKeyIsRefused) {
  RadioRefSim sim({});
  RadioRefSimReply reply = callOp(sim, "getUserData", "", Login{"demo", "demo", ""});
  EXPECT_EQ(reply.status, 500);
  EXPECT_EQ(faultString(reply.body).rfind("AUTH|", 0), 0u);
}

// "MM-DD-YYYY" as days from today (negative: past).
long daysFromToday(const std::string& date) {
  std::tm tm{};
  tm.tm_mon = std::stoi(date.substr(0, 2)) - 1;
  tm.tm_mday = std::stoi(date.substr(3, 2));
  tm.tm_year = std::stoi(date.substr(6, 4)) - 1900;
  tm.tm_hour = 12;
  const auto then = std::chrono::system_clock::from_time_t(timegm(&tm));
  return std::chrono::duration_cast<std::chrono::hours>(then - std::chrono::system_clock::now())
             .count() /
         24;
}

TEST(RadioRefSimCall, AccountsHaveTheirSubscriptionDates) {
  RadioRefSim sim({});
  const std::vector<std::tuple<std::string, long, long>> accounts = {{"demo", 300, 400},
                                                                     {"expired", -400, -1}};
  for (const auto& [user, low, high] : accounts) {
    SCOPED_TRACE(user);
    RadioRefSimReply reply = callOp(sim, "getUserData", "", Login{user, user});
    ASSERT_EQ(reply.status, 200);
    pugi::xml_document doc;
    pugi::xml_node ret = replyElement(doc, reply.body).child("return");
    EXPECT_EQ(ret.child_value("username"), user);
    const std::string date = ret.child_value("subExpireDate");
    ASSERT_TRUE(std::regex_match(date, std::regex(R"(\d\d-\d\d-\d{4})"))) << date;
    EXPECT_GE(daysFromToday(date), low);
    EXPECT_LE(daysFromToday(date), high);
  }
  RadioRefSimReply other = callOp(sim, "getTag", "<id>0</id>", Login{"expired", "expired"});
  EXPECT_EQ(other.status, 500);
  const std::string fault = faultString(other.body);
  EXPECT_EQ(fault.rfind("AUTH|", 0), 0u);
  EXPECT_NE(fault.find("expired"), std::string::npos);
}

// The SOAP action, the method element and its namespace must be the served description's.
TEST(RadioRefSimCall, ActionsMethodNamesAndNamespacesFollowTheServedDescription) {
  RadioRefSimOptions renamedOptions;
  renamedOptions.renamedWsdl = true;
  const RadioRefSim standard({}), renamed(renamedOptions);
  const std::string user = action("getUserData"),
                    tag = "http://api.radioreference.com/soap2#getTag";
  const std::string renamedUser = "urn:zel536:rrsim:v2:action:getUserData", ns = kNs;
  struct Case {
    const RadioRefSim* sim;
    std::string soapAction, element, ns;
    int status;
  };
  const std::vector<Case> cases = {
      {&standard, "\"" + tag + "\"", "getTagRequest", ns, 200},
      {&standard, tag, "getTagRequest", ns, 200},
      {&standard, "\"" + ns + "#getMode\"", "getTagRequest", ns, 500},
      {&standard, "", "getTagRequest", ns, 500},
      {&standard, "\"urn:zel536:rrsim:v2:action:getTag\"", "getTagRequest", ns, 500},
      {&standard, user, "getUserDataRequest", ns, 200},
      {&standard, user, "getUserData", ns, 200},
      {&standard, user, "getUserDataRequest", ns + "/", 200},
      {&standard, user, "getUserDataCall", ns, 500},
      {&standard, user, "getUserDataRequest", "urn:other", 500},
      {&renamed, renamedUser, "getUserDataCall", kRenamedNs, 200},
      {&renamed, renamedUser, "getUserData", kRenamedNs, 200},
      {&renamed, renamedUser, "getUserDataRequest", kRenamedNs, 500},
      {&renamed, renamedUser, "getUserDataCall", ns, 500},
      {&renamed, user, "getUserDataCall", kRenamedNs, 500},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.soapAction + " " + c.element + " in " + c.ns);
    const std::string params = c.element == "getTagRequest" ? "<id>0</id>" : "";
    RadioRefSimReply reply = c.sim->call(c.soapAction, envelope(c.element, c.ns, params));
    EXPECT_EQ(reply.status, c.status);
    if (c.status == 500) EXPECT_EQ(faultString(reply.body).rfind("SOAP-ENV:Client|", 0), 0u);
  }
}

TEST(RadioRefSimCall, BodyThatIsNoSoapGetsAClientFault) {
  RadioRefSim sim({});
  for (const std::string body : {"", "not xml at all", "<a><b></a>", "<Envelope/>",
                                 "<S:Envelope xmlns:S=\"x\"><S:Body/></S:Envelope>"}) {
    SCOPED_TRACE(body);
    RadioRefSimReply reply = sim.call(action("getTag"), body);
    EXPECT_EQ(reply.status, 500);
    EXPECT_EQ(faultString(reply.body).rfind("SOAP-ENV:Client|", 0), 0u);
  }
}

TEST(RadioRefSimCall, UnsettledOperationsAndUnknownRecordsFault) {
  RadioRefSim sim({});
  EXPECT_EQ(callOp(sim, "fccGetCallsign", "<callsign>W0AH</callsign>").status, 500);
  EXPECT_EQ(callOp(sim, "getCountyInfo", "<ctid>12</ctid>").status, 500);
  // A list of an unknown system is empty, not a fault.
  RadioRefSimReply sites = callOp(sim, "getTrsSites", "<sid>4</sid>");
  ASSERT_EQ(sites.status, 200);
  EXPECT_NE(sites.body.find("SOAP-ENC:arrayType=\"tns:TrsSite[0]\"/>"), std::string::npos);
}

// Serving calls over HTTP is proved by the client's loopback tests; here only that stop()
// ends the serving.
TEST(RadioRefSimHttp, StopEndsTheServing) {
  RadioRefSim sim({});
  std::string error;
  ASSERT_TRUE(sim.start(&error)) << error;
  ASSERT_GT(sim.port(), 0);
  auto wsdl = httplib::Client("127.0.0.1", sim.port()).Get("/soap2/?wsdl&v=15");
  ASSERT_TRUE(wsdl);
  EXPECT_EQ(wsdl->status, 200);
  sim.stop();
  EXPECT_FALSE(httplib::Client("127.0.0.1", sim.port()).Get("/soap2/?wsdl"));
}

}  // namespace
}  // namespace zel::sim

// The simulated RadioReference service: HTTP on 127.0.0.1 and the dispatch of one call
// (operation by the method element, namespace, SOAPAction, parts, account, then the
// recorded reply or the built-in dataset).
#include "sim/radioref_sim.h"

#include <httplib.h>

#include <chrono>
#include <cstdio>
#include <ctime>
#include <thread>

#include "core/text.h"
#include "sim/radioref_sim_ops.h"
#include "sim/radioref_sim_recorded.h"
#include "sim/radioref_sim_replies.h"
#include "sim/radioref_sim_request.h"
#include "sim/radioref_sim_wsdl.h"
#include "sim/radioref_sim_xml.h"

namespace zel::sim {

using namespace rrsim;

namespace {

RadioRefSimReply fault(std::string_view code, std::string_view message) {
  return {500, "text/xml; charset=utf-8", faultBody(code, message)};
}

// "MM-DD-YYYY", `days` from today.
std::string subscriptionDate(int days) {
  const auto when = std::chrono::system_clock::now() + std::chrono::hours(24 * days);
  const std::time_t t = std::chrono::system_clock::to_time_t(when);
  std::tm tm{};
  gmtime_r(&t, &tm);
  char buffer[48];
  std::snprintf(buffer, sizeof buffer, "%02d-%02d-%04d", tm.tm_mon + 1, tm.tm_mday,
                tm.tm_year + 1900);
  return buffer;
}

std::string stripQuotes(std::string_view text) {
  std::string_view t = trimView(text);
  if (t.size() >= 2 && t.front() == '"' && t.back() == '"') t = t.substr(1, t.size() - 2);
  return std::string(t);
}

}  // namespace

// The server library compresses every reply of a "text/" type that the client accepts
// compressed, and prefers brotli at its slowest setting: a recorded 1.3 MB reply then takes
// two seconds to leave. Media types are case-insensitive, so the type goes out capitalised,
// which the library leaves alone, and the reply goes out as it is.
std::string uncompressedType(std::string type) {
  if (type.rfind("text/", 0) == 0) type[0] = 'T';
  return type;
}

struct RadioRefSim::Impl {
  RadioRefSimOptions options;
  ServedNames names;
  RecordedReplies recorded;
  std::string loadError;
  httplib::Server server;
  std::thread thread;
  int boundPort = 0;

  void delay() const {
    if (options.slowMs > 0) std::this_thread::sleep_for(std::chrono::milliseconds(options.slowMs));
  }

  bool bind(std::string* error) {
    if (!loadError.empty()) {
      if (error) *error = loadError;
      return false;
    }
    // A client sends its headers and body in two writes; without this each call waits on the
    // peer's delayed acknowledgement (some 40 ms) before the body goes out.
    server.set_tcp_nodelay(true);
    server.Get("/soap2/",
               [this](const httplib::Request& req, httplib::Response& res) { serveGet(req, res); });
    server.Get("/soap2/index.php",
               [this](const httplib::Request& req, httplib::Response& res) { serveGet(req, res); });
    auto post = [this](const httplib::Request& req, httplib::Response& res) {
      RadioRefSimReply reply = owner->call(req.get_header_value("SOAPAction"), req.body);
      res.status = reply.status;
      res.set_content(reply.body, uncompressedType(reply.contentType).c_str());
    };
    server.Post("/soap2/index.php", post);
    server.Post("/soap2/", post);
    boundPort = options.port == 0
                    ? server.bind_to_any_port("127.0.0.1")
                    : (server.bind_to_port("127.0.0.1", options.port) ? options.port : -1);
    if (boundPort <= 0) {
      boundPort = 0;
      if (error) *error = "Cannot listen on 127.0.0.1 port " + std::to_string(options.port) + ".";
      return false;
    }
    return true;
  }

  void serveGet(const httplib::Request& req, httplib::Response& res) const {
    if (!req.has_param("wsdl")) {
      res.status = 404;
      res.set_content("Add ?wsdl to get the service description.\n", "text/plain");
      return;
    }
    RadioRefSimReply reply = owner->wsdl();
    res.status = reply.status;
    res.set_content(reply.body, uncompressedType(reply.contentType).c_str());
  }

  const RadioRefSim* owner = nullptr;
};

RadioRefSim::RadioRefSim(RadioRefSimOptions options) : impl_(std::make_unique<Impl>()) {
  impl_->options = std::move(options);
  impl_->names.renamed = impl_->options.renamedWsdl;
  impl_->owner = this;
  if (!impl_->options.dataDir.empty()) {
    impl_->recorded.load(impl_->options.dataDir, &impl_->loadError);
  }
}

RadioRefSim::~RadioRefSim() {
  stop();
}

bool RadioRefSim::start(std::string* error) {
  if (impl_->thread.joinable()) return true;
  if (!impl_->bind(error)) return false;
  impl_->thread = std::thread([this] { impl_->server.listen_after_bind(); });
  // stop() right after start() must find the server running, or it would never end.
  for (int i = 0; i < 500 && !impl_->server.is_running(); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return true;
}

bool RadioRefSim::run(std::string* error) {
  if (!impl_->bind(error)) return false;
  return impl_->server.listen_after_bind();
}

void RadioRefSim::stop() {
  impl_->server.stop();
  if (impl_->thread.joinable()) impl_->thread.join();
}

int RadioRefSim::port() const {
  return impl_->boundPort != 0 ? impl_->boundPort : impl_->options.port;
}

std::string RadioRefSim::endpoint() const {
  return "http://127.0.0.1:" + std::to_string(port()) + "/soap2/";
}

std::string RadioRefSim::loadError() const {
  return impl_->loadError;
}

std::size_t RadioRefSim::recordedCount() const {
  return impl_->recorded.size();
}

RadioRefSimReply RadioRefSim::wsdl() const {
  impl_->delay();
  return {200, "text/xml; charset=ISO-8859-1", writeWsdl(impl_->names, endpoint() + "index.php")};
}

RadioRefSimReply RadioRefSim::call(const std::string& soapAction, const std::string& body) const {
  impl_->delay();
  const ServedNames& names = impl_->names;
  const Request request = parseRequest(body);
  if (!request.ok) return fault("SOAP-ENV:Client", request.error);

  const Operation* op = names.operationForMethod(request.method);
  if (op == nullptr) {
    return fault("SOAP-ENV:Client", "Procedure '" + request.method + "' not present");
  }
  const std::string ns = names.targetNamespace();
  if (request.methodNamespace != ns && request.methodNamespace != ns + "/") {
    return fault("SOAP-ENV:Client", "The method element's namespace '" + request.methodNamespace +
                                        "' is not " + ns + ".");
  }
  const std::string action = stripQuotes(soapAction);
  if (action != names.soapAction(op->name)) {
    return fault("SOAP-ENV:Client",
                 "SOAPAction '" + action + "' does not belong to " + std::string(op->name) + ".");
  }
  for (const Part& part : op->parts) {
    if (!request.has(part.name)) return {500, "text/html; charset=UTF-8", ""};
  }

  const std::string element = names.outputMessage(op->name);
  bool expiredAccount = false;
  if (request.auth) {
    const AuthInfo& auth = *request.auth;
    if (auth.appKey.empty()) return fault("AUTH", "Invalid or missing application key.");
    expiredAccount = auth.username == "expired" && auth.password == "expired";
    const bool demo = auth.username == "demo" && auth.password == "demo";
    if (!demo && !expiredAccount) {
      return {500, "text/xml; charset=ISO-8859-1", authFaultBody()};
    }
    if (expiredAccount && op->name != "getUserData") {
      return fault("AUTH", "Your subscription has expired. Renew it to use the web service.");
    }
  }
  if (!op->answered) {
    return fault("SOAP-ENV:Server",
                 "The operation " + std::string(op->name) + " is not available in this service.");
  }
  if (!expiredAccount) {
    if (auto recorded = impl_->recorded.find(op->name, request)) {
      return {200, "text/xml; charset=utf-8", *recorded};
    }
  }
  if (op->name == "getUserData") {
    return {200, "text/xml; charset=utf-8",
            userDataReply(ns, element, request.auth->username,
                          subscriptionDate(expiredAccount ? -30 : 365))};
  }
  DatasetAnswer answer = datasetAnswer(op->name, request, ns, element);
  if (!answer.found) return fault("SOAP-ENV:Server", answer.notFound);
  return {200, "text/xml; charset=utf-8", answer.body};
}

}  // namespace zel::sim

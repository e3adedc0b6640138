// Shared by the suite's tests: transports for the client (one that speaks real HTTP to a
// server on this machine, the simulated service, and one that answers from a script and
// keeps what was sent), and a parsed reply with its "return" part.
#pragma once

#include <deque>
#include <filesystem>
#include <string>
#include <vector>

#include "core/memory_ports.h"
#include "radioref/http_transport.h"
#include "radioref/rr_queries.h"
#include "radioref/soap_envelope.h"
#include "sim/radioref_sim.h"
#include "test_folder.h"

namespace zel::radioref::test {

class LoopbackTransport : public HttpTransport {
 public:
  HttpReply get(const std::string& url, const std::string& user, const std::string& password,
                int timeoutMs) override;
  HttpReply post(const std::string& url, const std::string& soapAction, const std::string& body,
                 int timeoutMs) override;
  int gets = 0;
  int posts = 0;
};

struct SentRequest {
  std::string url;
  std::string soapAction;  // empty for a GET
  std::string body;
};

class ScriptedTransport : public HttpTransport {
 public:
  HttpReply get(const std::string& url, const std::string& user, const std::string& password,
                int timeoutMs) override;
  HttpReply post(const std::string& url, const std::string& soapAction, const std::string& body,
                 int timeoutMs) override;
  // Replies handed out in order; an empty script answers "connection refused".
  std::deque<HttpReply> replies;
  std::vector<SentRequest> sent;
};

HttpReply ok(std::string body, int status = 200);

// A client and its queries against the simulated service on this machine, over real HTTP.
struct Loopback {
  explicit Loopback(sim::RadioRefSimOptions options = {})
      : sim(options), client(http, feedback, clock), q(client) {
    started = sim.start(&startError);
    client.BaseUrl = sim.endpoint();
    client.WorkFolder = client.documentsFolder = folder.path();
    client.appKeySetting = "12345678";
  }
  TestFolder folder;
  sim::RadioRefSim sim;
  LoopbackTransport http;
  RecordingFeedback feedback;
  ManualClock clock;
  SoapClient client;
  RRQueries q;
  bool started = false;
  std::string startError;
};

// A file's bytes, as they are.
std::string slurp(const std::filesystem::path& path);

// `part` as the "return" element of a reply the way the service writes it.
std::string replyAround(const std::string& part);

// A parsed reply: its response element's name and its first part ("return").
class ParsedReply {
 public:
  explicit ParsedReply(std::string text);
  ParsedReply(const ParsedReply&) = delete;
  ParsedReply& operator=(const ParsedReply&) = delete;
  const SoapNode& part() const { return part_ ? *part_ : empty_; }
  const std::string& response() const { return response_; }
  const std::string& text() const { return text_; }
  const SoapEnvelope& envelope() const { return envelope_; }
  const SoapParseResult& result() const { return result_; }

 private:
  std::string text_;
  SoapEnvelope envelope_;
  SoapParseResult result_;
  std::string response_;
  const SoapNode* part_ = nullptr;
  SoapNode empty_;
};

#ifdef ZEL_REALDATA_DIR
// A reply the live service sent (interface version 18).
inline std::string realReply(const std::string& file) {
  return slurp(std::filesystem::path(ZEL_REALDATA_DIR) / "radioref" / "v18" / file);
}
#endif

}  // namespace zel::radioref::test

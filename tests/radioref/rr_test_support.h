// Transports for the client's tests: one that speaks real HTTP to a server on this machine
// (the simulated service), and one that answers from a script and keeps what was sent.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "radioref/http_transport.h"

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

}  // namespace zel::radioref::test

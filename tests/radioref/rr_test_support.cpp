#include "rr_test_support.h"

#include <httplib.h>

#include <fstream>
#include <iterator>

namespace zel::radioref::test {

namespace {

struct UrlParts {
  std::string base;  // scheme://host:port
  std::string path;  // path and query
};

UrlParts split(const std::string& url) {
  const auto hostStart = url.find("://");
  const auto pathStart = url.find('/', hostStart == std::string::npos ? 0 : hostStart + 3);
  if (pathStart == std::string::npos) return {url, "/"};
  return {url.substr(0, pathStart), url.substr(pathStart)};
}

HttpReply fromResult(const httplib::Result& result) {
  HttpReply reply;
  if (!result) {
    reply.timedOut = result.error() == httplib::Error::Read;
    reply.error = httplib::to_string(result.error());
    return reply;
  }
  reply.completed = true;
  reply.status = result->status;
  reply.body = result->body;
  return reply;
}

void setTimeout(httplib::Client& client, int timeoutMs) {
  const auto sec = timeoutMs / 1000;
  const auto usec = (timeoutMs % 1000) * 1000;
  client.set_read_timeout(sec, usec);
  client.set_connection_timeout(sec, usec);
}

}  // namespace

HttpReply LoopbackTransport::get(const std::string& url, const std::string& user,
                                 const std::string& password, int timeoutMs) {
  ++gets;
  const UrlParts parts = split(url);
  httplib::Client client(parts.base);
  setTimeout(client, timeoutMs);
  (void)user;
  (void)password;
  return fromResult(client.Get(parts.path));
}

HttpReply LoopbackTransport::post(const std::string& url, const std::string& soapAction,
                                  const std::string& body, int timeoutMs) {
  ++posts;
  const UrlParts parts = split(url);
  httplib::Client client(parts.base);
  setTimeout(client, timeoutMs);
  httplib::Headers headers{{"SOAPAction", "\"" + soapAction + "\""}};
  return fromResult(client.Post(parts.path, headers, body, "text/xml; charset=utf-8"));
}

HttpReply ScriptedTransport::get(const std::string& url, const std::string&, const std::string&,
                                 int timeoutMs) {
  return post(url, {}, {}, timeoutMs);
}

HttpReply ScriptedTransport::post(const std::string& url, const std::string& soapAction,
                                  const std::string& body, int) {
  sent.push_back({url, soapAction, body});
  if (replies.empty()) return HttpReply{false, false, 0, {}, "Connection refused"};
  HttpReply r = replies.front();
  replies.pop_front();
  return r;
}

HttpReply ok(std::string body, int status) {
  HttpReply r;
  r.completed = true;
  r.status = status;
  r.body = std::move(body);
  return r;
}

std::string slurp(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::string replyAround(const std::string& part) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?><SOAP-ENV:Envelope "
         "xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\" "
         "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\" "
         "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
         "xmlns:SOAP-ENC=\"http://schemas.xmlsoap.org/soap/encoding/\" "
         "xmlns:tns=\"http://api.radioreference.com/soap2\"><SOAP-ENV:Body>"
         "<ns1:someResponse xmlns:ns1=\"http://api.radioreference.com/soap2\">" +
         part + "</ns1:someResponse></SOAP-ENV:Body></SOAP-ENV:Envelope>";
}

ParsedReply::ParsedReply(std::string text) : text_(std::move(text)) {
  result_ = envelope_.Parse(text_);
  if (!result_.ok || envelope_.Parameters().empty()) return;
  const SoapNode& top = envelope_.Parameters().Item(0);
  response_ = top.Name();
  if (!top.Nodes().empty()) part_ = &top.Nodes().Item(0);
}

}  // namespace zel::radioref::test

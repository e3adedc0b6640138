#pragma once
// The one way the service client reaches the network: a GET of the service description and
// a POST of an envelope. The desktop and the command line adapt it on QtNetwork (TLS, the
// system's proxy); tests may answer from a table.
#include <string>

namespace zel::radioref {

struct HttpReply {
  bool completed = false;  // an answer came (any status); false on a connection error or time-out
  bool timedOut = false;   // the time-out ran out before the answer was complete
  int status = 0;          // HTTP status, 0 when none came
  std::string body;        // what came, also after a time-out
  std::string error;       // the transport's reason when not completed
};

class HttpTransport {
 public:
  virtual ~HttpTransport() = default;
  // GET `url`; `user` and `password` answer an authentication challenge, never more.
  virtual HttpReply get(const std::string& url, const std::string& user,
                        const std::string& password, int timeoutMs) = 0;
  // POST `body` as text/xml with the SOAPAction header.
  virtual HttpReply post(const std::string& url, const std::string& soapAction,
                         const std::string& body, int timeoutMs) = 0;
};

}  // namespace zel::radioref

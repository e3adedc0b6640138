// The service client's HTTP on QtNetwork: TLS, the system's proxy settings, and a local
// event loop so that a call blocks its caller while window events keep running, as the
// client expects. Credentials answer an authentication challenge once and are never sent
// unasked.
#pragma once

#include <QNetworkAccessManager>
#include <memory>

#include "radioref/http_transport.h"

namespace zel {

class QtHttpTransport : public radioref::HttpTransport {
 public:
  QtHttpTransport();
  ~QtHttpTransport() override;
  radioref::HttpReply get(const std::string& url, const std::string& user,
                          const std::string& password, int timeoutMs) override;
  radioref::HttpReply post(const std::string& url, const std::string& soapAction,
                           const std::string& body, int timeoutMs) override;

 private:
  radioref::HttpReply run(class QNetworkReply* reply, int timeoutMs, const std::string& user,
                          const std::string& password);
  std::unique_ptr<QNetworkAccessManager> manager_;
};

}  // namespace zel

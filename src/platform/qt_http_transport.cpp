#include "platform/qt_http_transport.h"

#include <QAuthenticator>
#include <QEventLoop>
#include <QNetworkProxyFactory>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>

namespace zel {

namespace {

QUrl toUrl(const std::string& url) { return QUrl(QString::fromStdString(url)); }

}  // namespace

QtHttpTransport::QtHttpTransport() : manager_(std::make_unique<QNetworkAccessManager>()) {
  QNetworkProxyFactory::setUseSystemConfiguration(true);
}

QtHttpTransport::~QtHttpTransport() = default;

radioref::HttpReply QtHttpTransport::get(const std::string& url, const std::string& user,
                                         const std::string& password, int timeoutMs) {
  QNetworkRequest request(toUrl(url));
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                       QNetworkRequest::NoLessSafeRedirectPolicy);
  return run(manager_->get(request), timeoutMs, user, password);
}

radioref::HttpReply QtHttpTransport::post(const std::string& url, const std::string& soapAction,
                                          const std::string& body, int timeoutMs) {
  QNetworkRequest request(toUrl(url));
  request.setHeader(QNetworkRequest::ContentTypeHeader, "text/xml; charset=utf-8");
  request.setRawHeader("SOAPAction", ("\"" + soapAction + "\"").c_str());
  return run(manager_->post(request, QByteArray::fromStdString(body)), timeoutMs, {}, {});
}

radioref::HttpReply QtHttpTransport::run(QNetworkReply* reply, int timeoutMs,
                                         const std::string& user, const std::string& password) {
  radioref::HttpReply out;
  QByteArray received;
  bool challenged = false;
  QObject::connect(manager_.get(), &QNetworkAccessManager::authenticationRequired, reply,
                   [&](QNetworkReply* r, QAuthenticator* auth) {
                     // One answer only: a second challenge means the login is wrong.
                     if (r != reply || challenged || user.empty()) return;
                     challenged = true;
                     auth->setUser(QString::fromLatin1(user.c_str()));
                     auth->setPassword(QString::fromLatin1(password.c_str()));
                   });
  QObject::connect(reply, &QNetworkReply::readyRead, reply,
                   [&] { received += reply->readAll(); });

  QEventLoop loop;
  QTimer timer;
  timer.setSingleShot(true);
  bool timedOut = false;
  QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
    timedOut = true;
    loop.quit();
  });
  QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
  timer.start(timeoutMs);
  if (!reply->isFinished()) loop.exec();
  timer.stop();

  received += reply->readAll();
  out.body = received.toStdString();
  out.status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  if (timedOut && !reply->isFinished()) {
    out.timedOut = true;
    out.error = "no answer within " + std::to_string(timeoutMs / 1000) + " s";
  } else {
    // A status of any kind is an answer: the service sends its faults with 500.
    out.completed = out.status > 0;
    if (!out.completed) out.error = reply->errorString().toStdString();
  }
  QObject::disconnect(manager_.get(), &QNetworkAccessManager::authenticationRequired, reply,
                      nullptr);
  QObject::disconnect(reply, nullptr, nullptr, nullptr);
  if (!reply->isFinished()) reply->abort();
  delete reply;
  return out;
}

}  // namespace zel

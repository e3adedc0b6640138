#pragma once
// The service client: it reads the service description at the first login of a run and
// takes from it, for every call, the method element's name, the namespace and the
// soapAction. The queries above it only say which operation they want and with what.
//
// One call:
//   SelectOperation(index)            names from the description's tables
//   SetMethod(input message from its fifth character, targetNamespace [+ "/" for getCountyInfo])
//   parameters in order, then authInfo {username, password, appKey, version}
//   POST BaseUrl + "index.php" with SOAPAction, 60 s
//   first body node must be the output message (from its fifth character); its first child
//   is the reply's part.
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ports.h"
#include "radioref/http_transport.h"
#include "radioref/soap_envelope.h"
#include "radioref/wsdl_tables.h"

namespace zel::radioref {

// The texts the user sees, word for word.
inline constexpr std::string_view kWsdlLoadFailed =
    "Error, can't load WSDL site, check firewall settings";
inline constexpr std::string_view kHttpTimeOut = "Unexpected HTTP TimeOut";
inline constexpr std::string_view kInvalidLogin = "Invalid Username or Password";
inline constexpr std::string_view kMissingAppKey =
    "No RadioReference application key is set: enter the key the service issued to you once.";

// One parameter of a call: its xsi:type comes from the description's message part of that
// name, or `fallbackType` when the description has none.
struct SoapParam {
  std::string name;
  std::string value;
  std::string fallbackType;
};

// What one call gave: the reply's envelope when the call succeeded.
struct SoapCallResult {
  bool ok = false;
  SoapEnvelope envelope;
  // The reply's first part, or nullptr when the call failed or the reply's node was nil.
  const SoapNode* part() const;
};

class SoapClient {
 public:
  SoapClient(HttpTransport& http, Feedback& feedback, Clock& clock);

  // Session values: one set for the whole run.
  std::string BaseUrl;     // end point folder ending in "/"
  std::string WorkFolder;  // where the description and the fault log are written
  int DBaseIndex = 0;      // 0 the service, 1 a local test service
  std::string WsdlText;
  std::string LastHttpText;
  std::string RRUser;
  std::string RRPassword;
  std::string RRAppKey;
  std::string RRVersion = "15";
  bool InitDone = false;
  std::string modelNumber = "BCD536HP";  // "Application: " of the fault log
  std::string appKeySetting;              // the key INITSOAP puts into RRAppKey
  std::string versionSetting = "15";      // the interface version INITSOAP puts into RRVersion
  int wsdlTimeoutMs = 30000;
  int callTimeoutMs = 60000;
  // Called when a fault says the login is wrong: the window empties both login fields.
  std::function<void()> onInvalidLogin;
  // A real trace when the user asked for one (debug); the password never reaches it.
  std::function<void(std::string_view)> traceSink;

  std::string WsdlFile() const;

  // Clears the tables, fetches the description afresh (a file left from an earlier run is
  // never read), writes it to WsdlFile and parses it.
  bool INITSOAP();
  bool HTML_GETSOURCE(const std::string& url, const std::string& user, const std::string& password);
  void ParseWSDL();
  // Calls operation `index` with `params` in order; authInfo is added behind them.
  SoapCallResult call(int index, const std::vector<SoapParam>& params);

  void SoapTrace(std::string_view text, bool deleteLog);
  // Deletes WsdlFile, with the two messages the debug box's menu shows.
  void deleteWsdlFile();
  // The developer menu: the last raw XML text to a file (line feeds widened to CR LF), and a
  // file read into LastHttpText. False when the file cannot be written or read.
  bool saveLastXml(const std::string& path) const;
  bool loadXml(const std::string& path);

  const WsdlTables& tables() const { return tables_; }
  const SelectedOperation& selected() const { return selected_; }
  const WsdlParseResult& lastParse() const { return lastParse_; }
  // The last raw XML text the service sent (description or reply).
  const std::string& lastXml() const { return lastXml_; }
  // Why the last call or fetch failed, in one sentence (for the command line); "" after success.
  const std::string& lastError() const { return lastError_; }
  // The fault of the last call, when it was one.
  const std::optional<SoapFault>& lastFault() const { return lastFault_; }
  // The folder of "soaplog.txt" (the documents folder).
  std::string documentsFolder;

 private:
  bool SET_HTTP(SoapEnvelope& envelope);
  void AddAuthInfo(SoapEnvelope& envelope);
  void ReportUnexpectedReturn(std::string_view name);
  void handleFailedReply(const HttpReply& reply, SoapEnvelope& envelope);
  void appendFaultLog(const std::string& reply);
  std::string redact(std::string_view text) const;

  HttpTransport& http_;
  Feedback& feedback_;
  Clock& clock_;
  WsdlTables tables_;
  SelectedOperation selected_;
  WsdlParseResult lastParse_;
  std::string lastXml_;
  std::string lastError_;
  std::optional<SoapFault> lastFault_;
};

}  // namespace zel::radioref

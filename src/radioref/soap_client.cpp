#include "radioref/soap_client.h"

#include <filesystem>
#include <fstream>

#include "core/text.h"
#include "formats/text_file.h"
#include "radioref/rr_operations.h"

namespace zel::radioref {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kFaultName = "Fault";

std::string widenLineFeeds(std::string_view text) {
  std::string out;
  out.reserve(text.size() + text.size() / 32);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r')) out += '\r';
    out += text[i];
  }
  return out;
}

const std::string* partType(const SelectedOperation& op, const std::string& name) {
  for (const auto& [partName, type] : op.InputParts) {
    if (partName == name) return &type;
  }
  return nullptr;
}

std::string durationText(int ms) {
  return ms % 1000 == 0 ? std::to_string(ms / 1000) + " seconds" : std::to_string(ms) + " ms";
}

}  // namespace

const SoapNode* SoapCallResult::part() const {
  if (!ok || envelope.Parameters().Count() == 0) return nullptr;
  const SoapNode& top = envelope.Parameters().Item(0);
  if (top.IsNull() || top.Nodes().Count() == 0) return nullptr;
  return &top.Nodes().Item(0);
}

SoapClient::SoapClient(HttpTransport& http, Feedback& feedback, Clock& clock)
    : http_(http), feedback_(feedback), clock_(clock) {}

std::string SoapClient::WsdlFile() const {
  return (fs::path(WorkFolder) / (DBaseIndex == 0 ? "RR_Soap.wsdl" : "Local.wsdl")).string();
}

bool SoapClient::INITSOAP() {
  SoapTrace("INITSOAP", false);
  tables_.clear();
  selected_ = {};
  WsdlText.clear();
  LastHttpText.clear();
  lastError_.clear();
  RRAppKey = appKeySetting;
  RRVersion = versionSetting;
  if (RRAppKey.empty()) {
    lastError_ = std::string(kMissingAppKey);
    feedback_.message(kMissingAppKey);
    return false;
  }
  // A description written by an earlier run is never read back: the service's own
  // description of today is the one that names the calls.
  const std::string url = BaseUrl + "?wsdl&v=" + RRVersion;
  SoapTrace("INITSOAP1 " + url, false);
  if (!HTML_GETSOURCE(url, RRUser, RRPassword)) {
    feedback_.message(kWsdlLoadFailed);
    if (lastError_.empty()) lastError_ = std::string(kWsdlLoadFailed) + ".";
    return false;
  }
  WsdlText = LastHttpText;
  {
    std::error_code ec;
    fs::create_directories(WorkFolder, ec);
    // A description that cannot be written is no reason to stop: it is never read back.
    (void)formats::writeFileAtomically(WsdlFile(), WsdlText);
  }
  if (WsdlText.empty()) {
    lastError_ = "The service sent an empty service description.";
    return true;
  }
  SoapTrace("INITSOAP8 calling ParseWSDL", false);
  ParseWSDL();
  return true;
}

bool SoapClient::HTML_GETSOURCE(const std::string& url, const std::string& user,
                                const std::string& password) {
  SoapTrace("HTML_GETSOURCE", false);
  const HttpReply reply = http_.get(url, user, password, wsdlTimeoutMs);
  if (reply.timedOut) {
    // The time-out is a message, not a failure: what came is used.
    feedback_.message(kHttpTimeOut);
    lastError_ = "The service description did not come within " + durationText(wsdlTimeoutMs) + ".";
  } else if (!reply.completed) {
    lastError_ = "The service description could not be fetched from " + url + ": " +
                 reply.error + ".";
    SoapTrace("HTML_GETSOURCE_EXIT", false);
    return false;
  }
  SoapTrace("status=" + std::to_string(reply.status), false);
  LastHttpText = reply.body;
  lastXml_ = reply.body;
  SoapTrace("HTML_GETSOURCE6", false);
  return true;
}

void SoapClient::ParseWSDL() {
  SoapTrace("PARSEWSDL ", false);
  lastParse_ = radioref::ParseWSDL(WsdlText, tables_);
  if (!lastParse_.ok) {
    lastError_ = "The service description is not readable";
    if (lastParse_.line > 0) {
      lastError_ += " (line " + std::to_string(lastParse_.line) + ", position " +
                    std::to_string(lastParse_.position) + ")";
    }
    lastError_ += lastParse_.reason.empty() ? "." : ": " + lastParse_.reason + ".";
    if (lastParse_.code != 0) {
      feedback_.message("Error occured when parsing the XML file\nError Code: " +
                            std::to_string(lastParse_.code) +
                            "\nLine Number: " + std::to_string(lastParse_.line) +
                            "\nLine Position: " + std::to_string(lastParse_.position) +
                            "\nReason: " + lastParse_.reason,
                        "XML Parse Error");
    }
  }
  SoapTrace("PARSEWSDL EXIT", false);
}

SoapCallResult SoapClient::call(int index, const std::vector<SoapParam>& params) {
  SoapCallResult result;
  lastError_.clear();
  lastFault_.reset();
  if (RRAppKey.empty()) {
    lastError_ = std::string(kMissingAppKey);
    return result;
  }
  selected_ = SelectOperation(tables_, operationName(index));
  // The method element is named after the description's input message, not the operation.
  std::string ns = tables_.definitions.targetNamespace;
  if (index == opGetCountyInfo) ns += "/";
  result.envelope.SetMethod(fromFifth(selected_.InputMessage), ns);
  result.envelope.setTypeNamespace(tables_.definitions.targetNamespace);
  for (const auto& p : params) {
    const std::string* type = partType(selected_, p.name);
    result.envelope.Parameters().Create(p.name, p.value, type ? *type : p.fallbackType);
  }
  AddAuthInfo(result.envelope);
  if (!SET_HTTP(result.envelope)) return result;

  const SoapNodes& body = result.envelope.Parameters();
  if (body.Count() == 0) {
    lastError_ = "The service's reply has an empty body.";
    return result;
  }
  const SoapNode& top = body.Item(0);
  if (top.Name() != fromFifth(selected_.OutputMessage)) {
    ReportUnexpectedReturn(top.Name());
    return result;
  }
  result.ok = true;
  return result;
}

void SoapClient::AddAuthInfo(SoapEnvelope& envelope) {
  const std::string* type = partType(selected_, "authInfo");
  SoapNode& auth =
      envelope.Parameters().Create("authInfo", {}, type ? *type : std::string("tns:authInfo"));
  auth.setKind(SoapNode::Kind::Structure);
  auth.Nodes().Create("username", RRUser, "xsd:string");
  auth.Nodes().Create("password", RRPassword, "xsd:string");
  auth.Nodes().Create("appKey", RRAppKey, "xsd:string");
  auth.Nodes().Create("version", RRVersion, "xsd:string");
}

bool SoapClient::SET_HTTP(SoapEnvelope& envelope) {
  SoapTrace("SET_HTTP", false);
  const std::string request = envelope.Serialize();
  SoapTrace("SET_HTTP1 " + request, false);
  const HttpReply reply =
      http_.post(BaseUrl + "index.php", selected_.binding.soapAction, request, callTimeoutMs);
  SoapTrace("SET_HTTP2 " + std::to_string(reply.status), false);
  lastXml_ = reply.body;
  SoapTrace("SET_HTTP RESPONSE:" + reply.body, false);
  if (reply.completed && reply.status >= 200 && reply.status < 300) {
    SoapEnvelope parsed;
    const SoapParseResult pr = parsed.Parse(reply.body);
    if (pr.ok && !parsed.isFault()) {
      envelope = std::move(parsed);
      SoapTrace("SET_HTTP3 ", false);
      return true;
    }
  }
  handleFailedReply(reply, envelope);
  return false;
}

void SoapClient::handleFailedReply(const HttpReply& reply, SoapEnvelope& envelope) {
  SoapEnvelope parsed;
  const SoapParseResult pr = parsed.Parse(reply.body);
  if (!pr.ok || parsed.Parameters().Count() == 0 ||
      parsed.Parameters().Item(0).Name() != kFaultName) {
    // Not a fault: no message, the caller's tables stay empty.
    if (reply.timedOut) {
      lastError_ = "The service did not answer within " + durationText(callTimeoutMs) + ".";
    } else if (!reply.completed) {
      lastError_ = "The service could not be reached: " + reply.error + ".";
    } else if (reply.body.empty()) {
      lastError_ = "The service refused the request (HTTP " + std::to_string(reply.status) +
                   ") without a reply.";
    } else {
      lastError_ = "The service's reply is not readable (HTTP " + std::to_string(reply.status) +
                   ")" + (pr.error.empty() ? "." : ": " + pr.error + ".");
    }
    return;
  }
  const SoapFault fault = parsed.fault();
  feedback_.message("FaultCode:   " + fault.faultcode + "\nFaultString: " + fault.faultstring);
  if (startsWith(fault.faultstring, kInvalidLogin) && onInvalidLogin) onInvalidLogin();
  appendFaultLog(reply.body);
  lastFault_ = fault;
  lastError_ = fault.faultstring.empty() ? "The service answered with a fault " + fault.faultcode + "."
                                         : fault.faultstring;
  envelope = std::move(parsed);
}

void SoapClient::appendFaultLog(const std::string& reply) {
  std::error_code ec;
  fs::create_directories(WorkFolder, ec);
  std::ofstream log(fs::path(WorkFolder) / "faultlog.txt", std::ios::binary | std::ios::app);
  if (!log) return;
  // The account's name and password are never written: the labels stand alone.
  log << clock_.date() << "/" << clock_.timeOfDay() << "\r\n"
      << "Application: " << modelNumber << "\r\n"
      << "Key:" << RRAppKey << "\r\n"
      << "USer:" << "\r\n"
      << "PW:" << "\r\n"
      << "Version:" << RRVersion << "\r\n"
      << reply << "\r\n";
}

void SoapClient::ReportUnexpectedReturn(std::string_view name) {
  const std::string text =
      "Unexpected Return:" + std::string(name) + " - " + selected_.OpName;
  feedback_.message(text);
  lastError_ = "The service answered " + std::string(name) + " to " + selected_.OpName + ".";
}

std::string SoapClient::redact(std::string_view text) const {
  if (RRPassword.empty()) return std::string(text);
  std::string out = replaceAll(text, xmlEscape(latin1ToUtf8(RRPassword)), "********");
  return replaceAll(out, RRPassword, "********");
}

void SoapClient::SoapTrace(std::string_view text, bool deleteLog) {
  if (deleteLog) {
    std::error_code ec;
    fs::remove(fs::path(documentsFolder) / "soaplog.txt", ec);
    feedback_.message("Log file deleted.");
    return;
  }
  if (traceSink) traceSink(redact(text));
}

void SoapClient::deleteWsdlFile() {
  const std::string path = WsdlFile();
  feedback_.message("deleting wsdl: " + path);
  std::error_code ec;
  if (!fs::remove(path, ec)) feedback_.message("file not found");
}

bool SoapClient::saveLastXml(const std::string& path) const {
  return formats::writeFileAtomically(path, widenLineFeeds(lastXml_)).ok;
}

bool SoapClient::loadXml(const std::string& path) {
  auto text = formats::readWholeFile(path);
  if (!text) return false;
  LastHttpText = std::move(*text);
  lastXml_ = LastHttpText;
  return true;
}

}  // namespace zel::radioref

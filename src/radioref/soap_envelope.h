#pragma once
// A SOAP 1.1 rpc/encoded envelope: the request the client builds and the reply it parses.
//
//   <?xml version="1.0" encoding="UTF-8"?>
//   <SOAP-ENV:Envelope xmlns:SOAP-ENV=... xmlns:SOAP-ENC=... xmlns:xsi=... xmlns:xsd=...
//       xmlns:tns="TYPE NAMESPACE"
//       SOAP-ENV:encodingStyle="http://schemas.xmlsoap.org/soap/encoding/">
//     <SOAP-ENV:Body>
//       <ns1:METHOD xmlns:ns1="METHOD NAMESPACE">
//         <sid xsi:type="xsd:int">6673</sid>
//         <authInfo xsi:type="tns:authInfo"><username xsi:type="xsd:string">...</username>...
//         <request xsi:type="SOAP-ENC:Array" SOAP-ENC:arrayType="tns:stid[2]"><item ...>
//
// Texts are 8-bit (Latin-1) on our side. A request goes out as UTF-8 with every text escaped;
// a reply is read in the encoding its prolog names (the service sends UTF-8 replies and
// ISO-8859-1 faults) and brought to Latin-1 ("?" for a character Latin-1 lacks).
#include <string>
#include <string_view>

#include "radioref/soap_node.h"

namespace zel::radioref {

struct SoapParseResult {
  bool ok = false;
  std::string error;  // the parser's reason when not ok
  long line = 0;      // 1-based line and position of the error, when known
  long position = 0;
};

struct SoapFault {
  std::string faultcode;
  std::string faultstring;
};

class SoapEnvelope {
 public:
  // The method element of the request: its local name and namespace.
  void SetMethod(std::string_view name, std::string_view ns);
  // The namespace the "tns:" prefix of parameter types stands for.
  void setTypeNamespace(std::string_view ns) { typeNamespace_ = ns; }

  // Before a send: the request's parameters. After Parse: the reply's body nodes, whose first
  // is the response element (getUserDataResponse) with the reply's parts as its children.
  SoapNodes& Parameters() { return parameters_; }
  const SoapNodes& Parameters() const { return parameters_; }

  // The request as XML text; after Parse, the reply's text as it came.
  std::string Serialize() const;

  // Reads a reply. `encoding` empty honours the prolog; otherwise it names the encoding
  // ("UTF-8", "ISO-8859-1"). A Fault body is parsed like any other: see isFault().
  SoapParseResult Parse(std::string_view text, std::string_view encoding = {});

  // After Parse: true when the body's first node is a Fault; its two texts.
  bool isFault() const { return fault_; }
  const SoapFault& fault() const { return faultText_; }

  const std::string& methodName() const { return methodName_; }
  const std::string& methodNamespace() const { return methodNamespace_; }

 private:
  SoapParseResult parseReply(std::string_view text, std::string_view encoding);

  std::string methodName_;
  std::string methodNamespace_;
  std::string typeNamespace_;
  SoapNodes parameters_;
  std::string replyText_;
  bool parsed_ = false;
  bool fault_ = false;
  SoapFault faultText_;
};

// The five XML entities escaped, for text and attribute values alike.
std::string xmlEscape(std::string_view text);
// Latin-1 to UTF-8 and back ("?" for what Latin-1 lacks; bytes of bad UTF-8 kept as they are).
std::string latin1ToUtf8(std::string_view text);
std::string utf8ToLatin1(std::string_view text);

}  // namespace zel::radioref

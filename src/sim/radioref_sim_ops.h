#pragma once
// The operations of the simulated RadioReference service, as its description declares them:
// request parts in order, the type of the reply, the documentation line, and the names under
// which one of the two served descriptions (standard or renamed) publishes each operation.
#include <string>
#include <string_view>
#include <vector>

namespace zel::sim::rrsim {

struct Part {
  std::string_view name;
  std::string_view type;  // "xsd:int", "tns:authInfo", ...
};

struct Operation {
  std::string_view name;
  std::vector<Part> parts;      // request parts in their order, authInfo included
  std::string_view returnType;  // type of the single reply part "return"
  std::string_view documentation;
  bool answered;  // false: declared only, a call gets a fault
};

// Every operation of the service in the order of its description.
const std::vector<Operation>& operations();
const Operation* findOperation(std::string_view name);

// The names one description publishes. The standard one keeps the service's own names; the
// renamed one moves the namespace, the soapActions and the message names.
struct ServedNames {
  bool renamed = false;
  std::string targetNamespace() const;
  std::string inputMessage(std::string_view op) const;   // without the "tns:" prefix
  std::string outputMessage(std::string_view op) const;  // without the "tns:" prefix
  std::string soapAction(std::string_view op) const;
  // The operation whose input message (or bare name) is `element`; nullptr when none is.
  const Operation* operationForMethod(std::string_view element) const;
};

inline constexpr std::string_view kStandardNamespace = "http://api.radioreference.com/soap2";
inline constexpr std::string_view kRenamedNamespace = "urn:zel536:rrsim:v2";

}  // namespace zel::sim::rrsim

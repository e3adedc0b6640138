#pragma once
// Reading one SOAP 1.1 rpc/encoded request of a client: the method element (local name and
// namespace) and its parameters by local name. Prefixes and xsi:type attributes are not
// required; a nil or empty parameter reads as an empty text.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zel::sim::rrsim {

struct AuthInfo {
  std::string username, password, appKey, version;
};

struct Request {
  bool ok = false;
  std::string error;            // when not ok: why the body is no SOAP request
  std::string method;           // local name of the first element of the Body
  std::string methodNamespace;  // its namespace URI ("" when it has none)
  std::vector<std::pair<std::string, std::string>> params;  // in order, authInfo left out
  std::optional<AuthInfo> auth;                             // present when sent

  bool has(std::string_view name) const;
  std::string value(std::string_view name) const;  // "" when absent
  long long integer(std::string_view name) const;  // leading whole number, 0 when none
  double number(std::string_view name) const;
};

Request parseRequest(std::string_view body);

}  // namespace zel::sim::rrsim

// The request reader of the simulated service.
#include "sim/radioref_sim_request.h"

#include <pugixml.hpp>

#include "core/text.h"

namespace zel::sim::rrsim {

namespace {

std::string_view localName(std::string_view name) {
  std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

std::string_view prefixOf(std::string_view name) {
  std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? std::string_view{} : name.substr(0, colon);
}

// The namespace URI bound to the prefix of `node`'s name, looked up through its ancestors.
std::string namespaceOf(pugi::xml_node node) {
  std::string_view prefix = prefixOf(node.name());
  std::string attr = prefix.empty() ? "xmlns" : "xmlns:" + std::string(prefix);
  for (pugi::xml_node n = node; n && n.type() == pugi::node_element; n = n.parent()) {
    if (pugi::xml_attribute a = n.attribute(attr.c_str())) return a.value();
  }
  return {};
}

pugi::xml_node childByLocalName(pugi::xml_node parent, std::string_view name) {
  for (pugi::xml_node child : parent.children()) {
    if (child.type() == pugi::node_element && localName(child.name()) == name) return child;
  }
  return {};
}

pugi::xml_node firstElement(pugi::xml_node parent) {
  for (pugi::xml_node child : parent.children()) {
    if (child.type() == pugi::node_element) return child;
  }
  return {};
}

}  // namespace

bool Request::has(std::string_view name) const {
  if (name == "authInfo") return auth.has_value();
  for (const auto& [key, v] : params) {
    if (key == name) return true;
  }
  return false;
}

std::string Request::value(std::string_view name) const {
  for (const auto& [key, v] : params) {
    if (key == name) return v;
  }
  return {};
}

long long Request::integer(std::string_view name) const {
  return leadingInteger(value(name));
}

double Request::number(std::string_view name) const {
  return leadingNumber(value(name));
}

Request parseRequest(std::string_view body) {
  Request request;
  pugi::xml_document doc;
  pugi::xml_parse_result parsed =
      doc.load_buffer(body.data(), body.size(), pugi::parse_default, pugi::encoding_utf8);
  if (!parsed) {
    request.error = std::string("The request is not XML: ") + parsed.description();
    return request;
  }
  pugi::xml_node envelope = firstElement(doc);
  if (!envelope || localName(envelope.name()) != "Envelope") {
    request.error = "The request has no SOAP Envelope.";
    return request;
  }
  pugi::xml_node soapBody = childByLocalName(envelope, "Body");
  pugi::xml_node method = soapBody ? firstElement(soapBody) : pugi::xml_node{};
  if (!method) {
    request.error = "The request has no method element in its Body.";
    return request;
  }
  request.method = std::string(localName(method.name()));
  request.methodNamespace = namespaceOf(method);
  for (pugi::xml_node param : method.children()) {
    if (param.type() != pugi::node_element) continue;
    std::string name(localName(param.name()));
    if (name == "authInfo") {
      AuthInfo auth;
      auth.username = childByLocalName(param, "username").text().get();
      auth.password = childByLocalName(param, "password").text().get();
      auth.appKey = childByLocalName(param, "appKey").text().get();
      auth.version = childByLocalName(param, "version").text().get();
      request.auth = std::move(auth);
    } else {
      request.params.emplace_back(std::move(name), param.text().get());
    }
  }
  request.ok = true;
  return request;
}

}  // namespace zel::sim::rrsim

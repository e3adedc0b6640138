#include "radioref/soap_envelope.h"

#include <exception>
#include <pugixml.hpp>

#include "radioref/xml_text.h"

namespace zel::radioref {

namespace {

constexpr int kMaxDepth = 128;  // deeper replies are refused rather than walked
constexpr std::string_view kSoapEnv = "http://schemas.xmlsoap.org/soap/envelope/";
constexpr std::string_view kSoapEnc = "http://schemas.xmlsoap.org/soap/encoding/";
constexpr std::string_view kXsi = "http://www.w3.org/2001/XMLSchema-instance";
constexpr std::string_view kXsd = "http://www.w3.org/2001/XMLSchema";

// The name after its prefix, and whether there was one. Names are short: a plain loop beats a
// library call here, where every element and attribute of a large reply passes.
std::string_view localName(const char* qualified, bool* prefixed = nullptr) {
  const char* local = qualified;
  const char* p = qualified;
  for (; *p != '\0'; ++p) {
    if (*p == ':' && local == qualified) local = p + 1;
  }
  if (prefixed != nullptr) *prefixed = local != qualified;
  return std::string_view(local, static_cast<std::size_t>(p - local));
}

pugi::xml_node childByLocalName(pugi::xml_node parent, std::string_view name) {
  for (pugi::xml_node child = parent.first_child(); child; child = child.next_sibling()) {
    if (child.type() == pugi::node_element && localName(child.name()) == name) return child;
  }
  return {};
}

// One element of the reply as a node: xsi:type, xsi:nil and SOAP-ENC:arrayType are read by
// their local names, so that any prefix the service binds to them serves.
bool readNode(pugi::xml_node element, SoapNode& node, int depth) {
  node.setName(utf8ToLatin1(localName(element.name())));
  bool array = false;
  for (pugi::xml_attribute a = element.first_attribute(); a; a = a.next_attribute()) {
    bool prefixed = false;
    const std::string_view local = localName(a.name(), &prefixed);
    if (!prefixed) continue;
    if (local == "type") {
      node.setType(utf8ToLatin1(a.value()));
      if (localName(a.value()) == "Array") array = true;
    } else if (local == "nil") {
      const std::string_view v = a.value();
      node.setNull(v == "true" || v == "1");
    } else if (local == "arrayType") {
      node.setArrayType(utf8ToLatin1(a.value()));
      array = true;
    }
  }
  std::size_t elements = 0;
  for (pugi::xml_node c = element.first_child(); c; c = c.next_sibling()) {
    if (c.type() == pugi::node_element) ++elements;
  }
  if (elements == 0 && !array) {
    if (node.IsNull()) return true;  // a nil node has no text
    std::string text;
    for (pugi::xml_node c = element.first_child(); c; c = c.next_sibling()) {
      if (c.type() == pugi::node_pcdata || c.type() == pugi::node_cdata) {
        appendLatin1(text, c.value());
      }
    }
    if (!text.empty()) node.setValue(std::move(text));
    return true;
  }
  node.setKind(array ? SoapNode::Kind::Array : SoapNode::Kind::Structure);
  if (elements == 0) return true;
  if (depth >= kMaxDepth) return false;
  SoapNodes& children = node.Nodes();
  children.reserve(elements);
  for (pugi::xml_node c = element.first_child(); c; c = c.next_sibling()) {
    if (c.type() != pugi::node_element) continue;
    if (!readNode(c, children.raw().emplace_back(), depth + 1)) return false;
  }
  return true;
}

void appendAttribute(std::string& out, std::string_view name, std::string_view value) {
  out += ' ';
  out += name;
  out += "=\"";
  out += xmlEscape(latin1ToUtf8(value));
  out += '"';
}

// The item type of an array: the declared one without its count, else the first item's type.
std::string arrayItemType(const SoapNode& node) {
  std::string_view declared = node.arrayType();
  declared = declared.substr(0, declared.find('['));
  if (!declared.empty()) return std::string(declared);
  if (!node.Nodes().empty() && !node.Nodes().Item(0).type().empty()) {
    return node.Nodes().Item(0).type();
  }
  return "xsd:anyType";
}

void writeNode(std::string& out, const SoapNode& node) {
  const std::string name = latin1ToUtf8(node.Name());
  out += '<';
  out += name;
  if (node.IsArray()) {
    appendAttribute(out, "xsi:type", "SOAP-ENC:Array");
    appendAttribute(out, "SOAP-ENC:arrayType",
                    arrayItemType(node) + "[" + std::to_string(node.Nodes().Count()) + "]");
  } else {
    if (node.IsNull()) appendAttribute(out, "xsi:nil", "true");
    if (!node.type().empty()) appendAttribute(out, "xsi:type", node.type());
  }
  const bool nested =
      node.IsArray() || node.kind() == SoapNode::Kind::Structure || !node.Nodes().empty();
  if (nested ? node.Nodes().empty() : node.Value().empty()) {
    out += "/>";
    return;
  }
  out += '>';
  if (nested) {
    for (const SoapNode& child : node.Nodes()) writeNode(out, child);
  } else {
    out += xmlEscape(latin1ToUtf8(node.Value()));
  }
  out += "</";
  out += name;
  out += '>';
}

}  // namespace

void SoapEnvelope::SetMethod(std::string_view name, std::string_view ns) {
  methodName_ = name;
  methodNamespace_ = ns;
}

std::string SoapEnvelope::Serialize() const {
  if (parsed_) return replyText_;
  std::string out;
  out.reserve(1024);
  out += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<SOAP-ENV:Envelope";
  appendAttribute(out, "xmlns:SOAP-ENV", kSoapEnv);
  appendAttribute(out, "xmlns:SOAP-ENC", kSoapEnc);
  appendAttribute(out, "xmlns:xsi", kXsi);
  appendAttribute(out, "xmlns:xsd", kXsd);
  const std::string& tns = typeNamespace_.empty() ? methodNamespace_ : typeNamespace_;
  if (!tns.empty()) appendAttribute(out, "xmlns:tns", tns);
  appendAttribute(out, "SOAP-ENV:encodingStyle", kSoapEnc);
  out += "><SOAP-ENV:Body><ns1:";
  out += methodName_;
  appendAttribute(out, "xmlns:ns1", methodNamespace_);
  out += '>';
  for (const SoapNode& parameter : parameters_) writeNode(out, parameter);
  out += "</ns1:";
  out += methodName_;
  out += "></SOAP-ENV:Body></SOAP-ENV:Envelope>";
  return out;
}

SoapParseResult SoapEnvelope::Parse(std::string_view text, std::string_view encoding) {
  try {
    return parseReply(text, encoding);
  } catch (const std::exception& e) {
    parameters_.clear();
    fault_ = false;
    SoapParseResult result;
    result.error = std::string("The reply could not be read: ") + e.what();
    return result;
  }
}

SoapParseResult SoapEnvelope::parseReply(std::string_view text, std::string_view encoding) {
  parameters_.clear();
  fault_ = false;
  faultText_ = {};
  replyText_.assign(text);
  parsed_ = true;

  SoapParseResult result;
  pugi::xml_document doc;
  const XmlLoadResult loaded = loadXml(doc, text, encoding);
  if (!loaded.ok) {
    result.error = loaded.reason;
    result.line = loaded.line;
    result.position = loaded.position;
    return result;
  }
  const pugi::xml_node root = doc.document_element();
  if (localName(root.name()) != "Envelope") {
    result.error =
        "The reply is not a SOAP envelope: its root element is <" + utf8ToLatin1(root.name()) + ">";
    return result;
  }
  const pugi::xml_node body = childByLocalName(root, "Body");
  if (!body) {
    result.error = "The SOAP envelope has no Body";
    return result;
  }
  std::size_t count = 0;
  for (pugi::xml_node c = body.first_child(); c; c = c.next_sibling()) {
    if (c.type() == pugi::node_element) ++count;
  }
  parameters_.reserve(count);
  for (pugi::xml_node c = body.first_child(); c; c = c.next_sibling()) {
    if (c.type() != pugi::node_element) continue;
    if (!readNode(c, parameters_.raw().emplace_back(), 1)) {
      parameters_.clear();
      result.error =
          "The reply nests elements deeper than " + std::to_string(kMaxDepth) + " levels";
      return result;
    }
  }
  if (!parameters_.empty() && parameters_.Item(0).Name() == "Fault") {
    fault_ = true;
    faultText_.faultcode = parameters_.Item(0).childText("faultcode");
    faultText_.faultstring = parameters_.Item(0).childText("faultstring");
  }
  result.ok = true;
  return result;
}

}  // namespace zel::radioref

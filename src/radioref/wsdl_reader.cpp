// The service description read into tables. Every path begins with "//" and so reaches from
// the root of the tree that holds the node it is asked on: each child of the definitions
// element, each complex type of the schema and each operation of a port type or binding is
// therefore copied into a document of its own first, and the path asked on the copy sees that
// subtree and nothing else.
#include <exception>
#include <pugixml.hpp>
#include <string>

#include "radioref/soap_envelope.h"
#include "radioref/wsdl_tables.h"
#include "radioref/xml_text.h"

namespace zel::radioref {

namespace {

// The paths, compiled once a read.
struct Paths {
  pugi::xpath_query definitions{"//definitions"};
  pugi::xpath_query schema{"//xsd:schema"};
  pugi::xpath_query element{"//xsd:element"};
  pugi::xpath_query restriction{"//xsd:restriction"};
  pugi::xpath_query attribute{"//xsd:attribute"};
  pugi::xpath_query part{"//part"};
  pugi::xpath_query operation{"//operation"};
  pugi::xpath_query documentation{"//documentation"};
  pugi::xpath_query input{"//input"};
  pugi::xpath_query output{"//output"};
  pugi::xpath_query soapBinding{"//soap:binding"};
  pugi::xpath_query soapOperation{"//soap:operation"};
  pugi::xpath_query soapBodyBelow{".//soap:body"};
  pugi::xpath_query port{"//port"};
  pugi::xpath_query soapAddressBelow{".//soap:address"};
};

// An attribute as it stands, in our 8-bit text; "" when the node or attribute is absent.
std::string attr(const pugi::xml_node& node, const char* name) {
  return utf8ToLatin1(node.attribute(name).value());
}

std::string text(const pugi::xml_node& node) {
  return utf8ToLatin1(node.child_value());
}

pugi::xml_node first(const pugi::xml_node& from, const pugi::xpath_query& path) {
  return from.select_node(path).node();
}

std::string_view localName(std::string_view qualified) {
  const std::size_t colon = qualified.find(':');
  return colon == std::string_view::npos ? qualified : qualified.substr(colon + 1);
}

// A copy of `node` in a document of its own.
class Copy {
 public:
  explicit Copy(const pugi::xml_node& node) { doc_.append_copy(node); }
  const pugi::xml_document& doc() const { return doc_; }

 private:
  pugi::xml_document doc_;
};

WsdlType readComplexType(const pugi::xml_node& type, const Paths& paths) {
  WsdlType out;
  out.name = attr(type, "name");
  const Copy copy(type);
  const std::string_view how = localName(type.first_child().name());
  if (how == "all") {
    for (const pugi::xpath_node& e : copy.doc().select_nodes(paths.element)) {
      out.elements.emplace_back(attr(e.node(), "name"), attr(e.node(), "type"));
    }
    out.elementCount = static_cast<int>(out.elements.size());
  } else if (how == "complexContent") {
    out.base = attr(first(copy.doc(), paths.restriction), "base");
    const pugi::xml_node attribute = first(copy.doc(), paths.attribute);
    out.ref = attr(attribute, "ref");
    out.arrayType = attr(attribute, "wsdl:arrayType");
  }
  return out;
}

void readTypes(const pugi::xml_document& copy, const Paths& paths, WsdlSchema& schema) {
  const pugi::xml_node node = first(copy, paths.schema);
  if (!node) return;
  schema.targetNamespace = attr(node, "targetNamespace");
  for (const pugi::xml_node& child : node.children()) {
    const std::string_view name = child.name();
    if (name == "xsd:import") {
      schema.imports.push_back(attr(child, "namespace"));
    } else if (name == "xsd:complexType") {
      schema.complexTypes.push_back(readComplexType(child, paths));
    }
  }
}

WsdlMessage readMessage(const pugi::xml_node& node, const pugi::xml_document& copy,
                        const Paths& paths) {
  WsdlMessage out;
  out.name = attr(node, "name");
  for (const pugi::xpath_node& p : copy.select_nodes(paths.part)) {
    out.parts.emplace_back(attr(p.node(), "name"), attr(p.node(), "type"));
  }
  out.partCount = static_cast<int>(out.parts.size());
  return out;
}

WsdlPortType readPortType(const pugi::xml_node& node, const pugi::xml_document& copy,
                          const Paths& paths) {
  WsdlPortType out;
  out.name = attr(node, "name");
  for (const pugi::xpath_node& o : copy.select_nodes(paths.operation)) {
    const Copy op(o.node());
    WsdlPortOperation& operation = out.operations.emplace_back();
    operation.name = attr(o.node(), "name");
    operation.documentation = text(first(op.doc(), paths.documentation));
    operation.inputMessage = attr(first(op.doc(), paths.input), "message");
    operation.outputMessage = attr(first(op.doc(), paths.output), "message");
  }
  return out;
}

WsdlBinding readBinding(const pugi::xml_node& node, const pugi::xml_document& copy,
                        const Paths& paths) {
  WsdlBinding out;
  out.name = attr(node, "name");
  out.type = attr(node, "type");
  const pugi::xml_node soapBinding = first(copy, paths.soapBinding);
  out.style = attr(soapBinding, "style");
  out.transport = attr(soapBinding, "transport");
  for (const pugi::xpath_node& o : copy.select_nodes(paths.operation)) {
    const Copy op(o.node());
    WsdlBindingOperation& operation = out.operations.emplace_back();
    operation.name = attr(o.node(), "name");
    const pugi::xml_node soapOperation = first(op.doc(), paths.soapOperation);
    operation.soapAction = attr(soapOperation, "soapAction");
    operation.style = attr(soapOperation, "style");
    const pugi::xml_node input = first(op.doc(), paths.input);
    const pugi::xml_node inputBody = input ? first(input, paths.soapBodyBelow) : pugi::xml_node();
    operation.inputUse = attr(inputBody, "use");
    operation.inputNamespace = attr(inputBody, "namespace");
    operation.inputEncodingStyle = attr(inputBody, "encodingStyle");
    const pugi::xml_node output = first(op.doc(), paths.output);
    const pugi::xml_node outputBody =
        output ? first(output, paths.soapBodyBelow) : pugi::xml_node();
    operation.outputUse = attr(outputBody, "use");
    operation.outputNamespace = attr(outputBody, "namespace");
    operation.outputEncodingStyle = attr(outputBody, "encodingStyle");
  }
  return out;
}

WsdlService readService(const pugi::xml_node& node, const pugi::xml_document& copy,
                        const Paths& paths) {
  WsdlService out;
  out.name = attr(node, "name");
  const pugi::xml_node port = first(copy, paths.port);
  out.portName = attr(port, "name");
  out.portBinding = attr(port, "binding");
  const pugi::xml_node address = port ? first(port, paths.soapAddressBelow) : pugi::xml_node();
  out.location = attr(address, "location");
  return out;
}

void readDefinitions(const pugi::xml_node& node, WsdlDefinitions& out) {
  out.targetNamespace = attr(node, "targetNamespace");
  out.xmlns = attr(node, "xmlns");
  out.xmlnsSoap = attr(node, "xmlns:soap");
  out.xmlnsSoapEnc = attr(node, "xmlns:SOAP-ENC");
  out.xmlnsSoapEnv = attr(node, "xmlns:SOAP-ENV");
  out.xmlnsWsdl = attr(node, "xmlns:wsdl");
  out.xmlnsTns = attr(node, "xmlns:tns");
  out.xmlnsXsi = attr(node, "xmlns:xsi");
}

WsdlParseResult readTables(std::string_view wsdlText, WsdlTables& tables) {
  WsdlParseResult result;
  pugi::xml_document doc;
  const XmlLoadResult loaded = loadXml(doc, wsdlText, {});
  if (!loaded.ok) {
    result.reason = loaded.reason;
    result.code = loaded.code;
    result.line = loaded.line;
    result.position = loaded.position;
    return result;
  }
  const Paths paths;
  const pugi::xml_node definitions = first(doc, paths.definitions);
  if (!definitions || !definitions.first_child()) {
    result.reason = "The service description has no definitions";
    return result;
  }
  readDefinitions(definitions, tables.definitions);
  for (const pugi::xml_node& child : definitions.children()) {
    const std::string_view name = child.name();
    if (name != "types" && name != "message" && name != "portType" && name != "binding" &&
        name != "service") {
      continue;
    }
    const Copy copy(child);
    if (name == "types") {
      readTypes(copy.doc(), paths, tables.schema);
    } else if (name == "message") {
      tables.messages.push_back(readMessage(child, copy.doc(), paths));
    } else if (name == "portType") {
      tables.portTypes.push_back(readPortType(child, copy.doc(), paths));
    } else if (name == "binding") {
      tables.bindings.push_back(readBinding(child, copy.doc(), paths));
    } else {
      tables.services.push_back(readService(child, copy.doc(), paths));
    }
  }
  result.ok = true;
  return result;
}

}  // namespace

WsdlParseResult ParseWSDL(std::string_view wsdlText, WsdlTables& tables) {
  tables.clear();
  try {
    WsdlParseResult result = readTables(wsdlText, tables);
    if (!result.ok) tables.clear();
    return result;
  } catch (const std::exception& e) {
    tables.clear();
    WsdlParseResult result;
    result.reason = std::string("ParseWSDL: ") + e.what();
    return result;
  }
}

std::string fromFifth(std::string_view name) {
  return name.size() > 4 ? std::string(name.substr(4)) : std::string();
}

SelectedOperation SelectOperation(const WsdlTables& tables, std::string_view opName) {
  SelectedOperation out;
  out.OpName = opName;
  bool portFound = false;
  for (const WsdlPortType& portType : tables.portTypes) {
    for (const WsdlPortOperation& operation : portType.operations) {
      if (!portFound && operation.name == opName) {
        out.InputMessage = operation.inputMessage;
        out.OutputMessage = operation.outputMessage;
        portFound = true;
      }
    }
  }
  // The four characters of the names' namespace prefix are skipped without being looked at.
  const std::string input = fromFifth(out.InputMessage);
  const std::string output = fromFifth(out.OutputMessage);
  bool messageFound = false;
  for (const WsdlMessage& message : tables.messages) {
    if (!input.empty() && message.name == input) {
      out.InputParts = message.parts;
      messageFound = true;
    }
    if (!output.empty() && message.name == output) {
      out.OutputParts = message.parts;
      messageFound = true;
    }
  }
  bool bindingFound = false;
  for (const WsdlBinding& binding : tables.bindings) {
    for (const WsdlBindingOperation& operation : binding.operations) {
      if (!bindingFound && operation.name == opName) {
        out.binding = operation;
        bindingFound = true;
      }
    }
  }
  bool typeFound = false;
  for (const WsdlType& type : tables.schema.complexTypes) {
    if ((!input.empty() && type.name == input) || (!output.empty() && type.name == output)) {
      out.TypeName = type.name;
      out.typeElements = type.elements;
      out.typeArrayType = type.arrayType;
      typeFound = true;
    }
  }
  out.found = portFound && messageFound && bindingFound && typeFound;
  return out;
}

}  // namespace zel::radioref

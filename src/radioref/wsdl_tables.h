#pragma once
// The service description read into tables. Every text is the attribute or element as it
// stands, prefixes included ("tns:getUserDataRequest"); an absent attribute is "".
//
//   <definitions targetNamespace=... xmlns:tns=...>
//     <types><xsd:schema targetNamespace=...><xsd:import namespace=.../>
//       <xsd:complexType name="Talkgroup"><xsd:all><xsd:element name= type=/>...
//       <xsd:complexType name="Talkgroups"><xsd:complexContent><xsd:restriction base=...>
//           <xsd:attribute ref="SOAP-ENC:arrayType" wsdl:arrayType="tns:Talkgroup[]"/>
//     <message name="getTrsTalkgroupsRequest"><part name="sid" type="xsd:int"/>...
//     <portType name=...><operation name=...><documentation/><input message=/><output message=/>
//     <binding name= type=><soap:binding style= transport=/>
//       <operation name=><soap:operation soapAction= style=/>
//         <input><soap:body use= namespace= encodingStyle=/></input><output>...</output>
//     <service name=><port name= binding=><soap:address location=/></port></service>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zel::radioref {

using NameType = std::pair<std::string, std::string>;  // (name, type)

struct WsdlDefinitions {
  std::string targetNamespace;
  std::string xmlns;
  std::string xmlnsSoap;     // xmlns:soap
  std::string xmlnsSoapEnc;  // xmlns:SOAP-ENC
  std::string xmlnsSoapEnv;  // xmlns:SOAP-ENV
  std::string xmlnsWsdl;     // xmlns:wsdl
  std::string xmlnsTns;      // xmlns:tns
  std::string xmlnsXsi;      // xmlns:xsi
};

struct WsdlType {
  std::string name;
  std::vector<NameType> elements;
  int elementCount = 0;
  std::string base;
  std::string ref;
  std::string arrayType;
};

struct WsdlSchema {
  std::string targetNamespace;
  std::vector<std::string> imports;
  std::vector<WsdlType> complexTypes;
};

struct WsdlMessage {
  std::string name;
  std::vector<NameType> parts;
  int partCount = 0;
};

struct WsdlPortOperation {
  std::string name;
  std::string documentation;
  std::string inputMessage;
  std::string outputMessage;
};

struct WsdlPortType {
  std::string name;
  std::vector<WsdlPortOperation> operations;
};

// Nine strings, in this order.
struct WsdlBindingOperation {
  std::string name;
  std::string soapAction;
  std::string style;
  std::string inputUse;
  std::string inputNamespace;
  std::string inputEncodingStyle;
  std::string outputUse;
  std::string outputNamespace;
  std::string outputEncodingStyle;
};

struct WsdlBinding {
  std::string name;
  std::string type;
  std::string style;
  std::string transport;
  std::vector<WsdlBindingOperation> operations;
};

struct WsdlService {
  std::string name;
  std::string portName;
  std::string portBinding;
  std::string location;
};

struct WsdlTables {
  WsdlDefinitions definitions;
  WsdlSchema schema;
  std::vector<WsdlMessage> messages;
  std::vector<WsdlPortType> portTypes;
  std::vector<WsdlBinding> bindings;
  std::vector<WsdlService> services;
  void clear() { *this = WsdlTables{}; }
};

// How a read ended. A document that is not well-formed gives no tables and the parser's
// reason with its line and position; a document without definitions gives no tables either.
struct WsdlParseResult {
  bool ok = false;
  std::string reason;
  int code = 0;  // the XML parser's status number; 0 when the document was well-formed
  long line = 0;
  long position = 0;
};

// Reads `wsdlText` into `tables` (cleared first). Each child of the definitions element is
// copied into a document of its own before it is queried, so that a "//x" path reaches that
// child's subtree and nothing else; the same is done for each complex type of the schema (its
// "//xsd:element" list is its own) and each operation of a port type or binding.
WsdlParseResult ParseWSDL(std::string_view wsdlText, WsdlTables& tables);

// The operation picked for one call.
struct SelectedOperation {
  std::string OpName;
  std::string InputMessage;
  std::string OutputMessage;
  std::vector<NameType> InputParts;
  std::vector<NameType> OutputParts;
  WsdlBindingOperation binding;
  std::string TypeName;
  std::vector<NameType> typeElements;
  std::string typeArrayType;
  bool found = false;  // all four looked-up records found
};

// Looks `opName` up in the tables: the port type operation gives the two message names;
// messages and complex types are compared with those names from their fifth character on
// (the four characters of a "tns:" prefix are skipped without being looked at); the binding
// operation gives the soapAction.
SelectedOperation SelectOperation(const WsdlTables& tables, std::string_view opName);

// `name` from its fifth character; "" when it is shorter.
std::string fromFifth(std::string_view name);

}  // namespace zel::radioref

// The reply writer of the simulated service.
#include "sim/radioref_sim_xml.h"

#include <cstdio>

#include "core/text.h"

namespace zel::sim::rrsim {

namespace {

constexpr std::string_view kEnvelopeOpen =
    "<SOAP-ENV:Envelope SOAP-ENV:encodingStyle=\"http://schemas.xmlsoap.org/soap/encoding/\" "
    "xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\" "
    "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\" "
    "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
    "xmlns:SOAP-ENC=\"http://schemas.xmlsoap.org/soap/encoding/\"";

std::string escaped(std::string_view latin1) {
  return replaceAll(markupEscape(latin1ToUtf8(latin1)), "'", "&apos;");
}

}  // namespace

std::string latin1ToUtf8(std::string_view latin1) {
  std::string out;
  out.reserve(latin1.size());
  for (char c : latin1) {
    auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      out += c;
    } else {
      out += static_cast<char>(0xC0 | (byte >> 6));
      out += static_cast<char>(0x80 | (byte & 0x3F));
    }
  }
  return out;
}

std::string decimalText(double value) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.7f", value);
  std::string text = buffer;
  while (!text.empty() && text.back() == '0') text.pop_back();
  if (!text.empty() && text.back() == '.') text.pop_back();
  if (text == "-0") text = "0";
  return text;
}

ReplyWriter::ReplyWriter(std::string_view ns, std::string_view element) {
  out_ = "<?xml version=\"1.0\" encoding=\"utf-8\"?>";
  out_ += kEnvelopeOpen;
  out_ += " xmlns:tns=\"" + std::string(ns) + "\"><SOAP-ENV:Body>";
  out_ += "<ns1:" + std::string(element) + " xmlns:ns1=\"" + std::string(ns) + "\">";
  open_.push_back("ns1:" + std::string(element));
}

void ReplyWriter::open(std::string_view name, std::string_view type) {
  out_ += std::string("<").append(name) + " xsi:type=\"tns:" + std::string(type) + "\">";
  open_.emplace_back(name);
}

void ReplyWriter::openArray(std::string_view name, std::string_view itemType, std::size_t count) {
  out_ += std::string("<").append(name) +
          " xsi:type=\"SOAP-ENC:Array\" SOAP-ENC:arrayType=\"tns:" + std::string(itemType) + "[" +
          std::to_string(count) + "]\"";
  if (count == 0) {
    out_ += "/>";
    return;
  }
  out_ += ">";
  open_.emplace_back(name);
}

void ReplyWriter::close() {
  if (open_.size() <= 1) return;  // the reply element closes in finish()
  out_ += "</" + open_.back() + ">";
  open_.pop_back();
}

void ReplyWriter::leaf(std::string_view name, std::string_view type,
                       std::string_view escapedValue) {
  std::string n(name);
  if (escapedValue.empty()) {
    out_ += "<" + n + " xsi:type=\"" + std::string(type) + "\"/>";
  } else {
    out_ += "<" + n + " xsi:type=\"" + std::string(type) + "\">" + std::string(escapedValue) +
            "</" + n + ">";
  }
}

void ReplyWriter::text(std::string_view name, std::string_view latin1) {
  leaf(name, "xsd:string", escaped(latin1));
}

void ReplyWriter::textOrNil(std::string_view name, const char* latin1) {
  if (latin1 == nullptr) {
    nil(name, "xsd:string");
  } else {
    text(name, latin1);
  }
}

void ReplyWriter::integer(std::string_view name, long long value) {
  leaf(name, "xsd:int", std::to_string(value));
}

void ReplyWriter::integerOrNil(std::string_view name, long long value, long long nilValue) {
  if (value == nilValue) {
    nil(name, "xsd:int");
  } else {
    integer(name, value);
  }
}

void ReplyWriter::decimal(std::string_view name, double value) {
  leaf(name, "xsd:decimal", decimalText(value));
}

void ReplyWriter::decimal(std::string_view name, std::string_view value) {
  leaf(name, "xsd:decimal", escaped(value));
}

void ReplyWriter::dateTime(std::string_view name, std::string_view value) {
  leaf(name, "xsd:dateTime", escaped(value));
}

void ReplyWriter::boolean(std::string_view name, bool value) {
  leaf(name, "xsd:boolean", value ? "true" : "false");
}

void ReplyWriter::nil(std::string_view name, std::string_view xsdType) {
  out_ += std::string("<").append(name) + " xsi:nil=\"true\" xsi:type=\"" + std::string(xsdType) +
          "\"/>";
}

std::string ReplyWriter::finish() {
  while (!open_.empty()) {
    out_ += "</" + open_.back() + ">";
    open_.pop_back();
  }
  out_ += "</SOAP-ENV:Body></SOAP-ENV:Envelope>";
  return std::move(out_);
}

std::string authFaultBody() {
  return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><SOAP-ENV:Envelope "
         "SOAP-ENV:encodingStyle=\"http://schemas.xmlsoap.org/soap/encoding/\"\n"
         "  xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\"\n"
         "  xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\"\n"
         "  xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"\n"
         "  xmlns:SOAP-ENC=\"http://schemas.xmlsoap.org/soap/encoding/\">\n"
         "<SOAP-ENV:Body><SOAP-ENV:Fault><faultcode xsi:type=\"xsd:string\">AUTH</faultcode>"
         "<faultstring xsi:type=\"xsd:string\">" +
         std::string(kAuthFaultString) +
         "</faultstring><faultactor xsi:type=\"xsd:string\"></faultactor><detail "
         "xsi:type=\"xsd:string\"></detail></SOAP-ENV:Fault></SOAP-ENV:Body></"
         "SOAP-ENV:Envelope>";
}

std::string faultBody(std::string_view code, std::string_view message) {
  std::string out = "<?xml version=\"1.0\" encoding=\"utf-8\"?>";
  out += kEnvelopeOpen;
  out += "><SOAP-ENV:Body><SOAP-ENV:Fault><faultcode xsi:type=\"xsd:string\">" + escaped(code) +
         "</faultcode><faultstring xsi:type=\"xsd:string\">" + escaped(message) +
         "</faultstring><faultactor xsi:type=\"xsd:string\"></faultactor><detail "
         "xsi:type=\"xsd:string\"></detail></SOAP-ENV:Fault></SOAP-ENV:Body></"
         "SOAP-ENV:Envelope>";
  return out;
}

}  // namespace zel::sim::rrsim

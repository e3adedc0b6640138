#pragma once
// Replies of the simulated service in the shape the live service writes them: rpc/encoded,
// every value with its xsi:type, SOAP-ENC arrays of typed items, xsi:nil for absent values,
// all on one line after the prolog. Text given to the writer is Latin-1 (the dataset's
// encoding) and leaves as escaped UTF-8.
#include <string>
#include <string_view>
#include <vector>

namespace zel::sim::rrsim {

std::string latin1ToUtf8(std::string_view latin1);

class ReplyWriter {
 public:
  // Opens the envelope and the reply element `element` in namespace `ns`.
  ReplyWriter(std::string_view ns, std::string_view element);

  // <name xsi:type="tns:type"> ... close()
  void open(std::string_view name, std::string_view type);
  // <name xsi:type="SOAP-ENC:Array" SOAP-ENC:arrayType="tns:item[count]"> ... close();
  // an empty array is written closed at once and needs no close().
  void openArray(std::string_view name, std::string_view itemType, std::size_t count);
  void openItem(std::string_view type) { open("item", type); }
  void close();

  void text(std::string_view name, std::string_view latin1);  // xsd:string
  void textOrNil(std::string_view name, const char* latin1);  // nullptr: xsi:nil
  void integer(std::string_view name, long long value);
  void integerOrNil(std::string_view name, long long value, long long nilValue);
  void decimal(std::string_view name, double value);
  void decimal(std::string_view name, std::string_view value);  // as written
  void dateTime(std::string_view name, std::string_view value);
  void boolean(std::string_view name, bool value);
  void nil(std::string_view name, std::string_view xsdType);

  // Closes whatever is open and returns the reply text.
  std::string finish();

 private:
  void leaf(std::string_view name, std::string_view type, std::string_view escapedValue);
  std::string out_;
  std::vector<std::string> open_;
};

// The fault of the live service for a wrong login, exactly as it sends it (ISO-8859-1).
std::string authFaultBody();
inline constexpr std::string_view kAuthFaultString =
    "Invalid Username or Password.  Make sure you are logging in with your username and not "
    "your email address.";
// A fault in the same layout with another code and text (UTF-8 prolog).
std::string faultBody(std::string_view code, std::string_view message);

// Short decimal text: no trailing zeros, "." as the mark ("851.0125", "100", "-91.6").
std::string decimalText(double value);

}  // namespace zel::sim::rrsim

// Fuzzing the reply reader. The first byte of an input picks the encoding handed to Parse, so
// that the prolog's and a forced one are both tried. Whatever parses is checked for what the
// client relies on, and its parameters are sent out again in a request that must read back.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "radioref/soap_envelope.h"

namespace {

using zel::radioref::SoapNode;
using zel::radioref::SoapNodes;

std::size_t countNodes(const SoapNodes& nodes) {
  std::size_t n = nodes.Count();
  for (const SoapNode& node : nodes) n += countNodes(node.Nodes());
  return n;
}

bool plainNames(const SoapNodes& nodes) {
  for (const SoapNode& node : nodes) {
    const std::string& name = node.Name();
    // A prefix may hide a local name that could not start an element ("<a:1>", "<a:>").
    if (name.empty() || (name[0] >= '0' && name[0] <= '9') || name[0] == '-' || name[0] == '.') {
      return false;
    }
    // A character beyond Latin-1 became "?", which no name may hold: plain names only.
    for (const char c : name) {
      const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                         (c >= '0' && c <= '9') || c == '_' || c == '-' || c == '.';
      if (!plain) return false;
    }
    if (!plainNames(node.Nodes())) return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zel::radioref;
  if (size == 0) return 0;
  static constexpr std::string_view kEncodings[] = {"", "", "UTF-8", "ISO-8859-1"};
  const std::string_view encoding = kEncodings[data[0] & 3];
  const std::string_view text(reinterpret_cast<const char*>(data + 1), size - 1);

  SoapEnvelope reply;
  const SoapParseResult result = reply.Parse(text, encoding);
  if (reply.Serialize() != text) std::abort();
  if (!result.ok) {
    if (result.error.empty() || !reply.Parameters().empty() || reply.isFault()) std::abort();
    return 0;
  }
  if (reply.isFault() && reply.Parameters().Item(0).Name() != "Fault") std::abort();
  for (const SoapNode& node : reply.Parameters()) {
    (void)node.ValueInt();
    (void)node.ValueDouble();
  }

  // What was read goes out again and reads back as as many nodes, when its names can stand
  // in a request.
  if (!plainNames(reply.Parameters())) return 0;
  SoapEnvelope request;
  request.SetMethod("echo", "urn:echo");
  for (const SoapNode& node : reply.Parameters()) request.Parameters().raw().push_back(node);
  SoapEnvelope again;
  if (!again.Parse(request.Serialize()).ok) std::abort();
  if (again.Parameters().Count() != 1) std::abort();
  if (countNodes(again.Parameters().Item(0).Nodes()) != countNodes(reply.Parameters())) {
    std::abort();
  }
  return 0;
}

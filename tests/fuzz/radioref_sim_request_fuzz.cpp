// Fuzzing the simulated RadioReference service's request reader and the dispatch behind it.
// The first byte of an input picks the served description and the SOAPAction sent with the
// rest of the input as the body. Whatever comes, the service answers 200 with well-formed XML
// or 500, and a request the reader refuses never gets a 200.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <pugixml.hpp>
#include <string>

#include "sim/radioref_sim.h"
#include "sim/radioref_sim_request.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zel::sim;
  if (size == 0) return 0;
  static const RadioRefSim standard({});
  static const RadioRefSim renamed([] {
    RadioRefSimOptions options;
    options.renamedWsdl = true;
    return options;
  }());
  static const char* const kActions[] = {
      "http://api.radioreference.com/soap2#getTrsTalkgroups",
      "\"http://api.radioreference.com/soap2#getCountyInfo\"",
      "http://api.radioreference.com/soap2#getUserData",
      "http://api.radioreference.com/soap2#searchCountyFreq",
      "urn:zel536:rrsim:v2:action:getTrsSites",
      "urn:zel536:rrsim:v2:action:getUserData",
      "",
      "http://api.radioreference.com/soap2#getTrsSites",
  };
  const std::uint8_t mode = data[0];
  const std::string body(reinterpret_cast<const char*>(data + 1), size - 1);

  rrsim::Request request = rrsim::parseRequest(body);
  if (request.ok == request.method.empty()) std::abort();  // a read request names its method

  const RadioRefSim& sim = (mode & 1) ? renamed : standard;
  RadioRefSimReply reply = sim.call(kActions[(mode >> 1) & 7], body);
  if (reply.status != 200 && reply.status != 500) std::abort();
  if (reply.status == 200) {
    if (!request.ok) std::abort();
    pugi::xml_document doc;
    if (!doc.load_buffer(reply.body.data(), reply.body.size())) std::abort();
  }
  return 0;
}

#pragma once
// The answers of the built-in dataset, one writer an operation.
#include <string>
#include <string_view>

#include "sim/radioref_sim_request.h"

namespace zel::sim::rrsim {

struct DatasetAnswer {
  bool found = false;    // false: the operation has no answer here, or the record is unknown
  std::string body;      // the reply when found
  std::string notFound;  // why not, for the fault text
};

// The reply of operation `op` to `request`, its reply element `element` in namespace `ns`.
DatasetAnswer datasetAnswer(std::string_view op, const Request& request, std::string_view ns,
                            std::string_view element);

// getUserData's reply for an account.
std::string userDataReply(std::string_view ns, std::string_view element, std::string_view username,
                          std::string_view expires);

}  // namespace zel::sim::rrsim

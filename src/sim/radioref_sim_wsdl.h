#pragma once
// The WSDL of the simulated RadioReference service.
#include <string>

#include "sim/radioref_sim_ops.h"

namespace zel::sim::rrsim {

// The description under `names`, its soap:address at `location` (the server's index.php).
std::string writeWsdl(const ServedNames& names, const std::string& location);

}  // namespace zel::sim::rrsim

// Internal to the vocabulary: the large tables that live in their own files.
#pragma once

#include <string>
#include <vector>

namespace zel::vocab::detail {

const std::vector<std::string>& bandsUs();
const std::vector<std::string>& bandsEurope();
const std::vector<std::string>& bandNames();

}  // namespace zel::vocab::detail

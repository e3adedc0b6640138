#include "scope/sweep_engine.h"

namespace zel::scope {

void Traces::resize(std::size_t bins) {
  for (auto& row : rows) row.assign(bins, 0.0);
}

}  // namespace zel::scope

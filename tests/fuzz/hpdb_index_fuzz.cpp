// hpdb.cfg: the database index's reader of states.
#include "database/hpdb_index.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zel;
  auto states = database::parseIndex(fuzz::textOf(data, size), "/nowhere");
  (void)states;
  return 0;
}

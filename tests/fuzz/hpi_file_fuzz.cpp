// .hpi files: the attribute reader, and the writer on what it read; the written file reads
// back to the same attributes.
#include <cstdlib>

#include "formats/hpi_file.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zel;
  const fuzz::Scratch& s = fuzz::scratch();
  const std::string path = s.write("list.hpi", fuzz::textOf(data, size));
  std::optional<formats::HpiAttributes> read = formats::readHpi(path);
  if (!read) std::abort();  // a plain file always opens
  s.write("again.hpi", formats::formatHpi(*read));
  std::optional<formats::HpiAttributes> again = formats::readHpi(s.folder() + "/again.hpi");
  if (!again || *again != *read) std::abort();
  return 0;
}

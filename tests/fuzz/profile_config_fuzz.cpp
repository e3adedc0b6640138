// profile.cfg: the rewrite with every flag on, on any text. A second rewrite changes nothing,
// and the step on a card folder never leaves a file that it did not read.
#include <cstdlib>

#include "core/memory_ports.h"
#include "formats/profile_config.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zel;
  const std::string_view text = fuzz::textOf(data, size);
  const std::string once = formats::enableAllFlags(text);
  if (formats::enableAllFlags(once) != once) std::abort();
  const fuzz::Scratch& s = fuzz::scratch();
  s.clear();
  s.write("BCDx36HP/profile.cfg", text);
  RecordingFeedback quiet;
  if (formats::enableAllInProfile(s.folder(), "", quiet) == formats::ProfileRewrite::Missing) {
    std::abort();
  }
  return 0;
}

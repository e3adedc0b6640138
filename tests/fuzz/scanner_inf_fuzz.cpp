// scanner.inf: the marker that the card detection reads, and the database index beside it.
#include <cstdlib>

#include "core/memory_ports.h"
#include "core/settings.h"
#include "fuzz_support.h"
#include "transfer/card_detect.h"
#include "transfer/drive_roots.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zel;
  const fuzz::Scratch& s = fuzz::scratch();
  s.clear();
  s.write("card/BCDx36HP/scanner.inf", fuzz::textOf(data, size));
  s.write("card/BCDx36HP/HPDB/hpdb.cfg", fuzz::textOf(data, size));
  transfer::ListDriveRoots roots({s.folder() + "/card"});
  transfer::DetectOptions options;
  MemorySettingsStore store;
  Settings settings(store);
  transfer::CardDetector detector;
  const transfer::CardState& state = detector.detect(roots, options, &settings);
  // A card is accepted only on a model line that names a known model.
  if (state.detected() && !transfer::isAcceptedModelLine(state.modelLine)) std::abort();
  return 0;
}

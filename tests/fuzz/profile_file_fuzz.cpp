// .pfl profiles: the list of favorites files read by Open Profile. The files it names are
// looked for in the scratch folder, where a few exist, so that the reads behind it run too.
#include <cstdlib>

#include "core/document.h"
#include "core/memory_ports.h"
#include "core/page_files.h"
#include "formats/profile_file.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zel;
  const fuzz::Scratch& s = fuzz::scratch();
  s.clear();
  s.write("a.hpd", "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n"
                   "Conventional\t\t\tA\tOff\t\tConventional\r\n");
  const std::string path = s.write("fuzz.pfl", fuzz::textOf(data, size));
  Document doc;
  PageFiles pages(s.folder() + "/pages");
  RecordingFeedback quiet;
  formats::HpdReadOptions base;
  formats::ProfileOpenResult r =
      formats::openProfile(doc, pages, path, base, false, s.folder() + "/data", quiet);
  (void)r;
  return 0;
}

// Open Config File: an f_list.cfg from any source, with the lists it names read from beside
// it. One list file exists, so that a configuration naming it reads it.
#include <cstdlib>

#include "core/document.h"
#include "core/memory_ports.h"
#include "core/page_files.h"
#include "formats/config_file_open.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zel;
  const fuzz::Scratch& s = fuzz::scratch();
  s.clear();
  s.write("lists/f_000001.hpd", "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n"
                                "Conventional\t\t\tA\tOff\t\tConventional\r\n");
  const std::string path = s.write("lists/f_list.cfg", fuzz::textOf(data, size));
  Document doc;
  PageFiles pages(s.folder() + "/pages");
  RecordingFeedback quiet;
  formats::HpdReadOptions base;
  formats::ConfigOpenResult r = formats::openConfigFile(doc, pages, path, base, quiet);
  // Nothing read, nothing in the document.
  if (!r.ok && !r.fileRows.empty()) std::abort();
  return 0;
}

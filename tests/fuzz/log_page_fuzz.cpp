// loggrid.ini: the activity log's saved page. What the page writes, it reads back as the
// same page.
#include <cstdlib>

#include "control/log_page.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zel::control;
  for (int columns : {15, 18}) {
    LogPage page(columns);
    page.fromIni(zel::fuzz::textOf(data, size));
    const std::string ini = page.toIni();
    LogPage again(columns);
    again.fromIni(ini);
    if (again.toIni() != ini) std::abort();
  }
  return 0;
}

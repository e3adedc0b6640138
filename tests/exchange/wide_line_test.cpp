// A line of nothing but separators costs a reader no more than its column cap: each reader of
// outside text stops splitting at its cap instead of cutting a split of the whole line. The
// program's operator new is metered so that the peak of what a read holds is measured.
#include <gtest/gtest.h>

#include <malloc.h>

#include <cstdlib>
#include <functional>
#include <new>
#include <string>

#include "exchange/csv_mapper.h"
#include "formats/favorites_config.h"

namespace {

bool metering = false;
std::size_t heldBytes = 0;
std::size_t peakBytes = 0;

}  // namespace

void* operator new(std::size_t size) {
  void* p = std::malloc(size ? size : 1);
  if (!p) throw std::bad_alloc();
  if (metering) {
    heldBytes += malloc_usable_size(p);
    if (heldBytes > peakBytes) peakBytes = heldBytes;
  }
  return p;
}
void operator delete(void* p) noexcept {
  if (p && metering) heldBytes -= std::min(heldBytes, malloc_usable_size(p));
  std::free(p);
}
void operator delete(void* p, std::size_t) noexcept { operator delete(p); }

namespace zel::exchange {
namespace {

// The peak of bytes held while `read` runs, beyond what was held before.
std::size_t peakOf(const std::function<void()>& read) {
  heldBytes = peakBytes = 0;
  metering = true;
  read();
  metering = false;
  return peakBytes;
}

TEST(WideLines, EveryReaderCapsItsColumnsWhileItSplits) {
  constexpr std::size_t kWidth = 8 << 20;  // 8 MiB of separators on one line
  const std::string tabs = "F-List\t" + std::string(kWidth, '\t') + "\r\n";
  const std::string commas = "154.1,Fire" + std::string(kWidth, ',') + "\r\n";
  const std::string pasted = "Frequency\tAlpha Tag\r\n154.1\tFire" + std::string(kWidth, '\t');
  struct Case {
    const char* reader;
    std::function<void()> read;
  } cases[] = {
      {"f_list.cfg", [&] { (void)formats::parseFavoritesConfig(tabs); }},
      {"CSV file",
       [&] {
         CsvMapper mapper;
         mapper.loadText(commas);
       }},
      {"Paste Frequencies",
       [&] {
         GridPage grid(2, 3);
         grid.setTextMatrix(0, 1, "Frequency");
         grid.setTextMatrix(0, 2, "Alpha Tag");
         (void)pasteFrequencies(grid, pasted, cell::CommitEnv{});
       }},
  };
  for (const Case& c : cases) {
    // A split of the whole line would hold 16 bytes a field: 128 MiB here. A capped reader
    // holds a few copies of the line at most.
    EXPECT_LT(peakOf(c.read), 6 * kWidth) << c.reader;
  }
}

}  // namespace
}  // namespace zel::exchange

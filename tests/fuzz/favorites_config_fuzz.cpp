// f_list.cfg: the file's reader and, on what it read, the writer and the card's rows. What
// the writer writes, the reader reads back as the same lists.
#include <cstdlib>

#include "formats/favorites_config.h"
#include "fuzz_support.h"
#include "transfer/favorites_config.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zel;
  const std::string_view text = fuzz::textOf(data, size);
  formats::FavoritesConfig config = formats::parseFavoritesConfig(text);
  const std::string written = formats::formatFavoritesConfig(config.rows, "F-List");
  formats::FavoritesConfig again = formats::parseFavoritesConfig(written);
  if (again.rows.size() != config.rows.size()) std::abort();
  for (std::size_t i = 0; i < again.rows.size(); ++i) {
    if (again.rows[i].file != config.rows[i].file) std::abort();
  }
  // The card's rows go the same way, names cleaned for the document.
  auto rows = transfer::parseFavoritesConfig(text);
  auto card = transfer::parseFavoritesConfig(transfer::formatFavoritesConfig(rows, "F-List"));
  if (card.size() != rows.size()) std::abort();
  return 0;
}

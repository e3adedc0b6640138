#include "formats/config_file_open.h"

#include <filesystem>

#include "core/text.h"
#include "formats/favorites_config.h"
#include "formats/text_file.h"

namespace zel::formats {

ConfigOpenResult openConfigFile(Document& doc, PageFiles& pages, const std::string& cfgPath,
                                const HpdReadOptions& base, Feedback& feedback) {
  ConfigOpenResult result;
  if (!endsWith(cfgPath, ".cfg") && !endsWith(cfgPath, ".CFG")) return result;
  std::optional<std::string> text = readWholeFile(cfgPath);
  if (!text) return result;
  const std::filesystem::path folder = std::filesystem::path(cfgPath).parent_path();
  // The lines come from the file's one reader; this command takes only the "F-List" spelling.
  const FavoritesConfig config = parseFavoritesConfig(*text);
  for (const FavoritesListRow& list : config.rows) {
    if (!startsWith(list.tag, "F-List")) continue;
    const std::string& listName = list.name;
    const std::string& file = list.file;
    if (file.find(".hpd") == std::string::npos) continue;
    const int row = doc.files.freeRow();
    if (row == 0) {
      feedback.message("Error, maximum number of hpd files is 99!");
      break;
    }
    HpdReadOptions options = base;
    options.fileIndex = row;
    HpdReadResult read = readHpd(doc, pages, (folder / file).string(), options, feedback);
    if (read.ok()) {
      doc.files.set(row, OpenFileTable::ListName, listName);
      result.fileRows.push_back(row);
    }
    result.reads.push_back(std::move(read));
  }
  result.ok = !result.fileRows.empty();
  return result;
}

}  // namespace zel::formats

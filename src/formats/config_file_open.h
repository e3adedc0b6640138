// Open Config File: the favorites lists that a card's f_list.cfg names, each read into the
// next row of the open-file table under its list name.
#pragma once

#include <string>
#include <vector>

#include "core/document.h"
#include "core/page_files.h"
#include "core/ports.h"
#include "formats/hpd_reader.h"

namespace zel::formats {

struct ConfigOpenResult {
  bool ok = false;                   // false when the name is no ".cfg" or nothing was read
  std::vector<int> fileRows;         // open-file rows of the lists read
  std::vector<HpdReadResult> reads;  // one a list with an .hpd file, in file order
};

// `cfgPath` must end ".cfg" or ".CFG", else the command ends with nothing done. The list
// files are found beside the configuration file. The caller rebuilds the visible tree.
ConfigOpenResult openConfigFile(Document& doc, PageFiles& pages, const std::string& cfgPath,
                                const HpdReadOptions& base, Feedback& feedback);

}  // namespace zel::formats

// zel dups FILE [--system N | --all] [--talkgroups]: the Enhanced Find list of a favorites
// file, one row a line: the "Data:" text ("ORG:" or "DUP:" and the value), the node key,
// the alpha tag, the system and the department.
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "cli/command_registry.h"
#include "cli/option_range.h"
#include "cli/rr_listing.h"
#include "core/document.h"
#include "core/keys.h"
#include "core/memory_ports.h"
#include "core/page_files.h"
#include "core/record_line.h"
#include "formats/hpd_reader.h"
#include "grid/duplicates.h"

namespace {

namespace fs = std::filesystem;
using namespace zel;

}  // namespace

ZEL_COMMAND(45) {
  struct Args {
    std::string file;
    int system = 0;
    bool all = false;
    bool talkgroups = false;
  };
  auto args = std::make_shared<Args>();
  auto* cmd = app.add_subcommand("dups", "List duplicate frequencies or talkgroups of a file");
  cmd->add_option("FILE", args->file, "The .hpd file")->required();
  auto* sys = cli::inRange(cmd->add_option("--system", args->system,
                                           "Compare within system N (numbers compare as numbers)"),
                           1, 999, "a system number");
  auto* all = cmd->add_flag("--all", args->all, "Compare across all systems (sorted search)");
  sys->excludes(all);
  cmd->add_flag("--talkgroups", args->talkgroups, "Talkgroups instead of frequencies");
  cmd->add_flag("--json", context.json, "Print a JSON array");
  cmd->callback([args, &context] {
    std::string pattern = (fs::temp_directory_path() / "zel-dups-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw cli::UserError{"Cannot make a temporary folder."};
    struct Cleanup {
      std::string path;
      ~Cleanup() {
        std::error_code ec;
        fs::remove_all(path, ec);
      }
    } cleanup{pattern};
    PageFiles pages(pattern);
    Document doc;
    RecordingFeedback quiet;
    formats::HpdReadOptions options;
    options.fileIndex = 1;
    auto read = formats::readHpd(doc, pages, args->file, options, quiet);
    if (!read.ok()) throw cli::UserError{read.message};

    DocumentTree work;
    std::string error;
    if (!pages.rebuildKeyedRows(work, error, 10000000)) throw cli::UserError{error};
    std::string prefix = args->talkgroups ? "TID-" : "FRQ-";
    std::vector<dups::KeyedRow> rows = dups::rowsOf(work, prefix);
    dups::NameLookup names{[&doc](int s) { return doc.systems.get(s, 1); },
                           [&doc](int s, int d) {
                             NodeId node = doc.data.find(keys::department(s, d));
                             return node ? record::field(doc.data.text(node), 4) : std::string();
                           }};
    std::vector<dups::MatchRow> found =
        args->system > 0 ? dups::pairwiseSearch(rows, prefix, args->system, names)
                         : dups::sortedSearch(rows, prefix, names);
    if (context.json) {
      std::vector<cli::Listing> rows;
      for (const auto& r : found) {
        rows.emplace_back()
            .field("data", r.data)
            .field("key", r.key)
            .field("alphaTag", r.alphaTag)
            .field("subtone", r.subtone)
            .field("system", r.system)
            .field("department", r.department);
      }
      cli::printJsonArray(std::cout, rows);
      return;
    }
    if (found.empty()) std::cout << "No duplicates found.\n";
    for (const auto& r : found) {
      std::cout << r.data << '\t' << r.key << '\t' << r.alphaTag << '\t' << r.system << '\t'
                << r.department << '\n';
    }
  });
}

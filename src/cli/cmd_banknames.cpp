// zel hpd banknames: the department names of a favorites file, listed or renamed.
//   zel hpd banknames FILE                                  one "system<TAB>department" a line
//   zel hpd banknames FILE --rename "Old=New"... -o OUT     renames, then saves as OUT
//
// A name is found by its whole text; a name that more than one department bears is refused,
// as is an empty new name. Nothing is written when any rename is refused.
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/cmd_hpd_common.h"
#include "cli/command_registry.h"
#include "cli/rr_listing.h"
#include "core/document.h"
#include "core/memory_ports.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_writer.h"
#include "formats/row_store.h"
#include "grid/bank_names.h"

namespace {

using namespace zel;

struct BanknamesArgs {
  std::string in;
  std::string out;
  std::vector<std::string> renames;
  bool json = false;
};

// "Old=New" split at the first "=": an old name cannot hold one, a new name can.
std::pair<std::string, std::string> splitRename(const std::string& text) {
  const std::size_t eq = text.find('=');
  if (eq == std::string::npos || eq == 0) {
    throw cli::UserError{"A rename is written \"Old name=New name\": " + text};
  }
  return {text.substr(0, eq), text.substr(eq + 1)};
}

void runBanknames(const BanknamesArgs& args) {
  Document doc;
  formats::MemoryRows rows;
  cli::readHpdOrFail(doc, rows, args.in);
  const std::vector<banks::BankName> names = banks::list(doc.data);

  if (args.renames.empty()) {
    if (args.json) {
      std::vector<cli::Listing> items;
      for (const banks::BankName& b : names) {
        items.emplace_back().field("system", b.system).field("department", b.name).field("key", b.key);
      }
      cli::printJsonArray(std::cout, items);
      return;
    }
    for (const banks::BankName& b : names) std::cout << b.system << '\t' << b.name << '\n';
    if (names.empty()) std::cout << "No departments in " << args.in << ".\n";
    return;
  }
  if (args.out.empty()) throw cli::UserError{"Renaming needs -o OUT, the file to write."};

  std::vector<std::pair<std::string, std::string>> byKey;
  for (const std::string& text : args.renames) {
    auto [from, to] = splitRename(text);
    std::string key;
    for (const banks::BankName& b : names) {
      if (b.name != from) continue;
      if (!key.empty()) {
        throw cli::UserError{"More than one department is named \"" + from + "\"."};
      }
      key = b.key;
    }
    if (key.empty()) throw cli::UserError{"No department is named \"" + from + "\"."};
    byKey.emplace_back(key, to);
  }
  banks::RenameResult renamed = banks::rename(doc, byKey);
  if (!renamed.error.empty()) throw cli::UserError{renamed.error};

  formats::HpdWriteResult written = cli::writeHpdOrFail(doc, rows, args.out);
  if (args.json) {
    cli::printJson(std::cout,
                   cli::Listing().field("renamed", renamed.renamed).field("file", written.path));
    return;
  }
  std::cout << "Renamed " << renamed.renamed
            << (renamed.renamed == 1 ? " department" : " departments") << "; wrote " << written.path
            << "\n";
}

}  // namespace

ZEL_COMMAND(32) {
  (void)context;
  CLI::App* hpd = cli::hpdNoun(app);
  auto args = std::make_shared<BanknamesArgs>();
  auto* cmd =
      hpd->add_subcommand("banknames", "List or rename the departments of a favorites file");
  cmd->add_option("FILE", args->in, "The .hpd file to read")->required();
  cmd->add_option("--rename", args->renames, "\"Old name=New name\" (repeatable)")
      ->allow_extra_args(false);
  cmd->add_option("-o,--out", args->out, "The .hpd file to write (may be FILE itself)");
  cmd->add_flag("--json", args->json,
                "Print the departments (or the count renamed and the file written) as JSON");
  cmd->callback([args] { runBanknames(*args); });
}

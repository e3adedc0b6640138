// zel card write FILE.hpd --name NAME [--overwrite N] and zel card read N... --out FILE.hpd:
// lists between a favorites file and the card, through the document as the desktop does.
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>

#include "cli/cmd_card_common.h"
#include "cli/rr_listing.h"
#include "core/memory_ports.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_writer.h"
#include "transfer/card_transfer.h"

namespace {

namespace fs = std::filesystem;
using namespace zel;

// A page folder of its own for the one document of the command, removed at the end.
class CardScratch {
 public:
  CardScratch() {
    std::string pattern = (fs::temp_directory_path() / "zel-card-XXXXXX").string();
    if (char* made = mkdtemp(pattern.data())) folder_ = made;
    if (folder_.empty()) throw cli::UserError{"Cannot make a temporary folder for the pages."};
    pages = std::make_unique<PageFiles>(folder_);
  }
  ~CardScratch() {
    std::error_code ec;
    fs::remove_all(folder_, ec);
  }
  Document doc;
  std::unique_ptr<PageFiles> pages;

 private:
  std::string folder_;
};

}  // namespace

ZEL_COMMAND(42) {
  auto* cmd = cli::cardNoun(app)->add_subcommand(
      "write", "Save a favorites file on the card as a new list or over list N");
  struct Args {
    std::vector<std::string> roots;
    std::string file;
    std::string name;
    int overwrite = 0;
    bool copyInName = false;
    bool yes = false;
    bool overwriteOrphans = false;
    bool json = false;
  };
  auto a = std::make_shared<Args>();
  cmd->add_option("FILE", a->file, "The .hpd file to save on the card")->required();
  cmd->add_option("--name", a->name, "Name of the new list");
  cli::listNumber(
      cmd->add_option("--overwrite", a->overwrite, "Replace list N, which keeps its number"));
  cmd->add_flag("--copy-in-name", a->copyInName, "Wrap the name as [Fname]");
  cmd->add_flag("--yes", a->yes, "Confirm that the data of the list replaced by --overwrite is lost");
  cmd->add_flag("--overwrite-orphans", a->overwriteOrphans,
                "Let the new list take a number whose file lies on the card unnamed (kept as .bac)");
  cmd->add_option("--root", a->roots, "A folder to look in for a card (repeatable)");
  cmd->add_flag("--json", a->json, "Print the list's number and file as JSON");
  cmd->callback([a, &context] {
    if (a->overwrite > 0 && !a->yes) {
      throw cli::UserError{
          "Warning, data in existing Favorite List will be lost, Continue? Add --yes to confirm."};
    }
    auto card = cli::openCard(context, a->roots);
    card.setOverwriteFiles(a->overwriteOrphans);
    CardScratch scratch;
    RecordingFeedback quiet;
    formats::HpdReadOptions options;
    options.fileIndex = 1;
    auto read = formats::readHpd(scratch.doc, *scratch.pages, a->file, options, quiet);
    if (!read.ok()) throw cli::UserError{read.message};
    transfer::SaveListRequest request;
    request.name = a->name;
    if (a->overwrite > 0) request.overwrite = a->overwrite;
    request.copyInName = a->copyInName;
    auto out = transfer::saveDocumentToCard(card, scratch.doc, *scratch.pages, request, quiet);
    if (!out.status.ok) throw cli::UserError{out.status.message};
    if (a->json) {
      cli::printJson(std::cout, cli::Listing().field("number", out.number).field("file", out.file));
      return;
    }
    std::cout << "Save finished. List " << out.number << " is " << out.file << "\n";
  });
}

ZEL_COMMAND(43) {
  auto* cmd = cli::cardNoun(app)->add_subcommand(
      "read", "Read lists from the card into one favorites file");
  struct Args {
    std::vector<std::string> roots;
    std::vector<int> numbers;
    std::string out;
    bool json = false;
  };
  auto a = std::make_shared<Args>();
  cli::listNumber(
      cmd->add_option("N", a->numbers, "Numbers of the lists, as in f_00000N.hpd")->required());
  cmd->add_option("-o,--out", a->out, "The .hpd file to write")->required();
  cmd->add_option("--root", a->roots, "A folder to look in for a card (repeatable)");
  cmd->add_flag("--json", a->json, "Print the file written and its systems as JSON");
  cmd->callback([a, &context] {
    auto card = cli::openCard(context, a->roots);
    CardScratch scratch;
    RecordingFeedback quiet;
    auto read = transfer::readCardLists(card, a->numbers, scratch.doc, *scratch.pages, quiet);
    if (!read.status.ok) throw cli::UserError{read.status.message};
    formats::HpdWriteOptions options;
    auto written = formats::writeHpd(scratch.doc, *scratch.pages, a->out, options, quiet);
    if (!written.ok()) throw cli::UserError{written.message};
    if (a->json) {
      cli::printJson(std::cout,
                     cli::Listing().field("file", written.path).field("systems", written.systems));
      return;
    }
    std::cout << "Wrote " << written.path << ": " << written.systems << " systems\n";
  });
}

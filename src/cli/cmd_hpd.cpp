// zel hpd: favorites files without a window.
//   zel hpd info FILE [--json]   what a file holds, and one line per system
//   zel hpd convert IN OUT       read IN into a fresh document and save it as OUT
//   zel hpd check FILE [--json]  lines a read passes over, every change a save would make
//
// Each command works on a document of its own whose rows stay in memory, so it never
// touches the page files of a running desktop session.
#include <iostream>
#include <memory>
#include <string>

#include "cli/cmd_hpd_common.h"
#include "cli/command_registry.h"
#include "cli/rr_listing.h"
#include "core/document.h"
#include "core/memory_ports.h"
#include "formats/hpd_check.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_writer.h"
#include "formats/row_store.h"

namespace {

using namespace zel;
using namespace zel::formats;

}  // namespace

namespace zel::cli {

CLI::App* hpdNoun(CLI::App& app) {
  for (CLI::App* sub : app.get_subcommands([](CLI::App* a) { return a->get_name() == "hpd"; })) {
    return sub;
  }
  CLI::App* hpd = app.add_subcommand("hpd", "Favorites files (.hpd): info, convert, check, ...");
  hpd->require_subcommand(1);
  return hpd;
}

HpdReadResult readHpdOrFail(Document& doc, MemoryRows& rows, const std::string& path) {
  RecordingFeedback quiet;
  HpdReadOptions options;
  options.fileIndex = 1;
  HpdReadResult read = readHpd(doc, rows, path, options, quiet);
  if (!read.ok()) throw UserError{read.message};
  return read;
}

HpdWriteResult writeHpdOrFail(Document& doc, MemoryRows& rows, const std::string& path) {
  RecordingFeedback quiet;
  HpdWriteOptions options;
  options.fileIndex = 1;
  HpdWriteResult written = writeHpd(doc, rows, path, options, quiet);
  if (!written.ok()) throw UserError{written.message};
  return written;
}

}  // namespace zel::cli

ZEL_COMMAND(30) {
  (void)context;
  CLI::App* hpd = cli::hpdNoun(app);

  struct InfoArgs {
    std::string file;
    bool json = false;
  };
  auto info = std::make_shared<InfoArgs>();
  auto* infoCmd = hpd->add_subcommand("info", "Level, counts and systems of a favorites file");
  infoCmd->add_option("FILE", info->file, "The .hpd file")->required();
  infoCmd->add_flag("--json", info->json, "Print a JSON object");
  infoCmd->callback([info] {
    Document doc;
    MemoryRows rows;
    HpdReadResult read = cli::readHpdOrFail(doc, rows, info->file);
    std::vector<HpdSystemInfo> systems = systemsRead(doc, read);
    std::cout << (info->json ? formatInfoJson(info->file, read, systems)
                             : formatInfo(info->file, read, systems));
  });

  struct ConvertArgs {
    std::string in;
    std::string out;
    bool json = false;
  };
  auto convert = std::make_shared<ConvertArgs>();
  auto* convertCmd =
      hpd->add_subcommand("convert", "Read a favorites file and save it in the x36-family form");
  convertCmd->add_option("IN", convert->in, "The file to read")->required();
  auto* convertOut = convertCmd->add_option("OUT", convert->out, "The file to write");
  convertCmd->add_option("-o,--out", convert->out, "The file to write (instead of OUT)")
      ->excludes(convertOut);
  convertCmd->add_flag("--json", convert->json, "Print the file written and its systems as JSON");
  convertCmd->callback([convert] {
    if (convert->out.empty()) throw cli::UserError{"Name the file to write with OUT or -o.", 2};
    Document doc;
    MemoryRows rows;
    cli::readHpdOrFail(doc, rows, convert->in);
    RecordingFeedback quiet;
    HpdWriteOptions options;
    options.fileIndex = 1;
    HpdWriteResult written = writeHpd(doc, rows, convert->out, options, quiet);
    if (!written.ok()) throw cli::UserError{written.message};
    if (!written.companionError.empty()) throw cli::UserError{written.companionError};
    if (convert->json) {
      cli::printJson(std::cout,
                     cli::Listing().field("file", written.path).field("systems", written.systems));
      return;
    }
    std::cout << "Wrote " << written.path << ": " << written.systems << " systems\n";
  });

  struct CheckArgs {
    std::string file;
    bool json = false;
  };
  auto check = std::make_shared<CheckArgs>();
  auto* checkCmd = hpd->add_subcommand(
      "check", "Lines a read skips and every change a save would make, by line type and field");
  checkCmd->add_option("FILE", check->file, "The .hpd file")->required();
  checkCmd->add_flag("--json", check->json, "Print a JSON object");
  checkCmd->callback([check] {
    Document doc;
    MemoryRows rows;
    RecordingFeedback quiet;
    HpdCheck result = checkHpd(doc, rows, check->file, quiet);
    if (!result.read.ok()) throw cli::UserError{result.read.message};
    std::cout << (check->json ? formatCheckJson(check->file, result) : formatCheck(result));
  });
}

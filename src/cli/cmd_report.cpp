// zel hpd report: the printed form of a favorites file as an HTML page.
//   zel hpd report FILE [--system N] [-o OUT.html]     to standard output without -o
#include <iostream>
#include <memory>
#include <string>

#include "cli/cmd_hpd_common.h"
#include "cli/command_registry.h"
#include "cli/option_range.h"
#include "core/document.h"
#include "core/keys.h"
#include "core/memory_ports.h"
#include "exchange/print_report.h"
#include "formats/hpd_reader.h"
#include "formats/row_store.h"
#include "formats/text_file.h"

namespace {

using namespace zel;

struct ReportArgs {
  std::string in;
  std::string out;
  int system = 0;
};

void runReport(const ReportArgs& args) {
  Document doc;
  formats::MemoryRows rows;
  cli::readHpdOrFail(doc, rows, args.in);
  if (args.system != 0 && !doc.data.contains(keys::system(args.system))) {
    throw cli::UserError{"No system " + std::to_string(args.system) + " in " + args.in + "."};
  }
  exchange::ReportOptions report;
  report.system = args.system;
  report.title = args.in;
  const std::string html = exchange::favoritesReport(doc, rows, report);
  if (args.out.empty()) {
    std::cout << html;
    return;
  }
  if (!formats::writeFileAtomically(args.out, html).ok) {
    throw cli::UserError{"There was an error saving this file: " + args.out};
  }
  std::cout << "Wrote " << args.out << "\n";
}

}  // namespace

ZEL_COMMAND(33) {
  (void)context;
  CLI::App* hpd = cli::hpdNoun(app);
  auto args = std::make_shared<ReportArgs>();
  auto* cmd = hpd->add_subcommand("report", "The printed form of a favorites file, as HTML");
  cmd->add_option("FILE", args->in, "The .hpd file to read")->required();
  cli::inRange(cmd->add_option("--system", args->system, "Only this system, by its number in the file"),
               1, 999, "a system number");
  cmd->add_option("-o,--out", args->out, "The HTML file to write (default: standard output)");
  cmd->callback([args] { runReport(*args); });
}

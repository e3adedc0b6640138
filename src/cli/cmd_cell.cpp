// zel cell HEADING TEXT: the cell commit at the command line. Prints the stored form of a
// text committed under a column heading, an empty line when the cell would empty, so that
// scripts can clean their own lists by the same rules as the grids.
#include <iostream>
#include <map>

#include "cli/command_registry.h"
#include "cli/rr_listing.h"
#include "core/text.h"
#include "grid/cell_commit.h"

ZEL_COMMAND(40) {
  (void)context;
  auto* cmd = app.add_subcommand("cell", "Print the stored form of TEXT committed under HEADING");
  struct Options {
    std::string heading;
    std::string text;
    std::string region = "us";
    std::string family = "bcd";
    bool airband = false;
    bool decimalComma = false;
    bool json = false;
  };
  auto options = std::make_shared<Options>();
  cmd->add_option("HEADING", options->heading, "Column heading (\"Frequency\", \"NumberTag\", ...)")
      ->required();
  cmd->add_option("TEXT", options->text, "The text as typed or imported")->required();
  cmd->add_option("--region", options->region, "Scanner region: us, eu or au")
      ->check(CLI::IsMember({"us", "eu", "au"}, CLI::ignore_case));
  cmd->add_option("--family", options->family, "Scanner family: bcd or hp")
      ->check(CLI::IsMember({"bcd", "hp"}, CLI::ignore_case));
  cmd->add_flag("--airband", options->airband, "Round VHF Airband to 8.33 / 12.5 / 25 kHz steps.");
  cmd->add_flag("--decimal-comma", options->decimalComma,
                "Work as on a system whose decimal sign is a comma");
  cmd->add_flag("--json", options->json, "Print the heading, the text and its stored form as JSON");
  cmd->callback([options] {
    zel::cell::FrequencyRules rules;
    std::string region = zel::toLower(options->region);
    if (region == "eu") rules.region = zel::cell::Region::Europe;
    if (region == "au") rules.region = zel::cell::Region::Australia;
    rules.family =
        zel::toLower(options->family) == "hp" ? zel::ScannerFamily::HP : zel::ScannerFamily::BCD;
    rules.airband = options->airband;
    rules.mark = options->decimalComma ? zel::DecimalMark::comma() : zel::DecimalMark::point();
    zel::cell::CommitResult result = zel::cell::commitText(options->heading, options->text, rules);
    switch (result.status) {
      case zel::cell::CommitStatus::UnknownHeading:
        throw zel::cli::UserError{"define table cgrid " + options->heading};
      case zel::cell::CommitStatus::Failed:
        throw zel::cli::UserError{"\"" + options->text +
                                  "\" cannot be read as a number; the cell keeps its value."};
      case zel::cell::CommitStatus::Stored:
        break;
    }
    if (options->json) {
      zel::cli::printJson(std::cout, zel::cli::Listing()
                                         .field("heading", options->heading)
                                         .field("text", options->text)
                                         .field("stored", result.text));
      return;
    }
    std::cout << result.text << '\n';
  });
}

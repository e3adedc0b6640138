// zel hpd bulk-set: the bulk channel editor without a window. It reads a favorites file,
// ticks the talkgroups or conventional frequencies of the chosen systems and departments,
// applies the settings in the order of the editor's table, and saves the result under a
// new name (written to a temporary name first, so a failed save leaves no cut file).
//
//   zel hpd bulk-set IN.hpd --scope talkgroups --system "Metro P25" --department Fire
//                    --set "Delay:=5" --set "Alert Tone=3" -o OUT.hpd [--json]
//
// The settings are named by the editor's captions, with or without the colon; a value must
// be a word of the setting's list.
#include <iostream>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "cli/cmd_hpd_common.h"
#include "cli/command_registry.h"
#include "cli/rr_listing.h"
#include "core/document.h"
#include "core/memory_ports.h"
#include "core/text.h"
#include "database/bulk_edit.h"
#include "database/bulk_lists.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_writer.h"
#include "formats/row_store.h"

namespace {

using namespace zel;

struct BulkSetArgs {
  std::string in;
  std::string out;
  std::string scope;
  std::string system;
  std::vector<std::string> departments;
  std::vector<std::string> sets;
  bool json = false;
};

// The departments named on the command line, among those the scope lists; all of them when
// none is named.
std::set<std::string> chosenDepartments(const std::vector<bulk::NodeEntry>& listed,
                                        const std::vector<std::string>& names) {
  std::set<std::string> out;
  if (names.empty()) {
    for (const bulk::NodeEntry& n : listed) out.insert(n.key);
    return out;
  }
  for (const std::string& name : names) {
    bool found = false;
    for (const bulk::NodeEntry& n : listed) {
      if (!iequals(n.name, trim(name))) continue;
      out.insert(n.key);
      found = true;
    }
    if (!found) throw cli::UserError{"No department named \"" + name + "\" in the chosen systems."};
  }
  return out;
}

void runBulkSet(const BulkSetArgs& args) {
  const bulk::Scope scope =
      iequals(args.scope, "talkgroups") ? bulk::Scope::TalkGroups : bulk::Scope::Frequencies;
  const char* rowWord = scope == bulk::Scope::TalkGroups ? "talkgroups" : "frequencies";

  // The settings are checked before the file is read, so a typing error costs nothing.
  std::vector<bulk::ChannelChange> changes;
  for (const std::string& text : args.sets) {
    bulk::ParsedChange parsed = bulk::parseChange(text, scope);
    if (!parsed.change) throw cli::UserError{parsed.error};
    changes.push_back(*parsed.change);
  }

  Document doc;
  formats::MemoryRows rows;
  cli::readHpdOrFail(doc, rows, args.in);

  int system = 0;
  if (!args.system.empty()) {
    std::optional<int> found = bulk::systemNamed(doc, scope, args.system);
    if (!found) {
      throw cli::UserError{
          "No " + std::string(scope == bulk::Scope::TalkGroups ? "trunked" : "conventional") +
          " system \"" + args.system + "\" in " + args.in + "."};
    }
    system = *found;
  }
  const std::set<std::string> departments =
      chosenDepartments(bulk::listNodes(doc, scope, system), args.departments);
  const std::vector<std::string> ticked =
      bulk::channelsOfDepartments(bulk::listChannels(doc, rows, scope, system), departments);
  if (ticked.empty())
    throw cli::UserError{std::string("The chosen departments hold no ") + rowWord + "."};

  RecordingFeedback quiet;
  bulk::BulkResult result = bulk::applyToChannels(doc, rows, ticked, changes, quiet);
  if (!result.ok) throw cli::UserError{result.message};

  formats::HpdWriteResult written = cli::writeHpdOrFail(doc, rows, args.out);

  if (args.json) {
    cli::printJson(std::cout, cli::Listing()
                                  .field("file", written.path)
                                  .field("scope", rowWord)
                                  .field("ticked", static_cast<long long>(ticked.size()))
                                  .field("changed", result.changed)
                                  .field("departments", static_cast<long long>(departments.size()))
                                  .field("pages", result.pages));
  } else {
    std::cout << "Changed " << result.changed << " of " << ticked.size() << " " << rowWord << " in "
              << departments.size() << (departments.size() == 1 ? " department" : " departments")
              << "; wrote " << written.path << "\n";
  }
}

}  // namespace

ZEL_COMMAND(31) {
  (void)context;
  CLI::App* hpd = cli::hpdNoun(app);
  auto args = std::make_shared<BulkSetArgs>();
  auto* cmd = hpd->add_subcommand(
      "bulk-set", "Set one or more channel settings on many talkgroups or frequencies at once");
  cmd->add_option("FILE", args->in, "The .hpd file to read")->required();
  cmd->add_option("-o,--out", args->out, "The .hpd file to write (may be FILE itself)")->required();
  cmd->add_option("--scope", args->scope, "talkgroups or frequencies")
      ->required()
      ->transform(CLI::IsMember({"talkgroups", "frequencies"}, CLI::ignore_case));
  cmd->add_option("--system", args->system,
                  "A system by number or name (default: every system of the scope's kind)");
  cmd->add_option("--department", args->departments,
                  "A department by name (repeatable; default: every department)")
      ->allow_extra_args(false);
  cmd->add_option("--set", args->sets,
                  "A setting as caption=value, such as \"Delay:=5\" (repeatable)")
      ->allow_extra_args(false)
      ->required();
  cmd->add_flag("--json", args->json, "Print the counts as a JSON object");
  cmd->callback([args] { runBulkSet(*args); });
}

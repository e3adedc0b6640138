// zel card list | delete | order | orphans | qkeys | enable-all: the favorites lists of the
// card.
#include <csignal>
#include <iostream>
#include <memory>

#include "cli/cmd_card_common.h"
#include "cli/option_range.h"
#include "cli/rr_listing.h"
#include "core/memory_ports.h"
#include "formats/profile_config.h"
#include "formats/text_file.h"
#include "transfer/favorites_card.h"
#include "transfer/service_search.h"

namespace zel::cli {

namespace {

struct CardArgs {
  std::vector<std::string> roots;
  bool json = false;
};

std::shared_ptr<CardArgs> addCardArgs(CLI::App* cmd) {
  auto args = std::make_shared<CardArgs>();
  cmd->add_option("--root", args->roots, "A folder to look in for a card (repeatable)");
  return args;
}

std::string listsWord(std::size_t n) {
  return std::to_string(n) + (n == 1 ? " list" : " lists");
}

void fail(const transfer::StepStatus& st) {
  if (!st.ok) throw UserError{st.message};
}

std::vector<Listing> rowListings(const transfer::FavoritesCard& card) {
  std::vector<Listing> out;
  for (const auto& r : card.rows()) {
    Listing& l = out.emplace_back();
    l.field("number", transfer::listFileNumber(r.file))
        .field("name", r.name)
        .field("file", r.file)
        .field("tag", r.tag)
        .field("monitor", r.monitor)
        .field("locationControl", r.locationControl)
        .field("quickKey", r.quickKey)
        .field("numberTag", r.numberTag)
        .field("startupKeys", r.startupKeys)
        .field("systemKeys", r.systemKeys);
  }
  return out;
}

void printRows(const transfer::FavoritesCard& card, bool json) {
  const auto& rows = card.rows();
  if (json) {
    printJsonArray(std::cout, rowListings(card));
    return;
  }
  if (rows.empty()) std::cout << "No favorites lists on the card.\n";
  for (const auto& r : rows) {
    const int n = transfer::listFileNumber(r.file);
    const bool present = zel::formats::fileExists(card.paths().path(r.file));
    std::cout << (n >= 0 ? std::to_string(n) : std::string("?")) << "\t" << r.file << "\t" << r.name
              << "\tMonitor " << r.monitor << "\tQK " << r.quickKeyText()
              << (present ? "" : "\t(file missing)") << "\n";
  }
}

}  // namespace

// Finds the card and reads its configuration: the start of every list command.
transfer::FavoritesCard openCard(Context& context, const std::vector<std::string>& roots) {
  // A write that hits the file size limit must fail and roll back, not end the process.
  std::signal(SIGXFSZ, SIG_IGN);
  transfer::CardDetector detector;
  auto state = requireCard(context, roots, detector);
  transfer::FavoritesCard card(state);
  fail(card.load());
  return card;
}

}  // namespace zel::cli

using zel::cli::addCardArgs;
using zel::cli::listNumber;
using zel::cli::listsWord;
using zel::cli::cardNoun;
using zel::cli::openCard;
using zel::cli::UserError;

ZEL_COMMAND(41) {
  auto* cmd =
      cardNoun(app)->add_subcommand("list", "List the favorites lists in the scanner's order");
  auto args = addCardArgs(cmd);
  cmd->add_flag("--json", args->json, "Print the lists as JSON");
  cmd->callback([args, &context] {
    auto card = openCard(context, args->roots);
    zel::cli::printRows(card, args->json);
  });
}

ZEL_COMMAND(44) {
  auto* cmd =
      cardNoun(app)->add_subcommand("delete", "Delete a favorites list (its file is kept as .bac)");
  auto args = addCardArgs(cmd);
  auto number = std::make_shared<int>(0);
  auto yes = std::make_shared<bool>(false);
  listNumber(cmd->add_option("N", *number, "Number of the list, as in f_00000N.hpd")->required());
  cmd->add_flag("--yes", *yes, "Confirm that the list's data may be lost");
  cmd->add_flag("--json", args->json, "Print the number of the list deleted as JSON");
  cmd->callback([args, number, yes, &context] {
    if (!*yes) {
      throw UserError{
          "Warning, all data in existing Favorite List will be lost, Continue? Add --yes to "
          "confirm."};
    }
    auto card = openCard(context, args->roots);
    zel::cli::fail(card.deleteList(*number));
    if (args->json) {
      zel::cli::printJson(std::cout, zel::cli::Listing().field("deleted", *number));
      return;
    }
    std::cout << "Favorites list " << *number << " deleted.\n";
  });
}

ZEL_COMMAND(45) {
  auto* cmd = cardNoun(app)->add_subcommand(
      "order", "Put the named lists first, in this order, and write the configuration");
  auto args = addCardArgs(cmd);
  auto numbers = std::make_shared<std::vector<int>>();
  listNumber(cmd->add_option("N", *numbers, "List numbers in the new order")->required());
  cmd->add_flag("--json", args->json, "Print the lists in their new order as JSON");
  cmd->callback([args, numbers, &context] {
    auto card = openCard(context, args->roots);
    zel::cli::fail(card.reorder(*numbers));
    zel::cli::printRows(card, args->json);
    if (!args->json) std::cout << "Wrote the order of " << listsWord(card.rows().size()) << ".\n";
  });
}

ZEL_COMMAND(46) {
  auto* cmd = cardNoun(app)->add_subcommand(
      "orphans", "List files that no entry of the configuration names; recover or delete them");
  auto args = addCardArgs(cmd);
  auto recover = std::make_shared<std::vector<std::string>>();
  auto remove = std::make_shared<std::vector<std::string>>();
  auto yes = std::make_shared<bool>(false);
  auto overwriteOrphans = std::make_shared<bool>(false);
  cmd->add_option("--recover", *recover, "Add an orphan as a list at the next free number");
  cmd->add_option("--delete", *remove, "Delete an orphan file");
  cmd->add_flag("--yes", *yes, "Confirm the deletion");
  cmd->add_flag("--json", args->json,
                "Print the files recovered, deleted and still orphaned as JSON");
  cmd->add_flag("--overwrite-orphans", *overwriteOrphans,
                "Let a recovered list take a number whose file lies on the card unnamed");
  cmd->callback([args, recover, remove, yes, overwriteOrphans, &context] {
    auto card = openCard(context, args->roots);
    card.setOverwriteFiles(*overwriteOrphans);
    if (!remove->empty() && !*yes) {
      throw UserError{"Are you sure you want to delete the selected files? Add --yes to confirm."};
    }
    std::vector<zel::cli::Listing> recovered, deleted, orphans;
    for (const auto& f : *recover) {
      auto out = card.recoverOrphan(f);
      zel::cli::fail(out.status);
      recovered.emplace_back().field("file", f).field("list", out.file);
      if (!args->json) std::cout << f << " recovered as " << out.file << "\n";
    }
    for (const auto& f : *remove) {
      zel::cli::fail(card.deleteOrphan(f));
      deleted.emplace_back().field("file", f);
      if (!args->json) std::cout << f << " deleted.\n";
    }
    for (const auto& f : card.orphans()) orphans.emplace_back().field("file", f);
    if (args->json) {
      zel::cli::Listing result;
      result.list("recovered", "Recovered") = std::move(recovered);
      result.list("deleted", "Deleted") = std::move(deleted);
      result.list("orphans", "Orphans") = std::move(orphans);
      zel::cli::printJson(std::cout, result);
    } else if (recover->empty() && remove->empty()) {
      for (const auto& f : card.orphans()) std::cout << "Orphan " << f << "\n";
      if (orphans.empty()) std::cout << "No orphan files.\n";
    }
  });
}

ZEL_COMMAND(47) {
  auto* cmd = cardNoun(app)->add_subcommand("qkeys", "Set the quick keys of every list");
  auto args = addCardArgs(cmd);
  auto what = std::make_shared<std::string>();
  cmd->add_option("WHAT", *what,
                  "auto: Auto Assign Qkey; clear: Clear FL Qkey; on: All Sys Qkey On; all: All On")
      ->required()
      ->check(CLI::IsMember({"auto", "clear", "on", "all"}));
  cmd->add_flag("--json", args->json, "Print the lists with their new quick keys as JSON");
  cmd->callback([args, what, &context] {
    using zel::transfer::QuickKeyCommand;
    auto card = openCard(context, args->roots);
    QuickKeyCommand c = QuickKeyCommand::Auto;
    if (*what == "clear") c = QuickKeyCommand::Clear;
    if (*what == "on") c = QuickKeyCommand::SystemsOn;
    if (*what == "all") c = QuickKeyCommand::AllOn;
    zel::cli::fail(card.quickKeys(c));
    zel::cli::printRows(card, args->json);
    if (!args->json) std::cout << "Set the quick keys of " << listsWord(card.rows().size()) << ".\n";
  });
}

ZEL_COMMAND(48) {
  auto* cmd = cardNoun(app)->add_subcommand(
      "service",
      "Add a prepared Service Search list (cb, frs, gmrs, marine, railroad, ham2m, "
      "ham70cm, air) at the next free number");
  auto args = addCardArgs(cmd);
  auto key = std::make_shared<std::string>();
  auto save = std::make_shared<std::string>();
  cmd->add_option("WHICH", *key, "The service")->required();
  cmd->add_option("--save-to", *save, "Write the list to this folder instead of the card");
  cmd->add_flag("--json", args->json, "Print the file written (and its list number) as JSON");
  cmd->callback([args, key, save, &context] {
    const auto* list = zel::transfer::findServiceSearch(*key);
    if (!list) throw UserError{"There is no Service Search list " + *key + "."};
    if (!save->empty()) {
      const std::string path = *save + "/" + list->fileName;
      if (!zel::formats::writeFileAtomically(path, list->text).ok) {
        throw UserError{"Cannot write " + path + "."};
      }
      if (args->json) {
        zel::cli::printJson(std::cout,
                            zel::cli::Listing().field("file", path).field("channels", list->channels));
        return;
      }
      std::cout << path << ": " << list->channels << " channels\n";
      return;
    }
    auto card = openCard(context, args->roots);
    auto out = card.saveList(list->text, list->caption, std::nullopt, false);
    zel::cli::fail(out.status);
    if (args->json) {
      zel::cli::printJson(std::cout, zel::cli::Listing()
                                         .field("list", list->caption)
                                         .field("number", out.number)
                                         .field("file", out.file));
      return;
    }
    std::cout << list->caption << " added as " << out.file << "\n";
  });
}

ZEL_COMMAND(49) {
  auto* cmd = cardNoun(app)->add_subcommand(
      "enable-all",
      "Enable All Quickkeys/Service Type: every startup and system quick key of the lists on, "
      "and every service type, custom type and quick key of profile.cfg");
  auto args = addCardArgs(cmd);
  auto numbers = std::make_shared<std::vector<int>>();
  listNumber(cmd->add_option("N", *numbers, "Numbers of the lists (all lists when none is given)"));
  cmd->add_flag("--json", args->json, "Print the lists and whether profile.cfg was found as JSON");
  cmd->callback([args, numbers, &context] {
    auto card = openCard(context, args->roots);
    std::vector<int> rows;
    for (int n : *numbers) {
      const int row = card.rowOfNumber(n);
      if (row < 0) throw UserError{"There is no favorites list " + std::to_string(n) + "."};
      rows.push_back(row);
    }
    if (numbers->empty()) {
      for (std::size_t i = 0; i < card.rows().size(); ++i) rows.push_back(static_cast<int>(i));
    }
    card.enableAllKeys(rows);
    zel::cli::fail(card.writeConfig());
    // The window's step shows "fix" first; here nothing is shown.
    zel::RecordingFeedback quiet;
    const std::string cardRoot =
        std::filesystem::path(card.paths().folder).parent_path().parent_path().string();
    using zel::formats::ProfileRewrite;
    const ProfileRewrite profile =
        zel::formats::enableAllInProfile(cardRoot, "1111111111", quiet);
    if (profile != ProfileRewrite::Failed && args->json) {
      zel::cli::Listing result;
      result.field("profile", profile == ProfileRewrite::Written ? "every flag on" : "not found");
      result.list("lists", "Lists") = zel::cli::rowListings(card);
      zel::cli::printJson(std::cout, result);
      return;
    }
    if (!args->json) zel::cli::printRows(card, false);
    if (profile == ProfileRewrite::Failed) {
      throw UserError{"The lists were written, but profile.cfg could not be rewritten and is "
                      "as it was."};
    }
    std::cout << (profile == ProfileRewrite::Written ? "profile.cfg: every flag on\n"
                                                     : "profile.cfg: not found, left alone\n");
  });
}

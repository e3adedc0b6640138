// zel sim card DIR [--model M]: a scanner card tree in a folder, for demos and tests.
#include <iostream>

#include "cli/cmd_sim_common.h"
#include "cli/command_registry.h"
#include "cli/rr_listing.h"
#include "sim/card_sim.h"

ZEL_COMMAND(60) {
  (void)context;
  auto* cmd =
      zel::cli::simNoun(app)->add_subcommand("card", "Make a scanner card tree in a folder");
  auto dir = std::make_shared<std::string>();
  auto model = std::make_shared<std::string>("BCD536HP");
  cmd->add_option("DIR", *dir, "Folder to make the card in")->required();
  cmd->add_option("--model", *model, "Scanner model of the card")
      ->check(CLI::IsMember(zel::sim::simCardModels()));
  auto json = std::make_shared<bool>(false);
  cmd->add_flag("--json", *json, "Print the card's root and files as JSON");
  cmd->callback([dir, model, json] {
    auto r = zel::sim::makeSimCard(*dir, *model);
    if (!r.ok) throw zel::cli::UserError{r.message};
    if (*json) {
      zel::cli::Listing card;
      card.field("model", *model).field("scannerRoot", r.scannerRoot);
      auto& files = card.list("files", "Files");
      for (const auto& f : r.files) files.emplace_back().field("file", f);
      zel::cli::printJson(std::cout, card);
      return;
    }
    std::cout << "Card of a " << *model << " made at " << r.scannerRoot << "\n";
    for (const auto& f : r.files) std::cout << "  " << f << "\n";
  });
}

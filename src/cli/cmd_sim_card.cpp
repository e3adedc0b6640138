// zel sim card DIR [--model M]: a scanner card tree in a folder, for demos and tests.
#include <iostream>

#include "cli/command_registry.h"
#include "sim/card_sim.h"

namespace {

// The "sim" noun is shared with the other simulators: whoever registers first makes it.
CLI::App* simNoun(CLI::App& app) {
  for (auto* sub : app.get_subcommands([](CLI::App* a) { return a->get_name() == "sim"; })) {
    return sub;
  }
  auto* sim = app.add_subcommand("sim", "Simulators of the scanner, its card and the web service");
  sim->require_subcommand(1);
  return sim;
}

}  // namespace

ZEL_COMMAND(60) {
  (void)context;
  auto* cmd = simNoun(app)->add_subcommand("card", "Make a scanner card tree in a folder");
  auto dir = std::make_shared<std::string>();
  auto model = std::make_shared<std::string>("BCD536HP");
  cmd->add_option("DIR", *dir, "Folder to make the card in")->required();
  cmd->add_option("--model", *model, "Scanner model of the card")
      ->check(CLI::IsMember(zel::sim::simCardModels()));
  cmd->callback([dir, model] {
    auto r = zel::sim::makeSimCard(*dir, *model);
    if (!r.ok) throw zel::cli::UserError{r.message};
    std::cout << "Card of a " << *model << " made at " << r.scannerRoot << "\n";
    for (const auto& f : r.files) std::cout << "  " << f << "\n";
  });
}

#include <iostream>

#include "cli/command_registry.h"
#include "cli/rr_listing.h"

ZEL_COMMAND(0) {
  (void)context;
  auto* cmd = app.add_subcommand("version", "Print the version of the suite");
  auto json = std::make_shared<bool>(false);
  cmd->add_flag("--json", *json, "Print the version as JSON");
  cmd->callback([json] {
    if (*json) {
      zel::cli::printJson(std::cout,
                          zel::cli::Listing().field("program", "zel").field("version", ZEL_VERSION));
      return;
    }
    std::cout << "zel " << ZEL_VERSION << " (ZEL536)\n";
  });
}

#include <iostream>

#include "cli/command_registry.h"

ZEL_COMMAND(0) {
  (void)context;
  auto* cmd = app.add_subcommand("version", "Print the version of the suite");
  cmd->callback([] { std::cout << "zel " << ZEL_VERSION << " (ZEL536)\n"; });
}

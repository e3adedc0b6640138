// The "sim" noun of `zel`, shared by every simulator command: whoever registers first makes it.
#pragma once

#include <CLI/CLI.hpp>

namespace zel::cli {

inline CLI::App* simNoun(CLI::App& app) {
  for (auto* sub : app.get_subcommands([](CLI::App* a) { return a->get_name() == "sim"; })) {
    return sub;
  }
  auto* sim = app.add_subcommand("sim", "Simulators of the scanner, its card and the web service");
  sim->require_subcommand(1);
  return sim;
}

}  // namespace zel::cli

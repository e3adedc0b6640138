// `zel vocab KEY`: the word list of a field in the order it is offered, one word a line.
// `zel vocab --list` prints every key; `--json` prints either as a JSON array.
#include <cstdio>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command_registry.h"
#include "cli/rr_listing.h"
#include "grid/vocabulary.h"

namespace {

void print(const std::vector<std::string>& words, bool json) {
  if (!json) {
    for (const auto& word : words) std::cout << word << '\n';
    return;
  }
  std::cout << '[';
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i) std::cout << ',';
    std::cout << zel::cli::jsonString(words[i]);
  }
  std::cout << "]\n";
}

}  // namespace

ZEL_COMMAND(30) {
  (void)context;
  auto* cmd = app.add_subcommand(
      "vocab", "Print the word list of a field, one word a line in the order it is offered");
  auto key = std::make_shared<std::string>();
  auto list = std::make_shared<bool>(false);
  auto json = std::make_shared<bool>(false);
  auto* keyOption = cmd->add_option(
      "KEY", *key, "The list's key, mostly a column heading: \"Mode\", \"SQ Code_c\", ...");
  cmd->add_flag("--list", *list, "Print every key instead of a list")->excludes(keyOption);
  cmd->add_flag("--json", *json, "Print a JSON array");
  cmd->callback([key, list, json, keyOption] {
    if (*list) {
      print(zel::vocab::keys(), *json);
      return;
    }
    if (keyOption->count() == 0) {
      throw CLI::ValidationError("KEY", "give a vocabulary key, or --list for every key");
    }
    const auto& words = zel::vocab::tabel(*key);
    if (words.empty()) {
      throw zel::cli::UserError{"There is no vocabulary \"" + *key +
                                "\"; zel vocab --list shows every key."};
    }
    print(words, *json);
  });
}

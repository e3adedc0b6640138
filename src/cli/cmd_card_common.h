// What the card subcommands share: the "card" noun, and finding the card before any step.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "cli/command_registry.h"
#include "transfer/card_detect.h"
#include "transfer/favorites_card.h"

namespace zel::cli {

CLI::App* cardNoun(CLI::App& app);

// Runs the detection over the platform's roots and `extraRoots` (stored settings, report
// in the data folder).
transfer::CardState detectCard(Context& context, const std::vector<std::string>& extraRoots,
                               transfer::CardDetector& detector);
// The same, ending the command with "Error: Scanner not detected." when no card is found.
transfer::CardState requireCard(Context& context, const std::vector<std::string>& extraRoots,
                                transfer::CardDetector& detector);

// A list's number as in f_00000N.hpd, from 1 to 999; another number ends the command.
CLI::Option* listNumber(CLI::Option* option);

// Finds the card (or ends the command) and reads its configuration.
transfer::FavoritesCard openCard(Context& context, const std::vector<std::string>& roots);

}  // namespace zel::cli

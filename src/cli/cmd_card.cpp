// zel card ...: the scanner's card in mass-storage mode. Every subcommand first finds the
// card among the mount points of removable media and the roots given with --root; the
// last root that holds an accepted marker wins.
#include <iostream>
#include <memory>

#include "cli/cmd_card_common.h"
#include "cli/command_registry.h"
#include "cli/option_range.h"
#include "cli/rr_listing.h"
#include "cli/window_hints.h"
#include "core/settings.h"

namespace zel::cli {

CLI::App* cardNoun(CLI::App& app) {
  for (auto* sub : app.get_subcommands([](CLI::App* a) { return a->get_name() == "card"; })) {
    return sub;
  }
  auto* card = app.add_subcommand("card", "The scanner's SD card: detection and favorites lists");
  card->require_subcommand(1);
  return card;
}

transfer::CardState detectCard(Context& context, const std::vector<std::string>& extraRoots,
                               transfer::CardDetector& detector) {
  Settings settings(context.settings());
  transfer::MountPointRoots platform;
  for (const auto& r : extraRoots) platform.addUserRoot(r);
  transfer::DetectOptions options;
  options.includeC = settings.getPlain("scanner", "include_drive_c", "0") == "1";
  options.includeD = settings.getPlain("scanner", "include_drive_d", "0") == "1";
  options.includeE = settings.getPlain("scanner", "include_drive_e", "0") == "1";
  options.version = ZEL_VERSION;
  std::error_code ec;
  std::filesystem::create_directories(context.dataFolder(), ec);
  if (!ec) options.reportPath = context.dataFolder() + "/drivetest.txt";
  return detector.detect(platform, options, &settings);
}

CLI::Option* listNumber(CLI::Option* option) {
  return inRange(option, 1, 999, "a list number");
}

transfer::CardState requireCard(Context& context, const std::vector<std::string>& extraRoots,
                                transfer::CardDetector& detector) {
  detectCard(context, extraRoots, detector);
  if (!detector.gate()) throw UserError{detector.state().label3};
  return detector.state();
}

}  // namespace zel::cli

ZEL_COMMAND(40) {
  auto* cmd = zel::cli::cardNoun(app)->add_subcommand(
      "detect", "Find the scanner's card and tell its family, firmware and serial");
  auto roots = std::make_shared<std::vector<std::string>>();
  auto json = std::make_shared<bool>(false);
  cmd->add_option("--root", *roots, "A folder to look in for a card (repeatable)");
  cmd->add_flag("--json", *json, "Print the result as JSON");
  cmd->callback([roots, json, &context] {
    zel::transfer::CardDetector detector;
    auto state = zel::cli::detectCard(context, *roots, detector);
    if (*json) {
      zel::cli::printJson(std::cout, zel::cli::Listing()
                                         .flag("detected", state.detected())
                                         .field("root", state.scannerRoot)
                                         .field("model", state.model)
                                         .field("firmware", state.firmware)
                                         .field("serial", state.serial)
                                         .field("fileFormat", state.fileFormat)
                                         .field("status", state.label3));
    } else {
      std::cout << state.label3 << "\n";
      if (state.detected()) std::cout << "Scanner root: " << state.scannerRoot << "\n";
      if (std::string hint = zel::cli::windowHint(state.label3); !hint.empty()) {
        std::cout << hint << "\n";
      }
    }
    if (!state.detected()) throw zel::cli::UserError{""};
  });
}

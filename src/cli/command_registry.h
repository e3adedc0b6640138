// Every noun of `zel` (vocab, hpd, card, sim, ...) lives in its own cmd_*.cpp and adds
// its subcommands here through a static ZEL_COMMAND registration.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <string>

#include "core/ports.h"

namespace zel::cli {

// What every command may use: the global options and the settings they select.
struct Context {
  std::string dataDir;       // --data-dir: overrides the data folder
  std::string settingsFile;  // --settings: an INI file instead of the user's settings
  bool json = false;
  // The settings store the options select (created on first use).
  SettingsStore& settings();
  // The data folder: --data-dir, else the documents folder + "My Scanner Data Files".
  std::string dataFolder();

 private:
  std::unique_ptr<SettingsStore> settings_;
};

// Raised by a command handler to end with a user error: one sentence on stderr, exit 1.
struct UserError {
  std::string message;
  int code = 1;
};

using Registrar = std::function<void(CLI::App& app, Context& context)>;

class CommandRegistry {
 public:
  static void add(int order, Registrar registrar);
  static void registerAll(CLI::App& app, Context& context);
};

struct AutoRegister {
  AutoRegister(int order, Registrar registrar) { CommandRegistry::add(order, std::move(registrar)); }
};

}  // namespace zel::cli

#define ZEL_CLI_CONCAT2(a, b) a##b
#define ZEL_CLI_CONCAT(a, b) ZEL_CLI_CONCAT2(a, b)
// ZEL_COMMAND(order) { ...body using `app` and `context`... }
#define ZEL_COMMAND(order)                                                                 \
  static void ZEL_CLI_CONCAT(zelCommand, __LINE__)(CLI::App & app, ::zel::cli::Context & context); \
  static ::zel::cli::AutoRegister ZEL_CLI_CONCAT(zelCommandReg, __LINE__)(                 \
      order, &ZEL_CLI_CONCAT(zelCommand, __LINE__));                                       \
  static void ZEL_CLI_CONCAT(zelCommand, __LINE__)(CLI::App & app, ::zel::cli::Context & context)

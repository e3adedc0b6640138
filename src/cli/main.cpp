// zel: every job of the suite without a window.
#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#include "cli/command_registry.h"
#include "cli/window_hints.h"
#include "platform/qt_settings_store.h"

namespace zel::cli {

namespace {
std::vector<std::pair<int, Registrar>>& registrars() {
  static std::vector<std::pair<int, Registrar>> list;
  return list;
}
}  // namespace

void CommandRegistry::add(int order, Registrar registrar) {
  registrars().emplace_back(order, std::move(registrar));
}

namespace {
// A repeatable option takes one value each time (--root A --root B), so that it never swallows
// the file that follows it: every named option that collects values is made so, in every
// command, once all commands are registered.
void oneValueEachTime(CLI::App& app) {
  for (CLI::Option* opt : app.get_options()) {
    if (!opt->get_positional() && opt->get_expected_max() > 1) opt->allow_extra_args(false);
  }
  for (CLI::App* sub : app.get_subcommands({})) oneValueEachTime(*sub);
}
}  // namespace

void CommandRegistry::registerAll(CLI::App& app, Context& context) {
  auto& list = registrars();
  std::stable_sort(list.begin(), list.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  for (auto& [order, fn] : list) fn(app, context);
  oneValueEachTime(app);
}

SettingsStore& Context::settings() {
  if (!settings_) {
    if (!settingsFile.empty()) {
      settings_ = std::make_unique<QtSettingsStore>(QString::fromStdString(settingsFile));
    } else {
      settings_ = std::make_unique<QtSettingsStore>();
    }
  }
  return *settings_;
}

std::string Context::dataFolder() {
  if (!dataDir.empty()) return dataDir;
  QString docs = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  if (docs.isEmpty()) docs = QDir::homePath();
  return (docs + "/My Scanner Data Files").toStdString();
}

namespace {
// A mistyped verb or noun: the words given are followed down the commands, and the first word
// that names no command where one is due is refused with the commands that may stand there.
// Returns the sentence to print, or nothing when every word names a command.
std::string unknownCommand(CLI::App& app, int argc, char** argv) {
  CLI::App* at = &app;
  std::string path = "zel";
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (at == &app && (word == "--data-dir" || word == "--settings")) {
      ++i;
      continue;
    }
    if (word.empty() || word[0] == '-') {
      if (at == &app) continue;
      return {};
    }
    std::vector<CLI::App*> subs = at->get_subcommands({});
    if (subs.empty()) return {};
    CLI::App* next = nullptr;
    std::string names;
    for (CLI::App* sub : subs) {
      if (sub->check_name(word)) next = sub;
      names += (names.empty() ? "" : ", ") + sub->get_name();
    }
    if (!next) {
      return "Unknown command \"" + word + "\" for \"" + path + "\": use one of " + names + ".";
    }
    at = next;
    path += " " + next->get_name();
  }
  return {};
}
}  // namespace

}  // namespace zel::cli

int main(int argc, char** argv) {
  QCoreApplication qapp(argc, argv);
  QCoreApplication::setOrganizationName("Torvo");
  QCoreApplication::setApplicationName("ZEL536");

  CLI::App app{"zel: favorites lists, the scanner card and the live scanner from the command line",
               "zel"};
  app.require_subcommand(1);
  app.set_help_all_flag("--help-all", "Show the help of every command");
  zel::cli::Context context;
  app.add_option("--data-dir", context.dataDir,
                 "Data folder to use instead of \"My Scanner Data Files\" in your documents");
  app.add_option("--settings", context.settingsFile,
                 "Settings file (INI) to use instead of your own settings");
  zel::cli::CommandRegistry::registerAll(app, context);

  if (std::string unknown = zel::cli::unknownCommand(app, argc, argv); !unknown.empty()) {
    std::cerr << unknown << '\n';
    return 2;
  }
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp& e) {
    return app.exit(e);
  } catch (const CLI::CallForAllHelp& e) {
    return app.exit(e);
  } catch (const CLI::CallForVersion& e) {
    return app.exit(e);
  } catch (const CLI::ParseError& e) {
    app.exit(e);
    return 2;
  } catch (const zel::cli::UserError& e) {
    if (!e.message.empty()) std::cerr << e.message << '\n';
    if (std::string hint = zel::cli::windowHint(e.message); !hint.empty()) std::cerr << hint << '\n';
    return e.code;
  }
  if (auto* s = dynamic_cast<zel::QtSettingsStore*>(&context.settings())) s->flush();
  return 0;
}

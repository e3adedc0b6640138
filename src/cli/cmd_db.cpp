// zel db: the scanner's full database without a window.
//   zel db detect [--root DIR]... [--hp1]          find a card with a database
//   zel db states (--root DIR | --folder DIR)     the states the index names
//   zel db systems STATE [--system N]             a state's systems, or one system's sites and
//   departments zel db list STATE [--system N] [--department N] [--conv|--trunk] [--service NAME]
//   zel db apply STATE --set "Delay:=5"... [--system N] [--department N] [--conv|--trunk]
//                [--service NAME]
// STATE is a state file's name (s_000006.hpd) or the state's name as the index gives it.
// Systems and departments are numbered from 1 in file order, departments within their system.
// `apply` writes the state file back in place, through a temporary file, keeping the content
// it replaces as s_NNNNNN.hpd.bak.
#include <filesystem>
#include <iostream>
#include <memory>

#include "cli/cmd_db_common.h"
#include "core/atomic_file.h"
#include "core/settings.h"
#include "core/text.h"
#include "database/hpdb_detect.h"
#include "database/state_edit.h"
#include "database/state_file.h"
#include "transfer/drive_roots.h"

namespace {

using namespace zel;
using database::ChannelKinds;

struct StateArgs {
  cli::DbSource source;
  std::string state;
  int system = 0;
  int department = 0;
  bool conv = false;
  bool trunk = false;
  std::string service;
  std::vector<std::string> sets;
  bool json = false;
};

std::string outOfRange(const std::string& option, const std::string& what, int high, int value) {
  if (high < 1) return "The chosen scope holds no " + what + "s, so " + option + " cannot be used.";
  return option + " takes a " + what + " number from 1 to " + std::to_string(high) + ", not " +
         std::to_string(value) + ".";
}

struct LoadedState {
  cli::OpenedDatabase db;
  database::StateEntry state;
  database::StateFile file;
};

LoadedState loadState(const StateArgs& args) {
  cli::OpenedDatabase db = cli::openDatabase(args.source);
  database::StateEntry state = cli::stateOrFail(db, args.state);
  database::StateLoad load = database::loadStateFile(state.path);
  if (!load.file) throw cli::UserError{load.error};
  return LoadedState{std::move(db), std::move(state), std::move(*load.file)};
}

// The filter of the options, every number checked against the file.
database::ChannelFilter filterOf(const StateArgs& args, const database::StateFile& file) {
  database::ChannelFilter filter;
  const int systems = static_cast<int>(file.systems().size());
  if (args.system != 0 && (args.system < 1 || args.system > systems)) {
    throw cli::UserError{outOfRange("--system", "system", systems, args.system)};
  }
  filter.system = args.system;
  if (args.department != 0) {
    if (args.system == 0)
      throw cli::UserError{"--department needs --system to say whose department."};
    const int departments = static_cast<int>(database::departmentsOf(file, args.system).size());
    if (args.department < 1 || args.department > departments) {
      throw cli::UserError{outOfRange("--department", "department", departments, args.department)};
    }
  }
  filter.department = args.department;
  filter.kinds = args.conv ? ChannelKinds::Conventional
                           : (args.trunk ? ChannelKinds::Trunk : ChannelKinds::Both);
  if (!args.service.empty()) {
    filter.service = database::serviceFilterNumber(args.service);
    if (filter.service < 0) throw cli::UserError{"\"" + args.service + "\" is not a service type."};
  }
  return filter;
}

void addStateOptions(CLI::App& cmd, StateArgs& args, bool channels) {
  cli::addDbSource(cmd, args.source);
  cmd.add_option("STATE", args.state, "A state file (s_000006.hpd) or a state's name")->required();
  cmd.add_option("--system", args.system, "A system by its number in the file, from 1");
  if (!channels) return;
  cmd.add_option("--department", args.department, "A department of the system by number, from 1");
  auto* conv = cmd.add_flag("--conv", args.conv, "Conventional frequencies only (C-Freq)");
  auto* trunk = cmd.add_flag("--trunk", args.trunk, "Talkgroups only (TGID)");
  conv->excludes(trunk);
  cmd.add_option("--service", args.service,
                 "Only channels of this service type (\"Fire Dispatch\")");
}

void runDetect(cli::Context& context, const std::vector<std::string>& roots, bool hp1, bool json) {
  Settings settings(context.settings());
  transfer::MountPointRoots platform;
  for (const std::string& r : roots) platform.addUserRoot(r);
  std::error_code ec;
  std::filesystem::create_directories(context.dataFolder(), ec);
  const std::string reportFolder = ec ? std::string{} : context.dataFolder();
  const database::DbDetection d =
      hp1 ? database::detectHomePatrol1(platform, reportFolder, &settings)
          : database::detectDatabaseCard(platform, reportFolder, &settings);
  if (!d.found) throw cli::UserError{d.label};
  const std::string family = d.family == database::DbFamily::Bcd ? "BCD" : "HomePatrol";
  if (json) {
    std::cout << "{\"drive\":\"" << cli::jsonInside(d.drive) << "\",\"family\":\"" << family
              << "\",\"firmware\":\"" << cli::jsonInside(d.firmware) << "\",\"serial\":\""
              << cli::jsonInside(d.serial) << "\",\"fileFormat\":" << d.fileFormat
              << ",\"database\":\"" << cli::jsonInside(d.dbVersion) << "\",\"index\":\""
              << cli::jsonInside(d.location ? d.location->indexPath : "") << "\",\"label\":\""
              << cli::jsonInside(d.label) << "\"}\n";
  } else {
    std::cout << d.label << "\n";
    if (d.location) std::cout << "Index: " << d.location->indexPath << "\n";
    if (d.firmwareTooOld) std::cout << database::kHomePatrolFirmwareTooOld << "\n";
  }
}

void runStates(const cli::DbSource& source, bool json) {
  const cli::OpenedDatabase db = cli::openDatabase(source);
  if (json) std::cout << "[";
  bool first = true;
  for (const database::StateEntry& s : db.index.states) {
    std::error_code ec;
    const auto size = std::filesystem::file_size(s.path, ec);
    const long long bytes = ec ? -1 : static_cast<long long>(size);
    if (json) {
      std::cout << (first ? "" : ",") << "{\"number\":" << s.number << ",\"name\":\""
                << cli::jsonInside(s.name) << "\",\"file\":\"" << s.fileName
                << "\",\"present\":" << (bytes >= 0 ? "true" : "false")
                << ",\"bytes\":" << (bytes >= 0 ? bytes : 0) << "}";
    } else {
      std::cout << padNumber(s.number, 3) << "  " << s.fileName << "  "
                << (bytes >= 0 ? std::to_string(bytes) + " bytes" : "missing") << "  " << s.name
                << "\n";
    }
    first = false;
  }
  if (json) std::cout << "]\n";
}

void runSystems(const StateArgs& args) {
  const LoadedState loaded = loadState(args);
  const database::StateFile& file = loaded.file;
  filterOf(args, file);
  if (args.json) std::cout << "[";
  bool first = true;
  if (args.system == 0) {
    for (const database::SystemInfo& s : file.systems()) {
      if (args.json) {
        std::cout << (first ? "" : ",") << "{\"system\":" << s.number << ",\"kind\":\""
                  << (s.trunk ? "trunk" : "conventional") << "\",\"name\":\""
                  << cli::jsonInside(s.name) << "\",\"type\":\"" << cli::jsonInside(s.type)
                  << "\"}";
      } else {
        std::cout << s.number << "\t" << s.label << "\n";
      }
      first = false;
    }
  } else {
    // The system's sites first, numbered from 1 within the system as `zel db import --site`
    // takes them, then its departments.
    int site = 0;
    for (std::size_t n = 0; n < file.rows().size(); ++n) {
      const database::StateRow& row = file.rows()[n];
      if (row.system != args.system || row.kind != database::LineKind::Site) continue;
      ++site;
      if (args.json) {
        std::cout << (first ? "" : ",") << "{\"system\":" << row.system << ",\"site\":" << site
                  << ",\"name\":\"" << cli::jsonInside(file.field(n, 3)) << "\"}";
      } else {
        std::cout << "site " << site << "\t" << file.field(n, 3) << "\n";
      }
      first = false;
    }
    for (const database::DepartmentInfo& d : database::departmentsOf(file, args.system)) {
      if (args.json) {
        std::cout << (first ? "" : ",") << "{\"system\":" << d.system
                  << ",\"department\":" << d.number << ",\"name\":\"" << cli::jsonInside(d.name)
                  << "\"}";
      } else {
        std::cout << "department " << d.number << "\t" << d.name << "\n";
      }
      first = false;
    }
  }
  if (args.json) std::cout << "]\n";
}

void runList(const StateArgs& args) {
  const LoadedState loaded = loadState(args);
  const std::vector<database::ChannelItem> items =
      database::listChannels(loaded.file, filterOf(args, loaded.file));
  if (args.json) {
    std::cout << "[";
    for (std::size_t n = 0; n < items.size(); ++n) {
      const database::ChannelItem& i = items[n];
      std::cout << (n ? "," : "") << "{\"key\":\"" << i.key << "\",\"kind\":\""
                << (i.talkgroup ? "TGID" : "C-Freq") << "\",\"frequencyOrId\":\""
                << cli::jsonInside(i.frequencyOrId) << "\",\"alphaTag\":\""
                << cli::jsonInside(i.alphaTag) << "\",\"service\":" << i.service
                << ",\"serviceName\":\"" << cli::jsonInside(i.serviceName)
                << "\",\"line\":" << i.row + 1 << "}";
    }
    std::cout << "]\n";
    return;
  }
  std::cout << "#\tFrequency/ID:\tAlphaTag:\tServiceType:\n";
  for (std::size_t n = 0; n < items.size(); ++n) {
    const database::ChannelItem& i = items[n];
    std::cout << n + 1 << "\t" << i.frequencyOrId << "\t" << i.alphaTag << "\t" << i.serviceName
              << "\n";
  }
}

void runApply(const StateArgs& args) {
  // The settings are checked before anything is read, so a typing error costs nothing.
  std::vector<database::DbChange> changes;
  for (const std::string& text : args.sets) {
    database::ParsedDbChange parsed = database::parseDbChange(text);
    if (!parsed.change) throw cli::UserError{parsed.error};
    changes.push_back(*parsed.change);
  }
  LoadedState loaded = loadState(args);
  const std::vector<database::ChannelItem> items =
      database::listChannels(loaded.file, filterOf(args, loaded.file));
  if (items.empty()) throw cli::UserError{"Please select one or more channels"};
  std::vector<std::size_t> rows;
  rows.reserve(items.size());
  for (const database::ChannelItem& i : items) rows.push_back(i.row);
  const database::ApplyResult result = database::applyChanges(loaded.file, rows, changes);
  bool backup = false;
  if (result.linesChanged > 0) {
    const WriteStatus written =
        writeFileAtomically(loaded.state.path, loaded.file.text(), KeepBackup::OncePerSession);
    if (!written.ok) throw cli::UserError{written.message};
    backup = written.backupMade;
  }
  if (args.json) {
    std::cout << "{\"file\":\"" << cli::jsonInside(loaded.state.path)
              << "\",\"channels\":" << items.size() << ",\"linesChanged\":" << result.linesChanged
              << ",\"fieldsChanged\":" << result.fieldsChanged << ",\"backup\":"
              << (backup ? "\"" + cli::jsonInside(backupPathFor(loaded.state.path)) + "\""
                         : std::string("null"))
              << "}\n";
  } else {
    std::cout << "Changed " << result.linesChanged << " of " << items.size() << " channels in "
              << loaded.state.fileName
              << (result.linesChanged
                      ? ""
                      : " (they already held those values; the file was not written)")
              << "\n";
    if (backup)
      std::cout << "The previous content is kept in " << backupPathFor(loaded.state.path) << "\n";
  }
}

}  // namespace

ZEL_COMMAND(34) {
  CLI::App* db = cli::dbNoun(app);

  auto roots = std::make_shared<std::vector<std::string>>();
  auto detectHp1 = std::make_shared<bool>(false);
  auto detectJson = std::make_shared<bool>(false);
  auto* detect = db->add_subcommand("detect", "Find a scanner card that holds a full database");
  detect->add_option("--root", *roots, "A folder to try as a card root as well (repeatable)")
      ->allow_extra_args(false);
  detect->add_flag("--hp1", *detectHp1, "Look for a HomePatrol-1 database only");
  detect->add_flag("--json", *detectJson, "Print the result as a JSON object");
  detect->callback([&context, roots, detectHp1, detectJson] {
    runDetect(context, *roots, *detectHp1, *detectJson);
  });

  auto statesArgs = std::make_shared<StateArgs>();
  auto* states = db->add_subcommand("states", "The states the database index names");
  cli::addDbSource(*states, statesArgs->source);
  states->add_flag("--json", statesArgs->json, "Print a JSON array");
  states->callback([statesArgs] { runStates(statesArgs->source, statesArgs->json); });

  auto systemsArgs = std::make_shared<StateArgs>();
  auto* systems = db->add_subcommand(
      "systems", "A state file's systems, or one system's sites and departments");
  addStateOptions(*systems, *systemsArgs, false);
  systems->add_flag("--json", systemsArgs->json, "Print a JSON array");
  systems->callback([systemsArgs] { runSystems(*systemsArgs); });

  auto listArgs = std::make_shared<StateArgs>();
  auto* list = db->add_subcommand("list", "The channels of a state file, a system or a department");
  addStateOptions(*list, *listArgs, true);
  list->add_flag("--json", listArgs->json, "Print a JSON array");
  list->callback([listArgs] { runList(*listArgs); });

  auto applyArgs = std::make_shared<StateArgs>();
  auto* apply = db->add_subcommand(
      "apply", "Set channel settings on the listed channels and write the state file back");
  addStateOptions(*apply, *applyArgs, true);
  apply
      ->add_option("--set", applyArgs->sets,
                   "A setting as caption=value, such as \"Delay:=5\" (repeatable)")
      ->allow_extra_args(false)
      ->required();
  apply->add_flag("--json", applyArgs->json, "Print the counts as a JSON object");
  apply->callback([applyArgs] { runApply(*applyArgs); });
  (void)context;
}

// zel db import: systems of a state file of the full database into a favorites list.
//   zel db import STATE --system N... [--site N...] [--department N...]
//                 (--into FILE.hpd | -o FILE.hpd) [--root DIR | --folder DIR] [--json]
// STATE is a state file's path, or with --root/--folder its file name (s_000006.hpd) or the
// state's name. Systems are numbered from 1 in file order (as `zel db systems` shows them),
// sites and departments from 1 within their system. A site or department is "N" when one
// system is chosen and "S:N" (N of system S) in any case. --into adds to the list (a new
// one when the file does not exist yet) and writes it back, or to -o when that is given.
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>

#include "cli/cmd_db_common.h"
#include "cli/cmd_hpd_common.h"
#include "core/memory_ports.h"
#include "core/text.h"
#include "database/db_import.h"

namespace zel::cli {

namespace {

struct DbImportArgs {
  DbSource source;
  std::string state;
  std::vector<int> systems;
  std::vector<std::string> sites;
  std::vector<std::string> departments;
  std::string into;
  std::string out;
  bool json = false;
};

// A path names the file itself; anything else is looked up in the database's index.
std::string statePath(const DbImportArgs& a) {
  if (a.source.root.empty() && a.source.folder.empty()) {
    if (!std::filesystem::is_regular_file(a.state)) {
      throw UserError{"No state file " + a.state +
                      "; give its path, or --root or --folder to find it by name."};
    }
    return a.state;
  }
  return stateOrFail(openDatabase(a.source), a.state).path;
}

// "N" or "S:N" to the choice of system S (or of the one system chosen).
void addPart(std::vector<database::DbChoice>& choices, const std::string& text,
             const std::string& option, bool site) {
  const std::size_t colon = text.find(':');
  const std::string number = trim(colon == std::string::npos ? text : text.substr(colon + 1));
  const std::string system =
      colon == std::string::npos ? std::string() : trim(text.substr(0, colon));
  if (!isPlainNumber(number) || (!system.empty() && !isPlainNumber(system))) {
    throw UserError{option + " takes N or SYSTEM:N, not \"" + text + "\".", 2};
  }
  database::DbChoice* choice = nullptr;
  if (system.empty()) {
    if (choices.size() != 1) {
      throw UserError{"With more than one --system, write " + option + " as SYSTEM:N.", 2};
    }
    choice = &choices.front();
  } else {
    const int s = static_cast<int>(leadingInteger(system));
    const auto at = std::find_if(choices.begin(), choices.end(),
                                 [s](const database::DbChoice& c) { return c.system == s; });
    if (at == choices.end()) {
      throw UserError{
          option + " " + text + " names system " + system + ", which no --system chose.", 2};
    }
    choice = &*at;
  }
  (site ? choice->sites : choice->departments).push_back(static_cast<int>(leadingInteger(number)));
}

std::vector<database::DbChoice> choicesOf(const DbImportArgs& a) {
  std::vector<database::DbChoice> choices;
  for (int s : a.systems) {
    const bool twice = std::any_of(choices.begin(), choices.end(),
                                   [s](const database::DbChoice& c) { return c.system == s; });
    if (!twice) choices.push_back({s, {}, {}});
  }
  for (const std::string& t : a.sites) addPart(choices, t, "--site", true);
  for (const std::string& t : a.departments) addPart(choices, t, "--department", false);
  return choices;
}

void run(const DbImportArgs& a) {
  if (a.into.empty() && a.out.empty()) throw UserError{"Give --into FILE.hpd or -o FILE.hpd.", 2};
  const std::vector<database::DbChoice> choices = choicesOf(a);
  const std::string path = statePath(a);

  RecordingFeedback quiet;
  database::StateDatabase state;
  if (const formats::HpdReadResult read = state.read(path, true, quiet); !read.ok()) {
    throw UserError{read.message};
  }
  Document doc;
  formats::MemoryRows rows;
  if (!a.into.empty() && std::filesystem::exists(a.into)) readHpdOrFail(doc, rows, a.into);
  // The new systems belong to list 1: the file read with --into, or the new one.
  const database::DbImportResult r = database::importSystems({doc, rows, quiet, 1}, state, choices);
  if (!r.ok) throw UserError{r.message};
  const std::string target = a.out.empty() ? a.into : a.out;
  writeHpdOrFail(doc, rows, target);

  if (a.json) {
    std::cout << "{\"systems\":[";
    for (std::size_t i = 0; i < r.systemKeys.size(); ++i) {
      std::cout << (i ? "," : "") << "\"" << r.systemKeys[i] << "\"";
    }
    std::cout << "],\"sites\":" << r.sites << ",\"frequencies\":" << r.frequencies
              << ",\"departments\":" << r.departments << ",\"channels\":" << r.channels
              << ",\"file\":\"" << jsonInside(target) << "\"}\n";
    return;
  }
  const std::size_t n = r.systemKeys.size();
  const std::string systems = n <= 3 ? join(r.systemKeys, ' ')
                                     : std::to_string(n) + " systems (" + r.systemKeys.front() +
                                           " ... " + r.systemKeys.back() + ")";
  std::cout << "Imported " << systems << ": " << r.sites << " sites, " << r.frequencies
            << " site frequencies, " << r.departments << " departments, " << r.channels
            << " channels and talkgroups into " << target << "\n";
}

}  // namespace

ZEL_COMMAND(kDbNounOrder + 2) {
  (void)context;
  CLI::App* db = dbNoun(app);
  auto a = std::make_shared<DbImportArgs>();
  auto* cmd = db->add_subcommand(
      "import",
      "Add systems of a state file, with chosen sites and departments, to a favorites list");
  cmd->add_option("STATE", a->state, "The state file's path, or with --root/--folder its name")
      ->required();
  addDbSource(*cmd, a->source);
  cmd->add_option("--system", a->systems, "A system by its number in the file (repeat for more)")
      ->allow_extra_args(false)
      ->required();
  cmd->add_option("--site", a->sites, "A site to take, N or SYSTEM:N (repeat; none: all)")
      ->allow_extra_args(false);
  cmd->add_option("--department", a->departments,
                  "A department to take, N or SYSTEM:N (repeat; none: all)")
      ->allow_extra_args(false);
  cmd->add_option("--into", a->into, "The favorites list to add to (made when it does not exist)");
  cmd->add_option("-o,--out", a->out, "The file to write (default: the --into file)");
  cmd->add_flag("--json", a->json, "Print what was imported as a JSON object");
  cmd->callback([a] { run(*a); });
}

}  // namespace zel::cli

// What the `zel db` subcommands share: the "db" noun, which any file may ask for (it is made
// once, by whoever asks first), and the database a command works on, named by
//   --root DIR     a card's root: DIR/BCDx36HP/HPDB/hpdb.cfg or DIR/HomePatrol/HPDB/hpdb.config
//   --folder DIR   a folder holding the index itself (a card's HPDB folder or a local copy)
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command_registry.h"
#include "cli/rr_listing.h"
#include "database/hpdb_index.h"

namespace zel::cli {

// The noun's own registration order; files that add subcommands use a higher number.
inline constexpr int kDbNounOrder = 34;

inline CLI::App* dbNoun(CLI::App& app) {
  for (CLI::App* sub : app.get_subcommands([](CLI::App*) { return true; })) {
    if (sub->get_name() == "db") return sub;
  }
  CLI::App* db = app.add_subcommand(
      "db", "The scanner's full database: find it, list and change a state file's channels");
  db->require_subcommand(1);
  return db;
}

struct DbSource {
  std::string root;
  std::string folder;
};

// Adds --root and --folder; openDatabase() insists on one of them.
inline void addDbSource(CLI::App& cmd, DbSource& source) {
  auto* root = cmd.add_option("--root", source.root, "A card's root folder (the drive)");
  auto* folder = cmd.add_option("--folder", source.folder,
                                "A folder holding the database index (an HPDB folder)");
  root->excludes(folder);
  folder->excludes(root);
}

struct OpenedDatabase {
  database::DatabaseLocation location;
  database::IndexReadResult index;
};

// Finds the database and reads its index, or ends the command with one sentence (exit 1),
// or as bad usage (exit 2) when neither option was given.
inline OpenedDatabase openDatabase(const DbSource& source) {
  if (source.root.empty() && source.folder.empty()) throw CLI::RequiredError("--root or --folder");
  std::optional<database::DatabaseLocation> location = source.root.empty()
                                                           ? database::locateInFolder(source.folder)
                                                           : database::locateOnCard(source.root);
  if (!location) {
    throw UserError{source.root.empty()
                        ? "No database index (HPDB.cfg or HPDB.config) in " + source.folder + "."
                        : "No full database (BCDx36HP/HPDB or HomePatrol/HPDB) on the card at " +
                              source.root + "."};
  }
  OpenedDatabase db{*location, database::readIndex(*location)};
  if (!db.index.ok()) throw UserError{db.index.error};
  return db;
}

// The state a user names by file or state name, or ends the command.
inline const database::StateEntry& stateOrFail(const OpenedDatabase& db, std::string_view text) {
  const database::StateEntry* state = database::resolveState(db.index.states, text);
  if (!state) {
    throw UserError{"No state \"" + std::string(text) +
                    "\" in the database index; `zel db states` lists them."};
  }
  return *state;
}

}  // namespace zel::cli

// Systems of the scanner's full database into the favorites document.
//
// A state file (s_000006.hpd) is an HPD file with the database's own Ids. It is read whole
// by the HPD reader into a document of its own, rows in memory: that document is both the
// picker's list and the source of the copy. Systems are numbered by their place in the
// file from 1, sites and departments by their place in their system from 1.
//
// The import copies chosen systems, with the chosen sites and departments of each (all of
// a kind when none of it is chosen), into the target document as new systems numbered
// there, in the order a read of the saved file makes its nodes: system, unit-ID head, sites
// with their frequencies, departments, and after the last system the fleet maps and band
// plans. Site and department Ids in a saved file are node positions, so a new list of
// imported systems saves, reads back and saves to the same bytes.
//
// The import refuses whole, leaving the document as it was, when the systems would pass
// 999 or the nodes 30000 ("ERROR: Out of storage space", as the reader says).
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/document.h"
#include "core/ports.h"
#include "formats/hpd_reader.h"
#include "formats/row_store.h"

namespace zel::database {

// A place with a range in miles, in signed decimal degrees.
struct DbCircle {
  double lat = 0;
  double lon = 0;
  double range = 0;
};

// A site or a department of a system in the state file.
struct DbPart {
  int number = 0;   // place in its system, from 1
  std::string key;  // its key in the state's own document
  std::string name;
  std::optional<DbCircle> circle;  // none when the file gives 0,0
};

struct DbSystem {
  int number = 0;   // place in the state file, from 1
  std::string key;  // its key in the state's own document
  std::string name;
  std::string type;  // "Conventional", "P25 Standard", "MotoTRBO", ...
  std::vector<DbPart> sites;
  std::vector<DbPart> departments;
  std::vector<std::string> services;  // service types of its channels and talkgroups, sorted
  int rows = 0;                       // channels and talkgroups
};

// What the picker lets through. An empty part lets everything through.
struct DbFilter {
  std::string name;     // in the name of the system, a site or a department, any case
  std::string service;  // a service type one of its channels or talkgroups has
  std::optional<DbCircle> location;  // met by the circle of one of its sites or departments
};
bool passes(const DbSystem& system, const DbFilter& filter);

// One state file, read.
class StateDatabase {
 public:
  // Reads the file as the reader reads any list (its progress and messages go to
  // `feedback`). `x36Mode` is the mode of the document the systems are meant for.
  formats::HpdReadResult read(const std::string& path, bool x36Mode, Feedback& feedback);
  formats::HpdReadResult readText(std::string_view text, bool x36Mode, Feedback& feedback);

  const std::vector<DbSystem>& systems() const { return systems_; }
  const DbSystem* system(int number) const;
  std::vector<const DbSystem*> filtered(const DbFilter& filter) const;
  // Every service type of the state, sorted.
  std::vector<std::string> services() const;

  const Document& document() const { return doc_; }
  const formats::RowStore& rows() const { return rows_; }

 private:
  void summarise();

  Document doc_;
  formats::MemoryRows rows_;
  std::vector<DbSystem> systems_;
};

// A system to import, with the sites and departments to take (numbers as listed; empty
// takes them all).
struct DbChoice {
  int system = 0;
  std::vector<int> sites;
  std::vector<int> departments;
};

struct DbImportTarget {
  Document& doc;
  formats::RowStore& rows;
  Feedback& feedback;
  int fileNumber = 0;  // the open list the systems join (0: unsaved systems)
};

struct DbImportResult {
  bool ok = false;
  std::string message;  // why nothing was imported
  std::vector<std::string> systemKeys;
  int sites = 0;
  int frequencies = 0;
  int departments = 0;
  int channels = 0;  // channels and talkgroups
};

// Called after each system with how many are done of how many.
using DbProgress = std::function<void(int done, int total)>;

// Copies the chosen systems into the target. A choice that names a system, site or
// department the state does not have is refused in one sentence; so are the limits. A
// refusal is also shown through the target's feedback.
DbImportResult importSystems(DbImportTarget target, const StateDatabase& source,
                             const std::vector<DbChoice>& choices, const DbProgress& progress = {});

}  // namespace zel::database

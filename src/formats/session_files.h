// The file commands of an editing session: Open, Save, Save As, the configuration file of a
// card and the profiles, each over the session's document, open-file table and page store.
// The desktop application asks the user for names and answers; everything it then does to
// the document happens here, so that `zel` and the window share one behaviour.
#pragma once

#include <string>
#include <vector>

#include "core/session.h"
#include "formats/config_file_open.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_writer.h"
#include "formats/profile_file.h"

namespace zel::formats {

// The save dialog's three variants, in the order the filter list shows them. They differ
// only outside the x36-family mode.
inline constexpr const char* kHpdSaveFilters =
    "HPD Files|*.hpd|HPD Files (HP1 format)|*.hpd|HPD Files (V1_0)|*.hpd";

// Read options from the session's option entries (7, 0 and 21).
HpdReadOptions sessionReadOptions(const Session& session);

struct OpenOutcome {
  bool ok = false;
  std::string message;         // what went wrong, for the caller to show ("" when ok)
  std::vector<int> fileRows;   // open-file rows filled
  std::string profileName;     // set when a profile was opened
};

// File Open: ".hpd" into the next free open-file row, ".pfl" as a profile. When several
// files may not be open together (`multihpd` off) the document is cleared first. The
// visible tree is rebuilt; the document's changed flag is left alone.
OpenOutcome openDocumentFile(Session& session, const std::string& path, bool autoload = false);

// Open Config File: the lists named by a card's f_list.cfg.
OpenOutcome openSessionConfig(Session& session, const std::string& cfgPath);

// The open-file row that Save writes for the selected node: the row of its system's file, 0
// when the system belongs to no file (the caller then asks for a name, Save As).
int fileRowForSave(const Session& session);
// The path that Save writes to for that row ("" when the row has none).
std::string savePathOf(const Session& session, int fileRow);

// Save and Save As: writes the systems of `fileRow` to `path`. A row of 0 takes the systems
// that belong to no file: they are given the next free row first, so they belong to the new
// file afterwards. The changed flag is cleared when every system is then in a saved file.
HpdWriteResult saveDocumentFile(Session& session, int fileRow, const std::string& path);

// Save Config File: each loaded list is written as "f_00000N.hpd" beside `cfgPath`, in the
// order of the open-file table, and the configuration naming them is written last (each
// file complete before the configuration names it).
struct ConfigSaveOutcome {
  bool ok = false;
  std::string message;
  std::vector<std::string> written;  // list files, then the configuration
};
ConfigSaveOutcome saveSessionConfig(Session& session, const std::string& cfgPath);

// The profile commands. Save asks for a name (returns NeedsName) unless one is active.
enum class ProfileSaveState { Saved, NeedsName, Failed };
ProfileSaveState saveSessionProfile(Session& session, const std::string& pathOrEmpty,
                                    std::string& message);
OpenOutcome openSessionProfile(Session& session, const std::string& path, bool autoload = false);
void clearSessionProfile(Session& session);

}  // namespace zel::formats

// The cell commit: the one entry through which any value reaches a cell. It reads the
// heading of the current column, filters, limits and normalises the text by the rule of
// that heading, writes the stored form to the current cell and marks the document changed.
// Typing, pasting, importers and the bulk editors all end here, so a value from any source
// passes the same rules. A value that breaks a rule is moved to the nearest allowed value
// without a word; only a frequency of 0 beeps.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/ports.h"
#include "grid/cell_commit_frequency.h"
#include "grid/grid_page.h"

namespace zel::cell {

enum class Rule {
  Frequency,      // "Frequency", "Start Frequency", "Stop Frequency", "Base:", "Upper:"
  EncryptionKey,  // "dPMR Scr. Key", "NXDN Enc. Key", "DCR Enc. Key": 1 to 32767
  Offset,         // "Offset Frequency"
  Latitude,
  Longitude,
  Step,  // "Step:", "Spacing:"
  Talkgroup,
  Fips,       // "FIPS Code", "Event"
  Name,       // "Alpha Tag", "Name", "Name:": 64 characters
  Comment,    // "Comments": 60 characters
  Car,        // "Car#", "Car"
  Delay,      // "Delay Time", "Dwell": 0 to 200
  Lcn,        // 0 to 4094, empty stays
  NumberTag,  // 0 to 999, empty stays
  Small,      // "Bank Channel", "Threshold Low", "Threshold High", "RF Gain": 0 to 99
  Wide,       // "Lo Chan:", "Hi Chan:", "Offset:", "TGID": 0 to 65535
  UnitId,     // whole, 1 to 99999999
  ColorCode,  // 0 to 15
  Code,       // "SQ Code", "P25NAC", "NAC"
  Gssi,       // "GSSI:": 10 characters
};

// The rule of a heading (compared without case), nullopt for a heading no rule names.
std::optional<Rule> ruleForHeading(std::string_view heading);

enum class CommitStatus {
  Stored,          // the text (maybe empty) went to the cell
  UnknownHeading,  // "define table cgrid <heading>", nothing stored
  Failed,          // the text could not be read: the cell keeps its value
};

struct CommitResult {
  CommitStatus status = CommitStatus::Stored;
  std::string text;  // the stored form
  bool beep = false;
};

// The rule of a heading applied to a text, without a grid: what `zel cell` prints and what
// importers store.
CommitResult commitText(std::string_view heading, std::string_view text,
                        const FrequencyRules& rules);

// Mode words of the commit.
inline constexpr int kModePlain = 0;
inline constexpr int kModeTrunkName = 1;  // a name commit that first checks the system names

struct CommitEnv {
  FrequencyRules rules;
  Feedback* feedback = nullptr;  // messages and the beep; none keeps the commit silent
  bool* changed = nullptr;       // the document's changed mark
};

// Commits `text` to the current cell of the grid (every cell of the selection while the
// grid's FillStyle is Repeat) and returns the stored form in `text`. With mode
// kModeTrunkName on a name heading, a name equal to column 2 of another row warns first
// and is stored all the same.
CommitStatus cellCommit(GridPage* grid, std::string& text, int mode, const CommitEnv& env);

inline constexpr std::string_view kDuplicateTrunkName =
    "Warning: Duplicate Trunk System Name\nTo avoid problems make sure that every trunk system "
    "has a unique name.";

}  // namespace zel::cell

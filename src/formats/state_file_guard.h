// A scanner's database state file (a file of an "HPDB" folder, or one with AreaState lines
// and database Ids) is not a favorites list: saving the document over it drops its area
// lines and Ids. Before Save writes such a file, the user is told what would change.
#pragma once

#include <string>

#include "core/session.h"

namespace zel::formats {

// True for a path inside a folder named "HPDB" (any case), or a file whose lines hold
// AreaState lines and database Ids.
bool looksLikeStateFile(const std::string& path);

struct SaveQuestion {
  bool needed = false;
  std::string text;  // the question, with a summary of what a save changes
};

// Whether saving the systems of `fileRow` to `path` needs the user's word first, and what
// to ask. `offerSaveAs` adds the choice of another name to the question.
SaveQuestion stateFileSaveQuestion(Session& session, int fileRow, const std::string& path,
                                   bool offerSaveAs);

}  // namespace zel::formats

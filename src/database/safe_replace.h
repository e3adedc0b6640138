// Replacing a file so that it is either wholly old or wholly new.
//
// The new bytes go to a temporary file created exclusively beside the target (same folder,
// so the rename cannot cross file systems), are flushed to the disk, and only then renamed
// over the target; the folder is flushed after the rename. The first replacement keeps the
// previous content as "<name>.bak" (the extension replaced); later ones leave that copy as
// it is, so it stays the content from before the first change. On any failure the target
// is left as it was and the temporary file is removed.
#pragma once

#include <string>
#include <string_view>

namespace zel::database {

struct ReplaceResult {
  bool ok = false;
  bool backupMade = false;
  std::string error;  // one sentence naming the file and the cause when !ok
};

// The name of the kept copy: "s_000006.hpd" -> "s_000006.bak".
std::string backupPathFor(const std::string& path);

ReplaceResult replaceFileContent(const std::string& path, std::string_view content,
                                 bool keepBackupOnce = true);

}  // namespace zel::database

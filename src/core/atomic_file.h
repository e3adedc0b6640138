// The one way the suite replaces a file: either the target ends wholly old or wholly new.
//
// The bytes go to a temporary file made exclusively (never through a link) under a name of
// its own in the target's folder, are flushed to the disk, and the file is then renamed over
// the target and the folder flushed. The replaced file's permissions carry over to the new
// one; a target that is read-only, a folder or not a plain file is refused and left as it
// is. On any failure the temporary file is removed. A target that is a link is written
// where the link points, so the link stays a link.
//
// With `KeepBackup::OncePerSession` the first replacement of a path in this run of the
// program keeps the bytes it replaces as "<path>.bak" beside it; later saves leave that copy
// alone, so it keeps what the file was before this run first changed it.
#pragma once

#include <string>
#include <string_view>

namespace zel {

struct WriteStatus {
  bool ok = false;
  int error = 0;            // errno of the step that failed
  std::string description;  // its text ("Permission denied")
  std::string message;      // one sentence for the user naming the file, when !ok
  bool backupMade = false;  // this write made "<path>.bak"
};

enum class KeepBackup { No, OncePerSession };

WriteStatus writeFileAtomically(const std::string& path, std::string_view content,
                                KeepBackup backup = KeepBackup::No);

// "<path>.bak": the copy a replacing save keeps.
std::string backupPathFor(const std::string& path);

// The temporary names the writer uses end in this; a name left by a killed run can go.
inline constexpr std::string_view kTemporarySuffix = ".zeltmp";

}  // namespace zel

// Reading a file whole: the one reader the suite's libraries share (the atomic writer reads
// the file it backs up with it, the formats read every scanner file with it).
#pragma once

#include <optional>
#include <string>

namespace zel {

// The bytes of a file, or nothing when it cannot be opened or is a folder.
std::optional<std::string> readWholeFile(const std::string& path);

}  // namespace zel

// Card trees for the transfer tests: markers, configurations and lists in a temp folder,
// and a byte-for-byte snapshot of a folder to prove that a failed step changed nothing.
#pragma once

#include <map>
#include <string>

namespace zel::transfer::testing {

void writeText(const std::string& path, const std::string& text);
std::string readText(const std::string& path);
// A marker "scanner.inf" whose third line is `modelLine` (TAB separated) under
// root/folder, folder being "BCDx36HP" or "UBCDx36".
void writeMarker(const std::string& root, const std::string& folder, const std::string& modelLine);
// Every file under `folder`, relative path -> bytes.
std::map<std::string, std::string> snapshot(const std::string& folder);
// An f_list.cfg entry with the scanner's 110 flags.
std::string entryLine(const std::string& tag, const std::string& name, const std::string& file);

}  // namespace zel::transfer::testing

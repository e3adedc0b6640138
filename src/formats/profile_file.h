// Profiles: this system's own list of favorites files that open together on the PC.
//
//   ZEL536 PRF V1.00
//   /home/me/My Scanner Data Files/hpd files/north.hpd
//   /home/me/My Scanner Data Files/hpd files/south.hpd
//
// One full path a line: column 3 of every loaded row of the open-file table.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/document.h"
#include "core/page_files.h"
#include "core/ports.h"
#include "formats/hpd_reader.h"

namespace zel::formats {

inline constexpr std::string_view kProfileHeader = "ZEL536 PRF V1.00";
inline constexpr std::string_view kDefaultProfileName = "zel536profile";
inline constexpr std::string_view kProfileErrorLog = "profile_error.txt";

// The paths a profile of this table holds: column 3 of each row whose column 0 is "1".
std::vector<std::string> profilePaths(const OpenFileTable& files);
std::string formatProfile(const std::vector<std::string>& paths);

struct ProfileSaveResult {
  bool ok = false;
  std::string message;  // "Nothing to save." when no file is loaded
};
// Writes the profile. Nothing loaded: "Nothing to save." and no file. A write error is
// appended to "profile_error.txt" in `dataFolder` as "/error: ", the number and the text.
ProfileSaveResult saveProfile(const std::string& path, const OpenFileTable& files,
                              const std::string& dataFolder, Feedback& feedback);

struct ProfileOpenResult {
  bool ok = false;
  std::string name;                  // the profile's name, for the status and the title
  std::vector<int> fileRows;         // open-file rows of the files read
  std::vector<HpdReadResult> reads;  // one a file, in profile order
};
// Reads every file of the profile whose name ends ".hpd" or ".HPD" into the next free row of
// the open-file table, showing " - file: " and the path. When no file qualifies the message
// is "Cannot load profile. No ZEL536 hpd files in selected profile!", or without its first
// sentence at autoload. On success the status bar reads "Active Profile: " and the name.
ProfileOpenResult openProfile(Document& doc, PageFiles& pages, const std::string& path,
                              const HpdReadOptions& base, bool autoload,
                              const std::string& dataFolder, Feedback& feedback);

// The profile's name as the status and the window title show it: the file name without
// folder and extension.
std::string profileName(const std::string& path);
std::string activeProfileText(std::string_view name);  // "Active Profile: " + name or "None"
std::string profileTitle(std::string_view name);       // " - Profile: " + name
// Clear Profile Name: the status reads "Active Profile: None".
void clearProfileName(Feedback& feedback);

// Appends one line to an error log of the data folder ("profile_error.txt", ...).
void appendErrorLog(const std::string& dataFolder, std::string_view logName, std::string_view line);

}  // namespace zel::formats

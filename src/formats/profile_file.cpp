#include "formats/profile_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "core/text.h"
#include "formats/text_file.h"

namespace zel::formats {

namespace {

constexpr std::string_view kNothingToSave = "Nothing to save.";
constexpr std::string_view kNoFiles = "No ZEL536 hpd files in selected profile!";
constexpr std::string_view kMaximumFiles = "Error, maximum number of hpd files is 99!";

std::string errorLine(int number, std::string_view description) {
  return "/error: " + std::to_string(number) + " " + std::string(description);
}

}  // namespace

std::vector<std::string> profilePaths(const OpenFileTable& files) {
  std::vector<std::string> paths;
  for (int row = 1; row <= kOpenFileRows; ++row) {
    if (files.loaded(row)) paths.push_back(files.get(row, OpenFileTable::Path));
  }
  return paths;
}

std::string formatProfile(const std::vector<std::string>& paths) {
  std::string out(kProfileHeader);
  out += "\r\n";
  for (const std::string& p : paths) {
    out += p;
    out += "\r\n";
  }
  return out;
}

void appendErrorLog(const std::string& dataFolder, std::string_view logName,
                    std::string_view line) {
  const std::string path = (std::filesystem::path(dataFolder) / std::string(logName)).string();
  if (std::FILE* f = std::fopen(path.c_str(), "ab")) {
    std::fwrite(line.data(), 1, line.size(), f);
    std::fwrite("\r\n", 1, 2, f);
    std::fclose(f);
  }
}

ProfileSaveResult saveProfile(const std::string& path, const OpenFileTable& files,
                              const std::string& dataFolder, Feedback& feedback) {
  ProfileSaveResult result;
  std::vector<std::string> paths = profilePaths(files);
  if (paths.empty()) {
    result.message = std::string(kNothingToSave);
    feedback.message(result.message);
    return result;
  }
  WriteStatus written = writeFileAtomically(path, formatProfile(paths));
  if (!written.ok) {
    result.message = errorLine(written.error, written.description);
    appendErrorLog(dataFolder, kProfileErrorLog, result.message);
    return result;
  }
  result.ok = true;
  feedback.status(activeProfileText(profileName(path)));
  return result;
}

ProfileOpenResult openProfile(Document& doc, PageFiles& pages, const std::string& path,
                              const HpdReadOptions& base, bool autoload,
                              const std::string& dataFolder, Feedback& feedback) {
  ProfileOpenResult result;
  result.name = profileName(path);
  std::optional<std::string> text = readWholeFile(path);
  if (!text) appendErrorLog(dataFolder, kProfileErrorLog, errorLine(ENOENT, path));

  std::vector<std::string> files;
  if (text) {
    std::vector<std::string_view> lines = splitLines(*text);
    const bool header = !lines.empty() && startsWith(lines[0], kProfileHeader);
    for (std::size_t i = 1; header && i < lines.size(); ++i) {
      std::string_view name = trimView(lines[i]);
      if (endsWith(name, ".hpd") || endsWith(name, ".HPD")) files.emplace_back(name);
    }
  }
  if (files.empty()) {
    feedback.message(autoload ? std::string(kNoFiles)
                              : "Cannot load profile. " + std::string(kNoFiles));
    return result;
  }
  for (const std::string& file : files) {
    const int row = doc.files.freeRow();
    if (row == 0) {
      feedback.message(kMaximumFiles);
      break;
    }
    feedback.progress(" - file: " + file);
    HpdReadOptions options = base;
    options.fileIndex = row;
    HpdReadResult read = readHpd(doc, pages, file, options, feedback);
    if (read.ok()) {
      result.fileRows.push_back(row);
    } else {
      appendErrorLog(dataFolder, kProfileErrorLog, errorLine(0, read.message));
    }
    result.reads.push_back(std::move(read));
  }
  result.ok = !result.fileRows.empty();
  feedback.status(activeProfileText(result.name));
  return result;
}

std::string profileName(const std::string& path) {
  return std::filesystem::path(path).stem().string();
}

std::string activeProfileText(std::string_view name) {
  return "Active Profile: " + (name.empty() ? std::string("None") : std::string(name));
}

std::string profileTitle(std::string_view name) {
  return " - Profile: " + std::string(name);
}

void clearProfileName(Feedback& feedback) {
  feedback.status(activeProfileText(""));
}

}  // namespace zel::formats

#include "transfer/drive_roots.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace zel::transfer {

namespace fs = std::filesystem;

ListDriveRoots::ListDriveRoots(std::vector<std::string> folders) {
  for (auto& f : folders) add(f);
}

void ListDriveRoots::add(const std::string& folder) {
  roots_.push_back({folder, folder});
}

MountPointRoots::MountPointRoots() {
  const char* user = std::getenv("USER");
  parents_ = defaultParents(user ? user : "");
}

MountPointRoots::MountPointRoots(std::vector<std::string> parents) : parents_(std::move(parents)) {}

void MountPointRoots::addUserRoot(const std::string& folder) {
  userRoots_.push_back(folder);
}

std::vector<std::string> MountPointRoots::defaultParents(const std::string& user) {
  std::vector<std::string> parents;
  if (!user.empty()) {
    parents.push_back("/media/" + user);
    parents.push_back("/run/media/" + user);
  }
  parents.push_back("/mnt");
  parents.push_back("/Volumes");
  return parents;
}

std::vector<DriveRoot> MountPointRoots::roots() const {
  std::vector<DriveRoot> out;
  for (const auto& parent : parents_) {
    // A parent that is missing or unreadable is simply no source of roots: the drive is
    // "not ready", and the scan goes on.
    std::error_code ec;
    std::vector<std::string> found;
    for (fs::directory_iterator it(parent, ec), end; !ec && it != end; it.increment(ec)) {
      std::error_code dirEc;
      if (it->is_directory(dirEc)) found.push_back(it->path().string());
    }
    std::sort(found.begin(), found.end());
    for (auto& f : found) out.push_back({f, f});
  }
  for (const auto& f : userRoots_) out.push_back({f, f});
  return out;
}

std::vector<std::string> windowsScanLetters(bool includeD, bool includeE) {
  std::vector<std::string> letters;
  for (char c = 'D'; c <= 'Z'; ++c) {
    if (c == 'D' && !includeD) continue;
    if (c == 'E' && !includeE) continue;
    letters.push_back(std::string(1, c) + ":");
  }
  return letters;
}

std::vector<DriveRoot> CombinedDriveRoots::roots() const {
  auto out = first_.roots();
  auto more = second_.roots();
  out.insert(out.end(), more.begin(), more.end());
  return out;
}

}  // namespace zel::transfer

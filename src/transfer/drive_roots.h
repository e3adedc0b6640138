// Where a scanner card can appear on this machine. In mass-storage mode the scanner shows
// up as a removable drive; the detector walks every candidate root in order and looks for
// the marker file under each. On Windows the candidates are the drive letters "D:" to
// "Z:" ("C:" is never one of them); on Linux and macOS they are the mount points of
// removable media. Roots the user adds come last, so that one of them wins over a drive
// found by the scan (a later accepted root replaces an earlier one).
#pragma once

#include <string>
#include <vector>

namespace zel::transfer {

struct DriveRoot {
  std::string label;  // what the user reads: "E:" or "/media/ann/SCANNER"
  std::string path;   // the folder under which "BCDx36HP" or "UBCDx36" is looked for
};

// The port: the candidate card roots of this platform, in scan order.
class DriveRoots {
 public:
  virtual ~DriveRoots() = default;
  virtual std::vector<DriveRoot> roots() const = 0;
};

// A fixed list of folders: the test double, and the roots named with --root.
class ListDriveRoots : public DriveRoots {
 public:
  ListDriveRoots() = default;
  explicit ListDriveRoots(std::vector<std::string> folders);
  void add(const std::string& folder);
  std::vector<DriveRoot> roots() const override { return roots_; }

 private:
  std::vector<DriveRoot> roots_;
};

// The mount points of removable media on Linux and macOS under the given parent folders
// (normally /media/USER, /run/media/USER, /mnt and /Volumes), sorted by name within each
// parent, followed by the roots the user added.
class MountPointRoots : public DriveRoots {
 public:
  // Parents default to the usual places for the current user ($USER).
  MountPointRoots();
  explicit MountPointRoots(std::vector<std::string> parents);
  void addUserRoot(const std::string& folder);
  std::vector<DriveRoot> roots() const override;

  static std::vector<std::string> defaultParents(const std::string& user);

 private:
  std::vector<std::string> parents_;
  std::vector<std::string> userRoots_;
};

// The Windows drive letters that the scan tests, as data: "D:" to "Z:", with "D:" and
// "E:" only when their options ("include_drive_d", "include_drive_e") are ticked. "C:" is
// never tested, whatever its option says; that option only adds a line to the report.
std::vector<std::string> windowsScanLetters(bool includeD, bool includeE);

// Combines two sources: the platform's roots first, then `extra`.
class CombinedDriveRoots : public DriveRoots {
 public:
  CombinedDriveRoots(const DriveRoots& first, const DriveRoots& second)
      : first_(first), second_(second) {}
  std::vector<DriveRoot> roots() const override;

 private:
  const DriveRoots& first_;
  const DriveRoots& second_;
};

}  // namespace zel::transfer

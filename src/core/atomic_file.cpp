#include "core/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <mutex>
#include <optional>
#include <random>
#include <set>

#include "core/whole_file.h"

namespace zel {

namespace fs = std::filesystem;

namespace {

std::string causeOf(int error) {
  return std::strerror(error ? error : EIO);
}

WriteStatus failure(const std::string& path, int error, std::string sentence = {}) {
  WriteStatus status;
  status.error = error ? error : EIO;
  status.description = causeOf(status.error);
  status.message = sentence.empty() ? path + " was not written: " + status.description + "."
                                    : std::move(sentence);
  return status;
}

std::string randomPart() {
  static std::mutex lock;
  static std::mt19937_64 random{std::random_device{}() ^
                                static_cast<unsigned long long>(::getpid())};
  std::lock_guard<std::mutex> guard(lock);
  char text[20];
  std::snprintf(text, sizeof text, "%012llx",
                static_cast<unsigned long long>(random() & 0xffffffffffffULL));
  return text;
}

bool writeAll(int fd, std::string_view content, int& error) {
  const char* p = content.data();
  std::size_t left = content.size();
  while (left > 0) {
    const ssize_t n = ::write(fd, p, left);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) {
      error = n < 0 ? errno : EIO;
      return false;
    }
    p += n;
    left -= static_cast<std::size_t>(n);
  }
  return true;
}

void flushFolder(const fs::path& folder) {
  const int fd = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}

// Writes `content` to a fresh temporary file beside `target` and renames it over the
// target. `mode` is the target's mode to keep, or -1 for a new file. Returns 0 or errno.
int replaceThroughTemporary(const fs::path& target, std::string_view content, int mode,
                            const struct stat* owner) {
  const fs::path folder = target.parent_path();
  std::string temporary;
  int fd = -1;
  for (int attempt = 0; attempt < 32 && fd < 0; ++attempt) {
    std::string name(".");
    name += target.filename().string();
    name += '.';
    name += randomPart();
    name += kTemporarySuffix;
    temporary = (folder / name).string();
    fd = ::open(temporary.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_NOFOLLOW | O_CLOEXEC, 0666);
    if (fd < 0 && errno != EEXIST) return errno;
  }
  if (fd < 0) return EEXIST;

  int error = 0;
  writeAll(fd, content, error);
  if (error == 0 && mode >= 0) {
    if (owner && (owner->st_uid != ::geteuid() || owner->st_gid != ::getegid())) {
      // Only possible for a privileged user or a change of group; a failure is no harm.
      (void)!::fchown(fd, owner->st_uid, owner->st_gid);
    }
    if (::fchmod(fd, static_cast<mode_t>(mode)) != 0) error = errno;
  }
  if (error == 0 && ::fsync(fd) != 0) error = errno;
  if (::close(fd) != 0 && error == 0) error = errno;
  if (error == 0 && ::rename(temporary.c_str(), target.c_str()) != 0) error = errno;
  if (error != 0) {
    ::unlink(temporary.c_str());
    return error;
  }
  flushFolder(folder);
  return 0;
}

std::mutex& backupLock() {
  static std::mutex lock;
  return lock;
}
std::set<std::string>& backedUp() {
  static std::set<std::string> paths;
  return paths;
}

}  // namespace

std::string backupPathFor(const std::string& path) {
  return path + ".bak";
}

WriteStatus writeFileAtomically(const std::string& path, std::string_view content,
                                KeepBackup backup) {
  if (path.empty()) return failure(path, ENOENT, "No file name was given to write.");
  // A link is followed to the file it names, so that the link itself stays.
  fs::path target(path);
  std::error_code ec;
  if (fs::is_symlink(fs::symlink_status(target, ec))) {
    const fs::path resolved = fs::weakly_canonical(target, ec);
    if (!ec) target = resolved;
  }

  struct stat info {};
  const bool exists = ::stat(target.c_str(), &info) == 0;
  if (!exists && errno != ENOENT) return failure(path, errno);
  if (exists && S_ISDIR(info.st_mode)) {
    return failure(path, EISDIR, path + " is a folder; nothing was written.");
  }
  if (exists && !S_ISREG(info.st_mode)) {
    return failure(path, EINVAL, path + " is not a plain file; nothing was written.");
  }
  // A file without any write permission is read-only even for a user who could replace it.
  if (exists && ((info.st_mode & 0222) == 0 || ::access(target.c_str(), W_OK) != 0)) {
    return failure(path, EACCES, path + " is read-only; it was left as it was.");
  }
  const int mode = exists ? static_cast<int>(info.st_mode & 07777) : -1;

  WriteStatus status;
  if (backup == KeepBackup::OncePerSession && exists) {
    std::lock_guard<std::mutex> guard(backupLock());
    const std::string key = fs::absolute(target, ec).lexically_normal().string();
    if (!backedUp().count(key)) {
      const std::optional<std::string> old = readWholeFile(target.string());
      if (!old) {
        return failure(path, EIO,
                       path + " was not written: it could not be read for its backup copy.");
      }
      const fs::path copy(backupPathFor(target.string()));
      struct stat copyInfo {};
      const bool copyExists = ::lstat(copy.c_str(), &copyInfo) == 0;
      if (copyExists && !S_ISREG(copyInfo.st_mode)) {
        return failure(
            path, EINVAL,
            path + " was not written: its backup name " + copy.string() + " is not a plain file.");
      }
      if (const int error = replaceThroughTemporary(copy, *old, mode, &info); error != 0) {
        return failure(
            path, error,
            path + " was not written: its backup copy could not be made (" + causeOf(error) + ").");
      }
      backedUp().insert(key);
      status.backupMade = true;
    }
  }

  if (const int error = replaceThroughTemporary(target, content, mode, exists ? &info : nullptr);
      error != 0) {
    return failure(path, error);
  }
  status.ok = true;
  return status;
}

}  // namespace zel

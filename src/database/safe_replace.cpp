#include "database/safe_replace.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <optional>
#include <random>
#include <system_error>

#include "formats/text_file.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace zel::database {

namespace fs = std::filesystem;

namespace {

#ifdef _WIN32
int openExclusive(const std::string& path) {
  return _open(path.c_str(), _O_CREAT | _O_EXCL | _O_WRONLY | _O_BINARY, _S_IREAD | _S_IWRITE);
}
int writeSome(int fd, const char* data, std::size_t size) {
  return _write(fd, data, static_cast<unsigned>(size > (1u << 30) ? (1u << 30) : size));
}
int flushToDisk(int fd) { return _commit(fd); }
int closeFile(int fd) { return _close(fd); }
void flushFolder(const fs::path&) {}
#else
int openExclusive(const std::string& path) {
  return ::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666);
}
ssize_t writeSome(int fd, const char* data, std::size_t size) { return ::write(fd, data, size); }
// fdatasync writes the data and the size the file needs to be read back; the rename that
// follows is made durable by the flush of the folder.
int flushToDisk(int fd) { return ::fdatasync(fd); }
int closeFile(int fd) { return ::close(fd); }
void flushFolder(const fs::path& folder) {
  const int fd = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}
#endif

std::string causeOf(int error) {
  return std::strerror(error ? error : EIO);
}

// Writes `content` to a new, uniquely named file in the target's folder and renames it over
// the target. Returns "" or the cause of the failure.
std::string writeThroughTemporary(const fs::path& target, std::string_view content,
                                  std::optional<fs::perms> perms) {
  static thread_local std::mt19937_64 random{std::random_device{}()};
  const fs::path folder = target.parent_path();
  std::string temporary;
  int fd = -1;
  for (int attempt = 0; attempt < 16 && fd < 0; ++attempt) {
    char suffix[24];
    std::snprintf(suffix, sizeof suffix, ".%012llx.tmp",
                  static_cast<unsigned long long>(random() & 0xffffffffffffULL));
    temporary = (folder / ("." + target.filename().string() + suffix)).string();
    fd = openExclusive(temporary);
    if (fd < 0 && errno != EEXIST) return causeOf(errno);
  }
  if (fd < 0) return causeOf(EEXIST);

  const char* p = content.data();
  std::size_t left = content.size();
  int error = 0;
  while (left > 0) {
    const auto n = writeSome(fd, p, left);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) {
      error = n < 0 ? errno : EIO;
      break;
    }
    p += n;
    left -= static_cast<std::size_t>(n);
  }
  if (error == 0 && flushToDisk(fd) != 0) error = errno;
  if (closeFile(fd) != 0 && error == 0) error = errno;
  std::error_code ec;
  if (error == 0 && perms) fs::permissions(temporary, *perms, ec);
  if (error == 0) {
    fs::rename(temporary, target, ec);
    if (ec) error = ec.value();
  }
  if (error != 0) {
    fs::remove(temporary, ec);
    return causeOf(error);
  }
  flushFolder(folder);
  return {};
}

// A file marked read-only is refused even where the user could write it anyway (an
// administrator): the mark is the user's wish to keep the file as it is.
bool writable(const fs::path& path) {
  std::error_code ec;
  const fs::perms p = fs::status(path, ec).permissions();
  const fs::perms anyWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  if (ec || (p & anyWrite) == fs::perms::none) return false;
#ifdef _WIN32
  return true;
#else
  return ::access(path.c_str(), W_OK) == 0;
#endif
}

}  // namespace

std::string backupPathFor(const std::string& path) {
  return fs::path(path).replace_extension(".bak").string();
}

ReplaceResult replaceFileContent(const std::string& path, std::string_view content,
                                 bool keepBackupOnce) {
  ReplaceResult result;
  const fs::path target(path);
  const std::string name = target.filename().string();
  auto fail = [&](const std::string& cause) {
    result.error = name + " was not written and is unchanged: " + cause + ".";
    return result;
  };
  std::error_code ec;
  const fs::file_status status = fs::status(target, ec);
  if (fs::is_directory(status)) return fail("that name is a folder");
  const bool exists = fs::exists(status);
  if (exists && !fs::is_regular_file(status)) return fail("that name is not a plain file");
  if (exists && !writable(target)) return fail(causeOf(EACCES));
  std::optional<fs::perms> perms;
  if (exists) perms = status.permissions();

  if (keepBackupOnce && exists) {
    const fs::path backup(backupPathFor(path));
    if (!fs::exists(backup, ec)) {
      const std::optional<std::string> old = formats::readWholeFile(path);
      if (!old) return fail("its present content could not be read for the backup copy");
      const std::string cause = writeThroughTemporary(backup, *old, perms);
      if (!cause.empty()) return fail("the backup copy could not be made (" + cause + ")");
      result.backupMade = true;
    }
  }
  const std::string cause = writeThroughTemporary(target, content, perms);
  if (!cause.empty()) return fail(cause);
  result.ok = true;
  return result;
}

}  // namespace zel::database

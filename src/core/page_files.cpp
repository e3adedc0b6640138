#include "core/page_files.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "core/keys.h"
#include "core/text.h"

namespace fs = std::filesystem;

namespace zel {

namespace {

bool writeLines(const std::string& path, const std::vector<std::string>& lines,
                std::ios::openmode mode) {
  std::ofstream out(path, std::ios::binary | mode);
  if (!out) return false;
  std::string buffer;
  std::size_t total = 0;
  for (const auto& l : lines) total += l.size() + 1;
  buffer.reserve(total);
  for (const auto& l : lines) {
    buffer += l;
    buffer.push_back('\n');
  }
  out.write(buffer.data(), static_cast<std::streamsize>(buffer.size()));
  out.flush();
  return static_cast<bool>(out);
}

}  // namespace

PageRow splitPageLine(std::string_view line) {
  PageRow row;
  std::size_t comma = line.find(',');
  std::string_view head = comma == std::string_view::npos ? line : line.substr(0, comma);
  row.number = static_cast<int>(leadingInteger(head));
  row.fields = comma == std::string_view::npos ? std::string_view{} : line.substr(comma + 1);
  return row;
}

PageFiles::PageFiles(std::string folder) : folder_(std::move(folder)) {
  std::error_code ec;
  fs::create_directories(folder_, ec);
}

std::string PageFiles::pathOf(std::string_view departmentKey) const {
  return (fs::path(folder_) / (std::string(departmentKey) + ".tmp")).string();
}

std::string PageFiles::scratchPath() const { return (fs::path(folder_) / "temp.tmp").string(); }

bool PageFiles::exists(std::string_view departmentKey) const {
  std::error_code ec;
  return fs::exists(pathOf(departmentKey), ec);
}

std::vector<std::string> PageFiles::load(std::string_view departmentKey) const {
  std::vector<std::string> lines;
  std::ifstream in(pathOf(departmentKey), std::ios::binary);
  if (!in) return lines;
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty()) continue;
    lines.push_back(std::move(line));
  }
  return lines;
}

bool PageFiles::save(std::string_view departmentKey, const std::vector<std::string>& lines) const {
  std::error_code ec;
  fs::remove(scratchPath(), ec);
  const std::string target = pathOf(departmentKey);
  if (lines.empty()) {
    fs::remove(target, ec);
    return !ec;
  }
  const std::string partial = target + ".part";
  if (!writeLines(partial, lines, std::ios::trunc)) {
    fs::remove(partial, ec);
    return false;
  }
  fs::rename(partial, target, ec);
  if (ec) {
    fs::remove(partial, ec);
    return false;
  }
  return true;
}

bool PageFiles::append(std::string_view departmentKey, std::string_view line) const {
  return appendAll(departmentKey, {std::string(line)});
}

bool PageFiles::appendAll(std::string_view departmentKey,
                          const std::vector<std::string>& lines) const {
  if (lines.empty()) return true;
  return writeLines(pathOf(departmentKey), lines, std::ios::app);
}

bool PageFiles::remove(std::string_view departmentKey) const {
  std::error_code ec;
  return fs::remove(pathOf(departmentKey), ec);
}

bool PageFiles::rename(std::string_view fromKey, std::string_view toKey) const {
  if (!exists(fromKey)) return true;  // an empty department has no file to move
  std::error_code ec;
  fs::rename(pathOf(fromKey), pathOf(toKey), ec);
  return !ec;
}

bool PageFiles::copy(std::string_view fromKey, std::string_view toKey) const {
  if (!exists(fromKey)) return true;
  std::error_code ec;
  fs::copy_file(pathOf(fromKey), pathOf(toKey), fs::copy_options::overwrite_existing, ec);
  return !ec;
}

void PageFiles::clearAll() const {
  std::error_code ec;
  for (fs::directory_iterator it(folder_, ec), end; !ec && it != end; it.increment(ec)) {
    if (it->path().extension() == ".tmp") {
      std::error_code rmError;
      fs::remove(it->path(), rmError);
    }
  }
}

std::vector<std::string> PageFiles::departments() const {
  std::vector<std::string> out;
  std::error_code ec;
  for (fs::directory_iterator it(folder_, ec), end; !ec && it != end; it.increment(ec)) {
    const fs::path& p = it->path();
    if (p.extension() == ".tmp" && startsWith(p.filename().string(), "GRP-"))
      out.push_back(p.stem().string());
  }
  return out;
}

bool PageFiles::rebuildKeyedRows(DocumentTree& work, std::string& error,
                                 std::size_t limit) const {
  for (const std::string& dept : departments()) {
    // Department key "GRP-999-sss-nnn": system at characters 9 to 11, department 13 to 15.
    const int sys = keys::numberAt(dept, 9);
    const int num = keys::numberAt(dept, 13);
    for (const std::string& line : load(dept)) {
      if (work.count() >= limit) {
        error = "error, temp memory is full";
        return false;
      }
      PageRow row = splitPageLine(line);
      std::string first(mid(row.fields, 1, row.fields.find(',')));
      const bool frequency = first.find('.') != std::string::npos;
      std::string key = frequency ? keys::channel(sys, num, row.number)
                                  : keys::talkgroup(sys, num, row.number);
      work.add({}, key, line);
    }
  }
  return true;
}

}  // namespace zel

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

static std::size_t linesBytes(const std::vector<std::string>& lines) {
  std::size_t total = 0;
  for (const auto& l : lines) total += l.size() + 1;
  return total;
}

static std::vector<std::string> readFileLines(const std::string& path) {
  std::vector<std::string> lines;
  std::ifstream in(path, std::ios::binary);
  if (!in) return lines;
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty()) continue;
    lines.push_back(std::move(line));
  }
  return lines;
}

PageFiles::Page* PageFiles::page(std::string_view departmentKey, bool create) const {
  auto it = pages_.find(departmentKey);
  if (it != pages_.end()) return &it->second;
  std::vector<std::string> fromFile;
  if (!authoritative_ && !emptied_.count(departmentKey)) fromFile = readFileLines(pathOf(departmentKey));
  if (fromFile.empty() && !create) return nullptr;
  bytes_ += linesBytes(fromFile);
  Page& made = pages_[std::string(departmentKey)];
  made.lines = std::move(fromFile);
  return &made;
}

void PageFiles::forget(std::string_view departmentKey) const {
  auto it = pages_.find(departmentKey);
  if (it != pages_.end()) {
    bytes_ -= linesBytes(it->second.lines);
    pages_.erase(it);
  }
  emptied_.emplace(departmentKey);
}

bool PageFiles::exists(std::string_view departmentKey) const {
  const Page* p = page(departmentKey, false);
  return p && !p->lines.empty();
}

std::vector<std::string> PageFiles::load(std::string_view departmentKey) const {
  const Page* p = page(departmentKey, false);
  return p ? p->lines : std::vector<std::string>{};
}

void PageFiles::visit(std::string_view departmentKey,
                      const std::function<void(std::string_view)>& fn) const {
  if (const Page* p = page(departmentKey, false))
    for (const std::string& line : p->lines) fn(line);
}

bool PageFiles::save(std::string_view departmentKey, const std::vector<std::string>& lines) const {
  std::error_code ec;
  fs::remove(scratchPath(), ec);
  if (lines.empty()) {
    forget(departmentKey);
    return true;
  }
  Page* p = page(departmentKey, true);
  bytes_ -= linesBytes(p->lines);
  p->lines = lines;
  p->dirty = true;
  bytes_ += linesBytes(p->lines);
  emptied_.erase(std::string(departmentKey));
  return true;
}

bool PageFiles::append(std::string_view departmentKey, std::string_view line) const {
  return appendAll(departmentKey, std::vector<std::string>{std::string(line)});
}

bool PageFiles::appendAll(std::string_view departmentKey,
                          const std::vector<std::string>& lines) const {
  return appendAll(departmentKey, std::vector<std::string>(lines));
}

bool PageFiles::appendAll(std::string_view departmentKey, std::vector<std::string>&& lines) const {
  if (lines.empty()) return true;
  Page* p = page(departmentKey, true);
  bytes_ += linesBytes(lines);
  if (p->lines.empty()) {
    p->lines = std::move(lines);
  } else {
    p->lines.insert(p->lines.end(), std::make_move_iterator(lines.begin()),
                    std::make_move_iterator(lines.end()));
  }
  p->dirty = true;
  if (!emptied_.empty()) emptied_.erase(std::string(departmentKey));
  return true;
}

bool PageFiles::remove(std::string_view departmentKey) const {
  const bool had = exists(departmentKey);
  forget(departmentKey);
  return had;
}

bool PageFiles::rename(std::string_view fromKey, std::string_view toKey) const {
  Page* from = page(fromKey, false);
  if (!from) return true;  // an empty department has no rows to move
  std::vector<std::string> lines = std::move(from->lines);
  forget(fromKey);
  return save(toKey, lines);
}

bool PageFiles::copy(std::string_view fromKey, std::string_view toKey) const {
  const Page* from = page(fromKey, false);
  if (!from) return true;
  return save(toKey, std::vector<std::string>(from->lines));
}

void PageFiles::clearAll() const {
  pages_.clear();
  emptied_.clear();
  bytes_ = 0;
  authoritative_ = true;
  std::error_code ec;
  for (fs::directory_iterator it(folder_, ec), end; !ec && it != end; it.increment(ec)) {
    if (it->path().extension() == ".tmp") {
      std::error_code rmError;
      fs::remove(it->path(), rmError);
    }
  }
}

std::vector<std::string> PageFiles::departments() const {
  std::set<std::string> out;
  for (const auto& [key, p] : pages_)
    if (!p.lines.empty()) out.insert(key);
  if (!authoritative_) {
    std::error_code ec;
    for (fs::directory_iterator it(folder_, ec), end; !ec && it != end; it.increment(ec)) {
      const fs::path& path = it->path();
      std::string stem = path.stem().string();
      if (path.extension() == ".tmp" && startsWith(stem, "GRP-") && !emptied_.count(stem) &&
          !pages_.count(stem))
        out.insert(std::move(stem));
    }
  }
  return {out.begin(), out.end()};
}

bool PageFiles::flush() const {
  bool ok = true;
  std::error_code ec;
  for (const std::string& key : emptied_) fs::remove(pathOf(key), ec);
  emptied_.clear();
  for (auto& [key, p] : pages_) {
    if (!p.dirty) continue;
    const std::string target = pathOf(key);
    const std::string partial = target + ".part";
    if (!writeLines(partial, p.lines, std::ios::trunc)) {
      fs::remove(partial, ec);
      ok = false;
      continue;
    }
    fs::rename(partial, target, ec);
    if (ec) {
      fs::remove(partial, ec);
      ok = false;
      continue;
    }
    p.dirty = false;
  }
  return ok;
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

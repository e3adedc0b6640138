#include "transfer/card_transaction.h"

#include <filesystem>
#include <system_error>

#include "core/text.h"
#include "formats/text_file.h"

namespace zel::transfer {

namespace fs = std::filesystem;

CardTransaction::~CardTransaction() {
  if (!saved_.empty()) rollback();
}

void CardTransaction::remember(const std::string& path) {
  for (const auto& s : saved_) {
    if (s.path == path) return;
  }
  saved_.push_back({path, formats::readWholeFile(path)});
}

StepStatus CardTransaction::write(const std::string& path, std::string_view content) {
  remember(path);
  auto st = formats::writeFileAtomically(path, content);
  if (!st.ok) {
    return {false, "Cannot write " + fs::path(path).filename().string() + " on the card (" +
                       st.description + "); the card was left as it was."};
  }
  return {};
}

StepStatus CardTransaction::copy(const std::string& from, const std::string& to) {
  auto bytes = formats::readWholeFile(from);
  if (!bytes) {
    return {false, "Cannot read " + fs::path(from).filename().string() +
                       " on the card; the card was left as it was."};
  }
  return write(to, *bytes);
}

StepStatus CardTransaction::remove(const std::string& path) {
  remember(path);
  std::error_code ec;
  fs::remove(path, ec);
  if (ec) {
    return {false, "Cannot delete " + fs::path(path).filename().string() + " on the card (" +
                       ec.message() + "); the card was left as it was."};
  }
  return {};
}

bool CardTransaction::rollback() {
  bool all = true;
  // Newest change first, so that a file touched twice ends as it first was.
  for (auto it = saved_.rbegin(); it != saved_.rend(); ++it) {
    std::error_code ec;
    if (it->bytes) {
      all = formats::writeFileAtomically(it->path, *it->bytes).ok && all;
    } else {
      fs::remove(it->path, ec);
      all = !ec && all;
    }
    fs::remove(it->path + ".zeltmp", ec);
  }
  saved_.clear();
  return all;
}

std::vector<std::string> removeStaleTemporaries(const std::string& folder) {
  std::vector<std::string> removed;
  std::error_code ec;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    const std::string name = it->path().filename().string();
    if (!endsWith(name, ".zeltmp")) continue;
    std::error_code rmEc;
    if (fs::remove(it->path(), rmEc)) removed.push_back(name);
  }
  return removed;
}

}  // namespace zel::transfer

// Where the reader puts a department's channel and talkgroup rows and where the writer
// finds them again. A session keeps them in its page files; a document that lives only for
// one command (a convert, a check, a card transfer) can keep them in a plain map.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/page_files.h"

namespace zel::formats {

class RowStore {
 public:
  virtual ~RowStore() = default;
  // Adds rows ("n,fields...") behind the department's rows. False when they could not be
  // kept; `where` then names the place for a message.
  virtual bool append(std::string_view department, const std::vector<std::string>& rows) = 0;
  // The same for rows the caller gives up, which a store may keep without copying.
  virtual bool take(std::string_view department, std::vector<std::string>&& rows) {
    return append(department, rows);
  }
  virtual std::vector<std::string> load(std::string_view department) const = 0;
  // Calls `fn` with each row of the department in order.
  virtual void visit(std::string_view department,
                     const std::function<void(std::string_view)>& fn) const {
    for (const std::string& row : load(department)) fn(row);
  }
  virtual void remove(std::string_view department) = 0;
  virtual std::string where(std::string_view department) const = 0;
  // About how many bytes the rows hold together; 0 when the store cannot tell cheaply.
  virtual std::size_t sizeHint() const { return 0; }
};

// The rows in the session's page files: one append a department.
class PageFileRows : public RowStore {
 public:
  explicit PageFileRows(const PageFiles& pages) : pages_(pages) {}
  bool append(std::string_view department, const std::vector<std::string>& rows) override {
    return pages_.appendAll(department, rows);
  }
  bool take(std::string_view department, std::vector<std::string>&& rows) override {
    return pages_.appendAll(department, std::move(rows));
  }
  std::vector<std::string> load(std::string_view department) const override {
    return pages_.load(department);
  }
  void visit(std::string_view department,
             const std::function<void(std::string_view)>& fn) const override {
    pages_.visit(department, fn);
  }
  std::size_t sizeHint() const override { return pages_.bytesHeld(); }
  void remove(std::string_view department) override { pages_.remove(department); }
  std::string where(std::string_view department) const override {
    return pages_.pathOf(department);
  }

 private:
  const PageFiles& pages_;
};

// The rows in memory, by department key.
class MemoryRows : public RowStore {
 public:
  bool append(std::string_view department, const std::vector<std::string>& rows) override;
  bool take(std::string_view department, std::vector<std::string>&& rows) override;
  std::vector<std::string> load(std::string_view department) const override;
  void visit(std::string_view department,
             const std::function<void(std::string_view)>& fn) const override;
  void remove(std::string_view department) override;
  std::string where(std::string_view department) const override { return std::string(department); }
  std::size_t sizeHint() const override { return bytes_; }
  std::size_t departments() const { return rows_.size(); }
  // Writes every department to the page files, as a session would hold them.
  bool saveTo(const PageFiles& pages) const;

 private:
  std::unordered_map<std::string, std::vector<std::string>> rows_;
  std::size_t bytes_ = 0;
};

}  // namespace zel::formats

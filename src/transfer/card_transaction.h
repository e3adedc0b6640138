// All-or-nothing changes to the files of a card. Before a file is first touched its bytes
// (or its absence) are kept in memory; when a later step fails, every touched file is put
// back, so a full card or a failed rename leaves the card as it was. Each write itself
// goes to a temporary name beside the target and is renamed into place when complete.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zel::transfer {

struct StepStatus {
  bool ok = true;
  std::string message;  // one sentence for the user when a step failed
};

class CardTransaction {
 public:
  ~CardTransaction();  // an open transaction rolls back
  StepStatus write(const std::string& path, std::string_view content);
  StepStatus copy(const std::string& from, const std::string& to);
  StepStatus remove(const std::string& path);
  // Keeps the changes.
  void commit() { saved_.clear(); }
  // Puts every touched file back; true when all of them could be restored.
  bool rollback();

 private:
  void remember(const std::string& path);
  struct Saved {
    std::string path;
    std::optional<std::string> bytes;  // nothing: the file did not exist
  };
  std::vector<Saved> saved_;
};

// Temporary files of an earlier run that was killed while writing: "*.zeltmp" in `folder`.
// Removing them puts the folder back as it was before that run.
std::vector<std::string> removeStaleTemporaries(const std::string& folder);

}  // namespace zel::transfer

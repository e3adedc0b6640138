// The conventional builder: a new system from the ticked rows of the frequency list, its
// departments found by name, each row a channel in its department's page rows.
//
//   SYS-sss            SIN,Conventional,0,StateId=0,<name>,Off,01/01/2010 10:00:00,...,<file>
//   GRP-999-sss-ddd    GIN,C-Group,CGroupId=0,AgencyId=0,<department>,Off,<location>,Circle,<qk>
//   page rows          <n>,<freq>,<name>,Off,AUTO,<kind>,<value>,<service>,Off,2,0,Off,Auto[,led]
//
// Departments are numbered by their entry in the import's table, 1 to 399; a name that
// finds neither its entry nor a free one takes no rows. A page row leads with the
// department's channel counter, from 1, as every page row of the document does.
#include <map>

#include "core/keys.h"
#include "core/new_commands.h"
#include "core/tables.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "radioref/rr_import.h"
#include "radioref/rr_import_text.h"
#include "radioref/rr_readers.h"

namespace zel::radioref {

namespace {

constexpr std::string_view kNoSelection = "Please select at least one frequency for import.";
constexpr std::string_view kStorageFull =
    "Out of storage space, reached storage limit (30000 objects).";
constexpr std::string_view kNoSystem = "Error, can not create new system: ";

struct Department {
  std::string name;
  std::string key;
  int counter = 1;  // the number the next channel's row takes
  std::vector<std::string> rows;
};

ImportResult refuse(Feedback& feedback, std::string message) {
  feedback.message(message);
  ImportResult result;
  result.message = std::move(message);
  return result;
}

class Builder {
 public:
  Builder(ImportTarget& target, const ImportOptions& options, int system)
      : target_(target), options_(options), system_(system) {}

  void add(const ConvRow& row);
  // Hands the gathered rows to the row store, department by department; false (with the
  // place in `failedAt`) when the store could not keep them.
  bool storeRows(std::string& failedAt);
  int departments() const { return static_cast<int>(table_.size()); }
  int channels() const { return channels_; }

 private:
  Department* department(const ConvRow& row);

  ImportTarget& target_;
  const ImportOptions& options_;
  int system_;
  std::vector<Department> table_;  // entry n is department n + 1
  int channels_ = 0;
};

Department* Builder::department(const ConvRow& row) {
  for (Department& d : table_) {
    if (d.name == row.department) return &d;
  }
  if (static_cast<int>(table_.size()) >= kMaxDepartments) return nullptr;
  const int number = static_cast<int>(table_.size()) + 1;
  const std::string key = keys::department(system_, number);
  const std::string line =
      conventionalDepartmentRecord(row.department, row.gps, departmentQuickKey(number, options_));
  if (target_.doc.data.add(keys::system(system_), key, line) == kNoNode) return nullptr;
  table_.push_back({row.department, key, 1, {}});
  return &table_.back();
}

void Builder::add(const ConvRow& row) {
  Department* d = department(row);
  if (d == nullptr) return;
  std::string service = serviceTagName(static_cast<int>(leadingInteger(row.tag)));
  if (service.empty() && options_.untaggedConventional > 0) {
    service = serviceTagName(options_.untaggedConventional);
  }
  const bool encrypted = !row.enc.empty() && row.enc != "0";
  const ChannelLines lines = channelLines(row.frequency, importName(row.alpha, row.descr, options_),
                                          toneAndMode(row.tone, row.mode), row.colorCode, service,
                                          options_.leds, options_.lockoutEncrypted && encrypted);
  d->rows.push_back(std::to_string(d->counter) + "," + lines.grid);
  ++d->counter;
  ++channels_;
}

bool Builder::storeRows(std::string& failedAt) {
  for (Department& d : table_) {
    if (d.rows.empty()) continue;
    target_.rows.remove(d.key);
    if (!target_.rows.take(d.key, std::move(d.rows))) {
      failedAt = target_.rows.where(d.key);
      return false;
    }
  }
  return true;
}

void dropSystem(Document& doc, formats::RowStore& rows, int system) {
  const std::string key = keys::system(system);
  const NodeId node = doc.data.find(key);
  for (NodeId c : doc.data.childList(node)) rows.remove(doc.data.key(c));
  doc.data.remove(key);
  doc.systems.clearRow(system);
}

}  // namespace

ImportResult maak_detemp245(ImportTarget target, const std::string& systemName,
                            const std::vector<ConvRow>& rows, const ImportOptions& options) {
  Document& doc = target.doc;
  bool anyTicked = false;
  for (const ConvRow& row : rows) anyTicked = anyTicked || row.ticked;
  if (!anyTicked) return refuse(target.feedback, std::string(kNoSelection));
  if (doc.data.count() > kMaxTreeNodes) return refuse(target.feedback, std::string(kStorageFull));

  const std::string name = importSystemName(systemName, options);
  const int system = treemod::g_n_i(doc, "system", 0, target.feedback);
  if (system < 1) return refuse(target.feedback, std::string(kNoSystem) + name);

  const std::string key = keys::system(system);
  const std::string line = "SIN,Conventional,0,StateId=0," + name +
                           ",Off,01/01/2010 10:00:00,Conventional,,,,,,,,,,,,,,,," +
                           padNumber(target.fileNumber, 3);
  if (doc.data.add({}, key, line) == kNoNode) {
    return refuse(target.feedback, std::string(kNoSystem) + name);
  }
  doc.systems.clearRow(system);
  doc.systems.markInUse(system, true);
  doc.systems.set(system, 1, name);
  doc.systems.set(system, 10, "0");

  Builder builder(target, options, system);
  for (const ConvRow& row : rows) {
    if (row.ticked) builder.add(row);
  }
  std::string failedAt;
  if (!builder.storeRows(failedAt)) {
    dropSystem(doc, target.rows, system);
    return refuse(target.feedback, "Could not write the page file " + failedAt);
  }
  rebuildVisibleTree(doc);
  doc.changed = true;

  ImportResult result;
  result.ok = true;
  result.systemKey = key;
  result.departments = builder.departments();
  result.channels = builder.channels();
  return result;
}

}  // namespace zel::radioref

// The copy of chosen systems from a state's document into the favorites document.
//
// First a plan: for each choice the source nodes it takes, checked against the state, and
// the number of nodes it adds. Then the limits, before anything changes. Then the copy,
// node by node under new keys, the rows of each department under its new key, and the
// fleet maps and band plans after the last system, where a read of the saved file puts them.
#include <algorithm>

#include "core/keys.h"
#include "core/new_commands.h"
#include "core/record_line.h"
#include "core/tables.h"
#include "core/text.h"
#include "database/db_import.h"

namespace zel::database {

namespace {

constexpr std::string_view kOutOfStorage = "ERROR: Out of storage space";
constexpr int kFileField = 23;  // the open list a system belongs to

struct Plan {
  const DbSystem* system = nullptr;
  NodeId node = kNoNode;
  std::vector<NodeId> sites;        // in file order
  std::vector<NodeId> departments;  // in file order
  std::vector<NodeId> bandPlans;    // by site, kNoNode where a site has none
  NodeId fleetMap = kNoNode;
  NodeId unitHead = kNoNode;
  std::size_t nodes = 0;
};

std::string partList(const std::vector<int>& wanted, const std::vector<DbPart>& parts,
                     const DbSystem& system, std::string_view word,
                     std::vector<const DbPart*>& out) {
  if (wanted.empty()) {
    for (const DbPart& p : parts) out.push_back(&p);
    return {};
  }
  for (const DbPart& p : parts) {
    if (std::find(wanted.begin(), wanted.end(), p.number) != wanted.end()) out.push_back(&p);
  }
  for (int n : wanted) {
    if (n < 1 || n > static_cast<int>(parts.size())) {
      return "System " + std::to_string(system.number) + " (" + system.name + ") has no " +
             std::string(word) + " " + std::to_string(n) + ".";
    }
  }
  return {};
}

// The plan of one choice, or a sentence saying what the state lacks.
std::string planOf(const StateDatabase& source, const DbChoice& choice, Plan& plan) {
  const DbSystem* system = source.system(choice.system);
  if (!system) {
    return "The state file has no system " + std::to_string(choice.system) + " (it has " +
           std::to_string(source.systems().size()) + ").";
  }
  const DocumentTree& tree = source.document().data;
  plan.system = system;
  plan.node = tree.find(system->key);
  std::vector<const DbPart*> sites, departments;
  if (std::string why = partList(choice.sites, system->sites, *system, "site", sites);
      !why.empty()) {
    return why;
  }
  if (std::string why =
          partList(choice.departments, system->departments, *system, "department", departments);
      !why.empty()) {
    return why;
  }
  const int number = keys::systemOf(system->key);
  plan.nodes = 1;
  plan.unitHead = tree.find(keys::unitHead(number));
  if (plan.unitHead != kNoNode) plan.nodes += 1 + tree.childList(plan.unitHead).size();
  for (const DbPart* p : sites) {
    const NodeId node = tree.find(p->key);
    plan.sites.push_back(node);
    const NodeId bandPlan = tree.find(keys::bandPlan(number, keys::siteOf(p->key)));
    plan.bandPlans.push_back(bandPlan);
    plan.nodes += 1 + tree.childList(node).size() + (bandPlan != kNoNode ? 1 : 0);
  }
  for (const DbPart* p : departments) plan.departments.push_back(tree.find(p->key));
  plan.nodes += departments.size();
  plan.fleetMap = tree.find(keys::fleetMap(number));
  if (plan.fleetMap != kNoNode) ++plan.nodes;
  return {};
}

// The lowest free system numbers of the document, as numbering a new system finds them.
std::vector<int> freeSystemNumbers(const Document& doc, std::size_t wanted) {
  std::vector<int> numbers;
  for (int n = 1; n <= kMaxSystems && numbers.size() < wanted; ++n) {
    if (!doc.data.contains(keys::system(n))) numbers.push_back(n);
  }
  return numbers;
}

class Copier {
 public:
  Copier(DbImportTarget& target, const StateDatabase& source)
      : target_(target), source_(source), from_(source.document().data) {}

  // False when a department's rows could not be kept; `failedAt` names the place.
  bool copy(const Plan& plan, int number, DbImportResult& result, std::string& failedAt);
  void addLaterNodes();
  void rollBack(const std::vector<std::string>& systemKeys);

 private:
  void add(const std::string& parent, const std::string& key, NodeId from);

  DbImportTarget& target_;
  const StateDatabase& source_;
  const DocumentTree& from_;
  struct Later {
    std::string parent, key, text;
  };
  std::vector<Later> later_;
  std::vector<std::string> frequencyKeys_;
  std::vector<std::pair<std::string, std::string>> frequencyBefore_;
  std::vector<std::string> pages_;
};

void Copier::add(const std::string& parent, const std::string& key, NodeId from) {
  target_.doc.data.add(parent, key, from_.text(from));
}

bool Copier::copy(const Plan& plan, int number, DbImportResult& result, std::string& failedAt) {
  Document& doc = target_.doc;
  const int sourceNumber = keys::systemOf(plan.system->key);
  const std::string systemKey = keys::system(number);
  doc.data.add({}, systemKey,
               record::withField(from_.text(plan.node), kFileField,
                                 padNumber(target_.fileNumber, 3)));
  doc.systems.clearRow(number);
  for (int f = 0; f < SystemTable::kFields; ++f) {
    doc.systems.set(number, f, source_.document().systems.get(sourceNumber, f));
  }
  doc.systems.markInUse(number, true);
  result.systemKeys.push_back(systemKey);

  // The fleet map comes before the band plans of its system, as its line does.
  if (plan.fleetMap != kNoNode) {
    later_.push_back({systemKey, keys::fleetMap(number), from_.text(plan.fleetMap)});
  }
  if (plan.unitHead != kNoNode) {
    const std::string head = keys::unitHead(number);
    add(systemKey, head, plan.unitHead);
    int unit = 0;
    for (NodeId u : from_.childList(plan.unitHead)) add(head, keys::unitId(number, ++unit), u);
  }
  for (std::size_t i = 0; i < plan.sites.size(); ++i) {
    const int site = static_cast<int>(i) + 1;
    const std::string siteKey = keys::site(number, site);
    add(systemKey, siteKey, plan.sites[i]);
    ++result.sites;
    int frequency = 0;
    for (NodeId f : from_.childList(plan.sites[i])) {
      const std::string key = keys::siteFrequency(number, site, ++frequency);
      add(siteKey, key, f);
      const NodeId flat = doc.frequencies.find(key);
      if (flat != kNoNode) {
        frequencyBefore_.emplace_back(key, doc.frequencies.text(flat));
        doc.frequencies.setText(flat, from_.text(f));
      } else {
        doc.frequencies.add({}, key, from_.text(f));
        frequencyKeys_.push_back(key);
      }
      ++result.frequencies;
    }
    if (plan.bandPlans[i] != kNoNode) {
      later_.push_back({systemKey, keys::bandPlan(number, site), from_.text(plan.bandPlans[i])});
    }
  }
  int department = 0;
  for (NodeId d : plan.departments) {
    const std::string key = keys::department(number, department++);
    add(systemKey, key, d);
    ++result.departments;
    std::vector<std::string> rows = source_.rows().load(from_.key(d));
    target_.rows.remove(key);
    if (rows.empty()) continue;
    result.channels += static_cast<int>(rows.size());
    pages_.push_back(key);
    if (!target_.rows.take(key, std::move(rows))) {
      failedAt = target_.rows.where(key);
      return false;
    }
  }
  return true;
}

void Copier::addLaterNodes() {
  for (const Later& l : later_) target_.doc.data.add(l.parent, l.key, l.text);
}

void Copier::rollBack(const std::vector<std::string>& systemKeys) {
  Document& doc = target_.doc;
  for (const std::string& key : systemKeys) {
    doc.data.remove(key);
    doc.systems.clearRow(keys::systemOf(key));
  }
  for (const std::string& key : frequencyKeys_) doc.frequencies.remove(key);
  for (const auto& [key, text] : frequencyBefore_) {
    if (NodeId n = doc.frequencies.find(key); n != kNoNode) doc.frequencies.setText(n, text);
  }
  for (const std::string& key : pages_) target_.rows.remove(key);
}

DbImportResult refuse(Feedback& feedback, std::string message) {
  feedback.message(message);
  DbImportResult result;
  result.message = std::move(message);
  return result;
}

}  // namespace

DbImportResult importSystems(DbImportTarget target, const StateDatabase& source,
                             const std::vector<DbChoice>& choices, const DbProgress& progress) {
  if (choices.empty()) return refuse(target.feedback, "No system is chosen.");
  std::vector<Plan> plans(choices.size());
  std::size_t nodes = 0;
  for (std::size_t i = 0; i < choices.size(); ++i) {
    if (std::string why = planOf(source, choices[i], plans[i]); !why.empty()) {
      return refuse(target.feedback, why);
    }
    nodes += plans[i].nodes;
  }
  Document& doc = target.doc;
  const std::vector<int> numbers = freeSystemNumbers(doc, plans.size());
  if (numbers.size() < plans.size() || doc.data.count() + nodes > kMaxTreeNodes) {
    return refuse(target.feedback, std::string(kOutOfStorage));
  }

  DbImportResult result;
  Copier copier(target, source);
  for (std::size_t i = 0; i < plans.size(); ++i) {
    std::string failedAt;
    if (!copier.copy(plans[i], numbers[i], result, failedAt)) {
      copier.rollBack(result.systemKeys);
      return refuse(target.feedback, "Could not write the page file " + failedAt);
    }
    if (progress) progress(static_cast<int>(i) + 1, static_cast<int>(plans.size()));
  }
  copier.addLaterNodes();
  rebuildVisibleTree(doc);
  doc.changed = true;
  result.ok = true;
  return result;
}

}  // namespace zel::database

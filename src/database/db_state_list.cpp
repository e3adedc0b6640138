// The picker's side of the database import: a state file read into a document of its own,
// the list of its systems with their sites, departments and service types, and the filter.
//
//   SIN,<type>,<number>,StateId=..,<name>,...          type at 1, name at 4
//   SIT,Site,SiteId=..,TrunkId=..,<name>,Off,<lat>,<lon>,<range>,...
//   GIN / TIN,<word>,<id>,<id>,<name>,Off,<lat>,<lon>,<range>,...
//   page rows: the service type at 7 of a channel, at 5 of a talkgroup
#include <algorithm>
#include <set>

#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "database/db_import.h"
#include "database/db_near.h"

namespace zel::database {

namespace {

constexpr int kNameField = 4;
constexpr int kLatField = 6;
constexpr int kLonField = 7;
constexpr int kRangeField = 8;
constexpr int kChannelService = 7;
constexpr int kTalkgroupService = 5;

std::optional<DbCircle> circleOf(const std::string& line) {
  DbCircle c;
  c.lat = leadingNumber(record::field(line, kLatField));
  c.lon = leadingNumber(record::field(line, kLonField));
  c.range = leadingNumber(record::field(line, kRangeField));
  if (c.lat == 0 && c.lon == 0) return std::nullopt;
  return c;
}

bool containsNoCase(const std::string& text, const std::string& lowerPart) {
  return toLower(text).find(lowerPart) != std::string::npos;
}

}  // namespace

bool passes(const DbSystem& system, const DbFilter& filter) {
  if (!filter.name.empty()) {
    const std::string part = toLower(trim(filter.name));
    auto named = [&part](const DbPart& p) { return containsNoCase(p.name, part); };
    if (!containsNoCase(system.name, part) &&
        std::none_of(system.sites.begin(), system.sites.end(), named) &&
        std::none_of(system.departments.begin(), system.departments.end(), named)) {
      return false;
    }
  }
  if (!filter.service.empty() &&
      !std::binary_search(system.services.begin(), system.services.end(), filter.service)) {
    return false;
  }
  if (filter.location) {
    const DbCircle& where = *filter.location;
    auto near = [&where](const DbPart& p) {
      return p.circle && distanceMiles(where.lat, where.lon, p.circle->lat, p.circle->lon) <=
                             std::max(where.range, 0.0) + std::max(p.circle->range, 0.0);
    };
    if (std::none_of(system.sites.begin(), system.sites.end(), near) &&
        std::none_of(system.departments.begin(), system.departments.end(), near)) {
      return false;
    }
  }
  return true;
}

formats::HpdReadResult StateDatabase::read(const std::string& path, bool x36Mode,
                                           Feedback& feedback) {
  doc_.clear();
  rows_ = {};
  systems_.clear();
  doc_.x36Mode = x36Mode;
  formats::HpdReadResult r = formats::readHpd(doc_, rows_, path, {}, feedback);
  if (r.ok()) summarise();
  return r;
}

formats::HpdReadResult StateDatabase::readText(std::string_view text, bool x36Mode,
                                               Feedback& feedback) {
  doc_.clear();
  rows_ = {};
  systems_.clear();
  doc_.x36Mode = x36Mode;
  formats::HpdReadResult r = formats::readHpdText(doc_, rows_, text, {}, {}, feedback);
  if (r.ok()) summarise();
  return r;
}

void StateDatabase::summarise() {
  const DocumentTree& tree = doc_.data;
  for (NodeId sys : treemod::walkSystems(tree)) {
    DbSystem s;
    s.number = static_cast<int>(systems_.size()) + 1;
    s.key = tree.key(sys);
    s.name = record::field(tree.text(sys), kNameField);
    s.type = record::field(tree.text(sys), 1);
    std::set<std::string> services;
    for (NodeId child : tree.childList(sys)) {
      const std::string& key = tree.key(child);
      const std::string& text = tree.text(child);
      const bool site = startsWith(key, "SIT-");
      if (!site && !startsWith(key, "GRP-")) continue;
      std::vector<DbPart>& parts = site ? s.sites : s.departments;
      parts.push_back({static_cast<int>(parts.size()) + 1, key,
                       record::field(text, kNameField), circleOf(text)});
      if (site) continue;
      const int serviceField = startsWith(text, "TIN") ? kTalkgroupService : kChannelService;
      rows_.visit(key, [&](std::string_view row) {
        ++s.rows;
        const std::string service = record::field(row, serviceField);
        if (!service.empty()) services.insert(service);
      });
    }
    s.services.assign(services.begin(), services.end());
    systems_.push_back(std::move(s));
  }
}

const DbSystem* StateDatabase::system(int number) const {
  if (number < 1 || number > static_cast<int>(systems_.size())) return nullptr;
  return &systems_[static_cast<std::size_t>(number - 1)];
}

std::vector<const DbSystem*> StateDatabase::filtered(const DbFilter& filter) const {
  std::vector<const DbSystem*> out;
  for (const DbSystem& s : systems_) {
    if (passes(s, filter)) out.push_back(&s);
  }
  return out;
}

std::vector<std::string> StateDatabase::services() const {
  std::set<std::string> all;
  for (const DbSystem& s : systems_) all.insert(s.services.begin(), s.services.end());
  return {all.begin(), all.end()};
}

}  // namespace zel::database

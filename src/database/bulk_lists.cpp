#include "database/bulk_lists.h"

#include "core/keys.h"
#include "core/page_files.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"

namespace zel::bulk {

namespace {

bool kindMatches(SystemKind kind, bool conventional) {
  switch (kind) {
    case SystemKind::Conventional:
      return conventional;
    case SystemKind::Trunked:
      return !conventional;
    default:
      return true;
  }
}

// The children of a system whose keys begin with the prefix, in tree order.
void addChildren(const Document& doc, NodeId systemNode, const SystemEntry& system,
                 std::string_view prefix, std::vector<NodeEntry>& out) {
  for (NodeId c = doc.data.child(systemNode); c != kNoNode; c = doc.data.next(c)) {
    const std::string& key = doc.data.key(c);
    if (!startsWith(key, prefix)) continue;
    out.push_back({key, record::field(doc.data.text(c), 4), system.number, system.name});
  }
}

}  // namespace

bool isConventional(const Document& doc, int system) {
  const std::string& type = doc.systems.get(system, 10);
  if (!type.empty()) return type == "0";
  return record::field(treemod::getText(doc.data, keys::system(system)), 1) == "Conventional";
}

std::vector<SystemEntry> listSystems(const Document& doc, Scope scope) {
  std::vector<SystemEntry> out;
  const SystemKind kind = systemKindOf(scope);
  for (NodeId node : treemod::walkSystems(doc.data)) {
    SystemEntry e;
    e.key = doc.data.key(node);
    e.number = keys::numberAt(e.key, 5);
    e.name = record::field(doc.data.text(node), 4);
    e.conventional = isConventional(doc, e.number);
    if (kindMatches(kind, e.conventional)) out.push_back(std::move(e));
  }
  return out;
}

std::vector<NodeEntry> listNodes(const Document& doc, Scope scope, int system) {
  std::vector<NodeEntry> out;
  for (const SystemEntry& s : listSystems(doc, scope)) {
    if (system != 0 && s.number != system) continue;
    const NodeId node = doc.data.find(s.key);
    switch (scope) {
      case Scope::Systems:
        out.push_back({s.key, s.name, s.number, s.name});
        break;
      case Scope::Sites:
        addChildren(doc, node, s, "SIT-", out);
        break;
      default:
        addChildren(doc, node, s, "GRP-", out);
        break;
    }
  }
  return out;
}

std::vector<ChannelEntry> listChannels(const Document& doc, const formats::RowStore& rows,
                                       Scope scope, int system) {
  std::vector<ChannelEntry> out;
  if (!isChannelScope(scope)) return out;
  const bool wantTalkgroups = scope == Scope::TalkGroups;
  for (const NodeEntry& dept : listNodes(doc, scope, system)) {
    const int sys = keys::numberAt(dept.key, 9);
    const int number = keys::numberAt(dept.key, 13);
    rows.visit(dept.key, [&](std::string_view line) {
      const PageRow row = splitPageLine(line);
      // A record is told apart by its first field: a "." makes it a frequency.
      std::string first = record::field(line, 1);
      const bool talkgroup = first.find('.') == std::string::npos;
      if (talkgroup != wantTalkgroups || first.empty()) return;
      ChannelEntry e;
      e.key = talkgroup ? keys::talkgroup(sys, number, row.number)
                        : keys::channel(sys, number, row.number);
      e.department = dept.key;
      e.row = row.number;
      e.first = std::move(first);
      e.name = record::field(line, 2);
      e.departmentName = dept.name;
      out.push_back(std::move(e));
    });
  }
  return out;
}

std::vector<std::string> channelsOfDepartments(const std::vector<ChannelEntry>& channels,
                                               const std::set<std::string>& departments) {
  std::vector<std::string> out;
  for (std::string_view prefix : {"FRQ-", "TID-"}) {
    for (const ChannelEntry& c : channels) {
      if (startsWith(c.key, prefix) && departments.count(c.department)) out.push_back(c.key);
    }
  }
  return out;
}

std::vector<std::string> channelHeadings(Scope scope) {
  return {"#", scope == Scope::TalkGroups ? "Talkgroup:" : "Frequency:", "Tag:", "Group:"};
}

std::optional<int> systemNamed(const Document& doc, Scope scope, std::string_view text) {
  const std::string wanted = trim(text);
  if (wanted.empty()) return std::nullopt;
  const std::vector<SystemEntry> systems = listSystems(doc, scope);
  if (isPlainNumber(wanted) && wanted.find('.') == std::string::npos) {
    const long long number = leadingInteger(wanted);
    for (const SystemEntry& s : systems) {
      if (s.number == number) return s.number;
    }
  }
  for (const SystemEntry& s : systems) {
    if (iequals(s.name, wanted)) return s.number;
  }
  return std::nullopt;
}

std::string departmentOfChannel(std::string_view channelKey) {
  if ((!startsWith(channelKey, "FRQ-") && !startsWith(channelKey, "TID-")) ||
      channelKey.size() < 16)
    return {};
  return keys::department(keys::numberAt(channelKey, 5), keys::numberAt(channelKey, 9));
}

}  // namespace zel::bulk

#include "database/bulk_nodes.h"

#include <algorithm>

#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "gps/coordinates.h"
#include "grid/vocabulary.h"

namespace zel::bulk {

namespace {

constexpr std::string_view kGps = "gps";
constexpr int kMaxQuickKey = 99;
constexpr double kMaxRange = 999.9;

enum class Kind { Department, Site, System, Other };

Kind kindOf(std::string_view key) {
  if (startsWith(key, "GRP-")) return Kind::Department;
  if (startsWith(key, "SIT-")) return Kind::Site;
  if (startsWith(key, "SYS-")) return Kind::System;
  return Kind::Other;
}

std::string_view noNodesText(Scope scope) {
  switch (scope) {
    case Scope::Sites:
      return "Please select one or more sites";
    case Scope::Systems:
      return "Please select one or more systems";
    default:
      return "Please select one or more departments";
  }
}

// A typed coordinate or range: the text as typed when it is a number (a decimal comma made
// a point), moved to the limit when beyond it; nothing when it cannot be read. An empty text
// stays empty and keeps its field.
using Clamp = std::string (*)(std::string_view);

std::string clampLatitude(std::string_view t) {
  return gps::ClampLatitude(t, DecimalMark::point());
}
std::string clampLongitude(std::string_view t) {
  return gps::ClampLongitude(t, DecimalMark::point());
}
std::string clampRange(std::string_view t) {
  const double value = leadingNumber(t);
  if (value > kMaxRange) return formatFixed(kMaxRange, 1);
  if (value < 0) return "0";
  return std::string(t);
}

std::optional<std::string> readValue(std::string_view typed, DecimalMark mark, Clamp clamp) {
  std::string text = trim(typed);
  if (text.empty()) return text;
  if (mark.isComma()) std::replace(text.begin(), text.end(), ',', '.');
  if (!isPlainNumber(text) || text.find_first_of("0123456789") == std::string::npos)
    return std::nullopt;
  return clamp(text);
}

// A switch in the form the field already holds: "1"/"0" where it holds digits (systems
// after a read), "On"/"Off" elsewhere.
std::string switchWord(bool on, std::string_view current) {
  if (current == "0" || current == "1") return on ? "1" : "0";
  return on ? "On" : "Off";
}

// A quick key: the number, or for no key the field's own no-key word when it holds one
// (a system says "None", departments and sites "Off").
std::string quickKeyWord(std::string_view value, std::string_view current, Kind kind) {
  if (value != "Off") return std::string(value);
  if (current == "None" || current == "Off") return std::string(current);
  return kind == Kind::System ? "None" : "Off";
}

std::vector<std::string> quickKeyWords() {
  std::vector<std::string> out{"Off"};
  for (int k = 0; k <= kMaxQuickKey; ++k) out.push_back(std::to_string(k));
  return out;
}

bool listed(const std::vector<std::string>& words, std::string_view value) {
  return std::find(words.begin(), words.end(), value) != words.end();
}

}  // namespace

bool itemAppliesTo(NodeItem item, Scope scope) {
  switch (item) {
    case NodeItem::Location:
      return scope == Scope::Departments || scope == Scope::Sites;
    case NodeItem::QuickKey:
    case NodeItem::Lockout:
      return !isChannelScope(scope);
    default:
      return scope == Scope::Sites;
  }
}

int fieldFor(NodeItem item, std::string_view nodeKey) {
  const Kind kind = kindOf(nodeKey);
  switch (item) {
    case NodeItem::Location:
      return kind == Kind::Department || kind == Kind::Site ? 6 : 0;
    case NodeItem::QuickKey:
      return kind == Kind::Department ? 10
             : kind == Kind::Site     ? 17
             : kind == Kind::System   ? 13
                                      : 0;
    case NodeItem::Lockout:
      return kind == Kind::Other ? 0 : 5;
    case NodeItem::Modulation:
      return kind == Kind::Site ? 9 : 0;
    case NodeItem::MotBandPlan:
      return kind == Kind::Site ? 10 : 0;
    case NodeItem::EdacsSite:
      return kind == Kind::Site ? 11 : 0;
  }
  return 0;
}

const std::vector<std::string>& nodeChoices(NodeItem item) {
  static const std::vector<std::string> none;
  static const std::vector<std::string> quickKeys = quickKeyWords();
  static const std::vector<std::string> modulations = {"AUTO", "FM", "NFM"};
  switch (item) {
    case NodeItem::QuickKey:
      return quickKeys;
    case NodeItem::Lockout:
      return vocab::tabel("Avoid");
    case NodeItem::EdacsSite:
      return vocab::tabel("sitetype_e");
    case NodeItem::MotBandPlan:
      return vocab::tabel("sitetype_m2");
    case NodeItem::Modulation:
      return modulations;
    default:
      return none;
  }
}

BulkResult applyToNodes(Document& doc, Scope scope, const std::vector<std::string>& nodeKeys,
                        const NodeChanges& changes, Feedback& feedback, DecimalMark mark) {
  BulkResult result;
  auto fail = [&](std::string text) {
    feedback.message(text);
    result.message = std::move(text);
    return result;
  };
  if (nodeKeys.empty()) return fail(std::string(noNodesText(scope)));
  const bool location = changes.location && itemAppliesTo(NodeItem::Location, scope);
  const bool quickKey = changes.quickKey && itemAppliesTo(NodeItem::QuickKey, scope);
  const bool lockout = changes.lockout && itemAppliesTo(NodeItem::Lockout, scope);
  const bool edacs = changes.edacsSite && itemAppliesTo(NodeItem::EdacsSite, scope);
  const bool plan = changes.motBandPlan && itemAppliesTo(NodeItem::MotBandPlan, scope);
  const bool modulation = changes.modulation && itemAppliesTo(NodeItem::Modulation, scope);
  if (!location && !quickKey && !lockout && !edacs && !plan && !modulation)
    return fail(std::string(kNoItem));

  // Everything typed is read before any record changes.
  Location where;
  if (location) {
    const auto lat = readValue(changes.location->latitude, mark, clampLatitude);
    if (!lat)
      return fail("The latitude must be decimal degrees from -90 to 90, such as 41.453639.");
    const auto lon = readValue(changes.location->longitude, mark, clampLongitude);
    if (!lon)
      return fail("The longitude must be decimal degrees from -180 to 180, such as -81.705047.");
    const auto range = readValue(changes.location->range, mark, clampRange);
    if (!range) return fail("The range must be a number of miles, such as 25.");
    where = {*lat, *lon, *range};
  }
  struct Word {
    bool on;
    NodeItem item;
    const std::optional<std::string>& value;
    const char* caption;
  };
  const Word words[] = {{quickKey, NodeItem::QuickKey, changes.quickKey, "QuickKey"},
                        {edacs, NodeItem::EdacsSite, changes.edacsSite, "Edacs Site"},
                        {plan, NodeItem::MotBandPlan, changes.motBandPlan, "Mot Bandplan"},
                        {modulation, NodeItem::Modulation, changes.modulation, "Modulation"}};
  for (const Word& w : words) {
    if (w.on && !listed(nodeChoices(w.item), *w.value))
      return fail("\"" + *w.value + "\" is not a value of " + w.caption + ".");
  }

  for (const std::string& key : nodeKeys) {
    const NodeId node = doc.data.find(key);
    if (node == kNoNode || kindOf(key) == Kind::Other) continue;
    ++result.matched;
    const std::string before = doc.data.text(node);
    auto set = [&](NodeItem item, int offset, std::string_view value) {
      const int field = fieldFor(item, key);
      if (field > 0) treemod::setField(doc.data, key, field + offset, value);
    };
    if (location) {
      if (!where.latitude.empty()) set(NodeItem::Location, 0, where.latitude);
      if (!where.longitude.empty()) set(NodeItem::Location, 1, where.longitude);
      if (!where.range.empty()) set(NodeItem::Location, 2, where.range);
    }
    if (quickKey) {
      const int field = fieldFor(NodeItem::QuickKey, key);
      set(NodeItem::QuickKey, 0,
          quickKeyWord(*changes.quickKey, record::field(before, field), kindOf(key)));
    }
    if (lockout) {
      const int field = fieldFor(NodeItem::Lockout, key);
      set(NodeItem::Lockout, 0, switchWord(*changes.lockout, record::field(before, field)));
    }
    for (const Word& w : words) {
      if (w.on && w.item != NodeItem::QuickKey) set(w.item, 0, *w.value);
    }
    if (doc.data.text(node) != before) ++result.changed;
  }
  result.ok = true;
  if (result.changed > 0) doc.changed = true;
  return result;
}

Location homeLocation(const Settings& settings) {
  Location l{settings.getPlain(kGps, "home_lat", ""), settings.getPlain(kGps, "home_long", ""),
             settings.getPlain(kGps, "home_range", "")};
  if (trimView(l.range).empty()) l.range = "25";
  return l;
}

Location defaultLocation(const Settings& settings) {
  auto value = [&](std::string_view key, std::string_view fallback) {
    std::string v = settings.getPlain(kGps, key, fallback);
    return v == "False" ? std::string() : v;
  };
  return {value("def_lat", "False"), value("def_long", "False"), value("def_range", "1")};
}

Location countyCentre(const Settings& settings) {
  return {settings.getPlain(kGps, "county_lat", ""), settings.getPlain(kGps, "county_long", ""),
          settings.getPlain(kGps, "county_range", "")};
}

void saveCountyCentre(Settings& settings, const Location& location) {
  settings.put(kGps, "county_lat", location.latitude);
  settings.put(kGps, "county_long", location.longitude);
  settings.put(kGps, "county_range", location.range);
}

}  // namespace zel::bulk

// The bulk editor over departments, sites and systems: the GPS panel and the site panel go
// into the records of the ticked nodes through the tree's set-field operation, so only the
// fields of the ticked items change.
//
//   GIN,C-Group,,,Fire,Off,41.316497,-81.744117,3.5,Circle,1,Global
//                      ^5  ^6        ^7         ^8      ^10 quick key
//   SIT,Site,,,Simulcast,Off,41.453639,-81.705047,19.1,AUTO,Standard,Wide(standard),Circle,0,...,Off
//                        ^5  ^6        ^7         ^8   ^9   ^10      ^11                  ^17
//   SIN,P25 Standard,2,StateId=0,Cleveland,0,,P25Standard,...,1,...
//                                          ^5                 ^13 quick key
//
// A system's record holds no location, so the GPS rows pass over systems; the Edacs site
// (bandwidth), Mot band plan and modulation are fields of a site only.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/decimal_mark.h"
#include "core/document.h"
#include "core/ports.h"
#include "core/settings.h"
#include "database/bulk_edit.h"
#include "database/bulk_settings.h"

namespace zel::bulk {

// Latitude, longitude and range as the GPS panel holds them (Text1 to Text3).
struct Location {
  std::string latitude;
  std::string longitude;
  std::string range;
};

enum class NodeItem { Location, QuickKey, Lockout, EdacsSite, MotBandPlan, Modulation };

// Whether the window offers an item in a scope, and the field it writes in a record of
// that kind of node ("GRP-", "SIT-", "SYS-" key); 0 when the record has no such field. The
// location's field is that of the latitude, with the longitude and range after it.
bool itemAppliesTo(NodeItem item, Scope scope);
int fieldFor(NodeItem item, std::string_view nodeKey);
// The words of an item's drop list ("Off", "On" for the lockout; "Off", "0" to "99" for
// the quick key, ...). The location has none.
const std::vector<std::string>& nodeChoices(NodeItem item);

// The ticked items with their values; an item left unset is not changed.
struct NodeChanges {
  std::optional<Location> location;  // "GPS enabled": an empty text keeps its field
  std::optional<std::string> quickKey;
  std::optional<bool> lockout;
  std::optional<std::string> edacsSite;
  std::optional<std::string> motBandPlan;
  std::optional<std::string> modulation;
};

// Applies the changes to the records of the ticked nodes. Without a ticked node it says
// "Please select one or more departments" (sites, systems); without an item that the scope
// has, "Please select which item to change.". A location that cannot be read is refused
// with a sentence that says which, before anything changes; a value beyond its limits is
// moved to the limit.
BulkResult applyToNodes(Document& doc, Scope scope, const std::vector<std::string>& nodeKeys,
                        const NodeChanges& changes, Feedback& feedback,
                        DecimalMark mark = DecimalMark::system());

// The GPS buttons' sources. "Use Home": the settings home_lat, home_long and home_range of
// section "gps", a range without a value being "25". "Use Default": def_lat, def_long and
// def_range of the same section, where "False" means no value. "Paste GPS": the county
// centre kept in the same section (county_lat, county_long, county_range).
Location homeLocation(const Settings& settings);
Location defaultLocation(const Settings& settings);
Location countyCentre(const Settings& settings);
void saveCountyCentre(Settings& settings, const Location& location);

}  // namespace zel::bulk

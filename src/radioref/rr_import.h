#pragma once
// Importing from the service into the document: the rows the import window lists (one
// struct a list, the columns in the window's order), the options with their settings keys,
// and the builders that turn ticked rows into a new system with its sites, band plan,
// departments, channels and talkgroups.
//
//   conventional:  SIN,Conventional,0,StateId=0,<name>,Off,01/01/2010 10:00:00,Conventional,...
//                  GIN,C-Group,CGroupId=0,AgencyId=0,<department>,Off,<lat>,<lon>,<range>,Circle,[qk]
//                  page row: <freq>,<name>,Off,AUTO,<kind>,<value>,<service>,Off,2,0,Off,Auto[,led],<n>
//   trunked:       SIN,<type>,<sid>,StateId=0,<name>,Off,<updated>,<type word>,...
//                  UID,UID Editor / GIN,... / page row: <id>,<name>,Off,<mode>,<service>,2,0,Off,Auto,,,,,Any
//                  SIF,Site,SiteId=<n>,TrunkId=<sid>,<name>,Off,<lat>,<lon>,<range><tail>
//                  MCP,type,<low>,<high>,<step>,<offset>,...   TFQ,<freq>[,<lcn>...]
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/document.h"
#include "core/ports.h"
#include "core/settings.h"
#include "formats/row_store.h"
#include "radioref/rr_records.h"

namespace zel::radioref {

// ---- Options -------------------------------------------------------------------------------

// One row of the Led table: for channels and talkgroups of `service`, this colour and pattern.
struct LedRule {
  bool enabled = false;
  std::string service;
  std::string color;
  std::string pattern;
};

// The talkgroup types of "Import only the following talkgroups:".
enum TalkgroupKind { tgAnalog = 0, tgDigital, tgMixed, tgTdma, tgFullEncrypted, tgPartialEncrypted };

struct ImportOptions {
  bool removeSpaces = false;         // "Automatically Remove Spaces from Tags"
  bool useTagFilters = false;        // "Use Tag Filters"
  bool keepShortTags = false;        // "Do not modify tags smaller than 16 characters"
  bool shortAlpha = false;           // "Use short Alpha Tag (if available)"
  bool upperCase = false;            // "Convert To Upper Case"
  bool lockoutEncrypted = false;     // "Lock Out Encrypted conventional frequencies"
  bool skipEncrypted = false;        // "Do NOT import encrypted conventional frequencies"
  bool skipTelemetry = false;        // "Do NOT import Telemetry conventional frequencies"
  bool importGps = false;            // "Import GPS data (if available)" (imp_gps_site)
  bool qkeysConventional = false;    // "AutoAssign Quickkeys to conv. departments"
  bool qkeysTrunk = false;           // "Auto Assign Quickkeys to trunk departments"
  bool qkeysSites = false;           // "Auto Assign Quickkeys to sites"
  bool edacsAfs = false;             // "Convert Edacs To AFS"
  std::array<bool, 5> ignoreMode{};  // ignore_mode1 .. ignore_mode5
  bool serviceFilter = false;        // "Enable Service Tags Filter:" (servicefilter)
  std::vector<int> serviceTags;      // the tags the filter lets through (service)
  std::array<bool, 6> talkgroupFilter{true, true, true, true, true, true};  // tfilter
  int updatedDays = 0;               // 0: no limit; else 1, 7, 30 or 90
  bool ccPrimary = false;            // ccpri
  bool ccAlternate = false;          // ccalt
  bool ccAll = false;                // ccall
  std::vector<LedRule> leds;         // ledenabled, ledtag, ledcolor, ledpattern
  int untaggedConventional = 0;      // untag_conv: 0 " Leave Untagged", else a service number
  int untaggedTrunk = 0;             // untag_trunk

  // The window's first run: every talkgroup type and every service tag on, the rest off.
  static ImportOptions defaults();
  // Reads and writes the window's settings (a tick "1", no tick "0").
  static ImportOptions load(const Settings& settings);
  void save(Settings& settings) const;
};

inline constexpr int kTagLimit = 64;  // the tag limit of this model

// ---- Rows of the window's lists ------------------------------------------------------------

// ListView3: a conventional frequency.
struct ConvRow {
  std::string frequency;    // "Frequencies:" out, formatted
  std::string descr;        // 1 "Description:"
  std::string alpha;        // 2 "Display:"
  std::string tone;         // 3 "Subtone:"
  std::string category;     // 4 "SubCategory/Category:"
  std::string tag;          // 5 "Callsign:" the first service tagId
  std::string department;   // 6 "SubCategory:"
  std::string mode;         // 7 "Mode:"
  std::string gps;          // 8 "GPS:" lat,lon,range of the subcategory
  std::string service;      // 9 "Service:"
  std::string colorCode;    // 10 "CC"
  std::string slot;         // 11 "slut"
  std::string updated;      // 12 "upd"
  std::string enc;          // 13 "enc"
  std::string tg;           // 14 "tg"
  int scid = 0;
  int fid = 0;
  bool unsupported = false;  // a mode the model does not hold (">> Unsupported Mode")
  bool ticked = true;
};

// ListView1: a talkgroup.
struct TalkgroupRow {
  int number = 0;           // "#"
  std::string id;           // 1 "Talkgroup:" tgDec, or LTR/EDACS form
  std::string descr;        // 2 "Description:"
  std::string alpha;        // 3 "Display:"
  std::string group;        // 4 "Group:" category name
  std::string subfleet;     // 5 "Subfleet:"
  std::string tag;          // 6 "tag:" first tagId
  std::string mode;         // 7 "mode:" tgMode
  std::string hidden;       // 8
  std::string gps;          // 9 "gps:"
  std::string slot;         // 10 "slot:"
  std::string date;         // 11 "date:"
  std::string enc;          // the talkgroup's encryption class
  int tgCid = 0;
  bool ticked = true;
};

// ListView4: a site.
struct SiteRow {
  int number = 0;
  std::string name;       // 1 "Site:"
  int siteId = 0;         // "ID:"
  std::string key;        // "key:"
  bool rebanded = false;  // "reband:"
  bool splinter = false;  // "splinter:"
  std::string lat, lon, range, county, updated, qkey;
  bool ticked = true;
};

// ListView2: a site frequency.
struct SiteFreqRow {
  int number = 0;
  std::string site, freq, lcn, use, key, id, colorCode, chId, ran, freqCount, nac;
};

// The rows of one subcategory's frequencies, with the encrypted, telemetry, service and age
// filters applied. `today` is "YYYY-MM-DD".
std::vector<ConvRow> conventionalRows(const std::vector<RRFrequency>& freqs,
                                      const RRCategory& category, const RRSubcat& subcat,
                                      const ImportOptions& options, const std::string& today);

// A trunked system as the window holds it after choosing it: the three replies and the
// names the form's labels show.
struct TrunkSystem {
  int sid = 0;
  RRSystemRef ref;                // sName, sType, sFlavor, lastUpdated from the list
  RRSystemDetails details;
  std::string typeName;           // "Type:" the sType name ("Project 25", "DMR", ...)
  std::string flavorCode;         // the flavor code label ("33")
  std::string flavorText;         // the flavor's description ("Conventional Networked")
  std::string bandLabel;          // "VHF", "UHF" or ""
  std::vector<RRSite> sites;
  std::vector<RRTalkgroupCat> categories;
};

// Fetches what the window holds once a system is chosen: sites, details, talkgroup
// categories and the flavor list, with the labels filled in.
class RRQueries;
TrunkSystem loadTrunkSystem(RRQueries& queries, int sid);
// "VHF" or "UHF" for a Motorola system whose frequencies lie in those bands, else "".
std::string bandLabelFor(const RRSystemDetails& details, const std::vector<RRSite>& sites);

// The rows of one talkgroup category, with the talkgroup filter applied.
std::vector<TalkgroupRow> talkgroupRows(const std::vector<RRTalkgroup>& talkgroups,
                                        const RRTalkgroupCat& category, const TrunkSystem& system,
                                        const ImportOptions& options, int firstNumber);
std::vector<SiteRow> siteRows(const TrunkSystem& system);
std::vector<SiteFreqRow> siteFreqRows(const TrunkSystem& system);

// ---- Text rules shared by both builders ----------------------------------------------------

std::string filter_sp(std::string text);
// The channel or talkgroup name from alpha and descr under the name options.
std::string importName(const std::string& alpha, const std::string& descr,
                       const ImportOptions& options);

// ---- Builders ------------------------------------------------------------------------------

struct ImportTarget {
  Document& doc;
  formats::RowStore& rows;
  Feedback& feedback;
  int fileNumber = 0;  // the open file the system belongs to (0: an unsaved system)
};

struct ImportResult {
  bool ok = false;
  std::string message;    // the refusal, word for word, when not ok
  std::string systemKey;  // "SYS-nnn"
  int departments = 0;
  int channels = 0;       // conventional rows or talkgroups
  int sites = 0;
  int frequencies = 0;    // site frequencies
};

// The conventional builder: a new system named `systemName` from the ticked rows.
ImportResult maak_detemp245(ImportTarget target, const std::string& systemName,
                            const std::vector<ConvRow>& rows, const ImportOptions& options);

// The trunked builder: the system with its departments and talkgroups from the ticked
// talkgroup rows, then one site for each ticked site. `countyInfo` answers the county of a
// site at 0,0 (getCountyInfo); it may return nothing.
struct TrunkImport {
  const TrunkSystem& system;
  const std::vector<TalkgroupRow>& talkgroups;
  const std::vector<SiteRow>& sites;
  std::function<std::optional<RRCounty>(int ctid)> countyInfo;
};
ImportResult importTrunked(ImportTarget target, const TrunkImport& input,
                           const ImportOptions& options);

// The import type of a system by the tests of the import type table ("MOT 800/900",
// "P25 X2", ...); "" when the model cannot hold the type.
std::string importType(const TrunkSystem& system);

}  // namespace zel::radioref

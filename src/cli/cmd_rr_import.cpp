// zel rr import: a county's (or agency's) subcategories, or a trunked system's sites and
// talkgroup categories, into a favorites file, by the service's own ids as `zel rr browse`
// prints them.
//   zel rr import --county CTID [--agency AID] --subcat SCID... --out FILE.hpd
//   zel rr import --system SID --site SITEID... [--tgcat TGCID...] --out FILE.hpd
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>

#include "cli/cmd_hpd_common.h"
#include "cli/cmd_rr_session.h"
#include "cli/option_range.h"
#include "cli/rr_listing.h"
#include "core/memory_ports.h"
#include "core/text.h"
#include "radioref/rr_import.h"
#include "radioref/rr_readers.h"

namespace zel::cli {

namespace {

using namespace zel::radioref;

struct ImportArgs {
  RROptions connection;
  int county = 0;
  int agency = 0;
  int zip = 0;
  int system = 0;
  std::vector<int> subcats;
  std::vector<int> sites;
  std::vector<int> tgcats;
  std::string out;
  std::string into;
  std::string name;
  // The options, by names that read like their captions.
  bool removeSpaces = false, shortAlpha = false, upperCase = false, lockoutEncrypted = false;
  bool skipEncrypted = false, skipTelemetry = false, qkeysDepartments = false, qkeysSites = false;
  bool edacsAfs = false, importGps = false;
  std::vector<int> services;
  std::string tgFilter;
  int updatedDays = 0;
  std::string controlChannels;
};

const std::vector<std::string> kTgFilterWords = {"analog", "digital", "mixed",
                                                 "tdma",   "encrypted", "partial"};

ImportOptions optionsFrom(const ImportArgs& a) {
  ImportOptions o = ImportOptions::defaults();
  o.removeSpaces = a.removeSpaces;
  o.shortAlpha = a.shortAlpha;
  o.upperCase = a.upperCase;
  o.lockoutEncrypted = a.lockoutEncrypted;
  o.skipEncrypted = a.skipEncrypted;
  o.skipTelemetry = a.skipTelemetry;
  o.qkeysConventional = o.qkeysTrunk = a.qkeysDepartments;
  o.qkeysSites = a.qkeysSites;
  o.edacsAfs = a.edacsAfs;
  o.importGps = a.importGps;
  if (!a.services.empty()) {
    o.serviceFilter = true;
    o.serviceTags = a.services;
  }
  if (!a.tgFilter.empty()) {
    o.talkgroupFilter.fill(false);
    for (const auto& word : split(a.tgFilter, ',')) {
      const auto at = std::find(kTgFilterWords.begin(), kTgFilterWords.end(), trim(word));
      if (at == kTgFilterWords.end()) {
        throw UserError{"Unknown talkgroup type \"" + word +
                            "\": use analog, digital, mixed, tdma, encrypted or partial.",
                        2};
      }
      o.talkgroupFilter[static_cast<std::size_t>(at - kTgFilterWords.begin())] = true;
    }
  }
  o.updatedDays = a.updatedDays;
  o.ccPrimary = a.controlChannels == "primary";
  o.ccAlternate = a.controlChannels == "alternate";
  o.ccAll = a.controlChannels == "all";
  return o;
}

std::string counted(int n, const std::string& one, const std::string& many = {}) {
  return std::to_string(n) + " " + (n == 1 ? one : many.empty() ? one + "s" : many);
}

// A progress line on a terminal only.
void progress(const std::string& text) {
  if (isatty(STDERR_FILENO)) std::cerr << "\r" << text << "\x1b[K" << std::flush;
}
void progressDone() {
  if (isatty(STDERR_FILENO)) std::cerr << "\r\x1b[K" << std::flush;
}

std::vector<ConvRow> conventionalSelection(RRQueries& q, const ImportArgs& a,
                                           const ImportOptions& options, const std::string& today,
                                           std::string& systemName, RRCliSession& session) {
  int ctid = a.county;
  if (a.zip) {
    q.getZipcodeInfo(a.zip);
    session.requireSuccess();
    ctid = q.zipcode.ctid;
  }
  std::vector<RRCategory> cats;
  if (a.agency) {
    q.getAgencyInfo(a.agency);
    session.requireSuccess();
    cats = q.agencyInfo.cats;
    systemName = q.agencyInfo.agencyName;
  } else {
    q.getCountyInfo(ctid);
    session.requireSuccess();
    cats = q.countyInfo.cats;
    systemName = q.countyInfo.countyName + " " + q.countyInfo.countyHeader;
  }
  // Every subcategory named, in the order given; none named takes them all.
  std::vector<std::pair<const RRCategory*, const RRSubcat*>> picked;
  for (const auto& cat : cats) {
    for (const auto& sub : cat.subcats) {
      if (a.subcats.empty() ||
          std::find(a.subcats.begin(), a.subcats.end(), sub.scid) != a.subcats.end()) {
        picked.emplace_back(&cat, &sub);
      }
    }
  }
  for (int scid : a.subcats) {
    const bool found = std::any_of(picked.begin(), picked.end(),
                                   [scid](const auto& p) { return p.second->scid == scid; });
    if (!found) {
      throw UserError{"Subcategory " + std::to_string(scid) + " is not in " +
                      (a.agency ? "agency " + std::to_string(a.agency)
                                : "county " + std::to_string(ctid)) + "."};
    }
  }
  std::vector<ConvRow> rows;
  int n = 0;
  for (const auto& [cat, sub] : picked) {
    progress("Subcategory " + std::to_string(++n) + " of " + std::to_string(picked.size()) +
             ": " + latin1ToUtf8(sub->scName));
    q.getSubcatFreqs(sub->scid);
    session.requireSuccess();
    auto more = conventionalRows(q.subcatFreqs, *cat, *sub, options, today);
    rows.insert(rows.end(), std::make_move_iterator(more.begin()),
                std::make_move_iterator(more.end()));
  }
  progressDone();
  return rows;
}

ImportResult importSystem(RRQueries& q, const ImportArgs& a, const ImportOptions& options,
                          ImportTarget target, RRCliSession& session) {
  const TrunkSystem system = loadTrunkSystem(q, a.system);
  session.requireSuccess();
  if (system.sites.empty()) {
    throw UserError{"System " + std::to_string(a.system) + " has no sites at the service."};
  }
  std::vector<SiteRow> sites = siteRows(system);
  for (auto& s : sites) {
    s.ticked = std::find(a.sites.begin(), a.sites.end(), s.siteId) != a.sites.end();
  }
  for (int id : a.sites) {
    if (std::none_of(sites.begin(), sites.end(), [id](const SiteRow& s) { return s.siteId == id; })) {
      throw UserError{"Site " + std::to_string(id) + " is not a site of system " +
                      std::to_string(a.system) + "."};
    }
  }
  std::vector<TalkgroupRow> talkgroups;
  std::size_t n = 0;
  for (const auto& cat : system.categories) {
    const bool wanted = a.tgcats.empty() ||
                        std::find(a.tgcats.begin(), a.tgcats.end(), cat.tgCid) != a.tgcats.end();
    if (!wanted) continue;
    progress("Talkgroup category " + std::to_string(++n) + ": " + latin1ToUtf8(cat.tgCname));
    q.getTrsTalkgroups(a.system, cat.tgCid, 0, 0);
    session.requireSuccess();
    auto more = talkgroupRows(q.talkgroups, cat, system, options,
                              static_cast<int>(talkgroups.size()) + 1);
    talkgroups.insert(talkgroups.end(), std::make_move_iterator(more.begin()),
                      std::make_move_iterator(more.end()));
  }
  for (int id : a.tgcats) {
    if (std::none_of(system.categories.begin(), system.categories.end(),
                     [id](const RRTalkgroupCat& c) { return c.tgCid == id; })) {
      throw UserError{"Talkgroup category " + std::to_string(id) + " is not in system " +
                      std::to_string(a.system) + "."};
    }
  }
  progressDone();
  TrunkImport input{system, talkgroups, sites, [&q](int ctid) -> std::optional<RRCounty> {
                      q.getCountyInfo(ctid);
                      if (q.countyInfo.ctid != ctid) return std::nullopt;
                      return q.countyInfo;
                    }};
  return importTrunked(target, input, options);
}

}  // namespace

void addRRImport(CLI::App& rr, Context& context) {
  auto a = std::make_shared<ImportArgs>();
  auto* cmd = rr.add_subcommand(
      "import", "Import subcategories of a county or agency, or a trunked system's sites and "
                "talkgroup categories, into a favorites file");
  rrId(cmd->add_option("--county", a->county, "County (ctid) whose subcategories are imported"));
  rrId(cmd->add_option("--agency", a->agency, "Agency (aid) whose subcategories are imported"));
  inRange(cmd->add_option("--zip", a->zip, "A US zip code: its county"), 1, 99999, "a zip code");
  rrId(cmd->add_option("--subcat", a->subcats,
                       "Subcategory (scid) to import; repeat for more (none: all)")
           ->allow_extra_args(false));
  rrId(cmd->add_option("--system", a->system, "Trunked system (sid) to import"));
  rrId(cmd->add_option("--site", a->sites, "Site (siteId) of the system to import; repeat for more")
           ->allow_extra_args(false));
  rrId(cmd->add_option("--tgcat", a->tgcats,
                       "Talkgroup category (tgCid); repeat for more (none: all)")
           ->allow_extra_args(false));
  cmd->add_option("-o,--out", a->out, "Favorites file to write");
  cmd->add_option("--into", a->into, "Add the new system to this favorites file");
  cmd->add_option("--name", a->name, "Name of the new conventional system (default: the county's)");
  cmd->add_flag("--remove-spaces", a->removeSpaces, "Automatically Remove Spaces from Tags");
  cmd->add_flag("--short-alpha", a->shortAlpha, "Use short Alpha Tag (if available)");
  cmd->add_flag("--upper-case", a->upperCase, "Convert To Upper Case");
  cmd->add_flag("--lockout-encrypted", a->lockoutEncrypted,
                "Lock Out Encrypted conventional frequencies");
  cmd->add_flag("--skip-encrypted", a->skipEncrypted,
                "Do NOT import encrypted conventional frequencies");
  cmd->add_flag("--skip-telemetry", a->skipTelemetry,
                "Do NOT import Telemetry conventional frequencies");
  cmd->add_flag("--import-gps", a->importGps, "Import GPS data (if available)");
  rrId(cmd->add_option("--service", a->services,
                       "Import only this service tag (tagId); repeat for more")
           ->allow_extra_args(false));
  cmd->add_option("--tg-filter", a->tgFilter,
                  "Import only these talkgroups: analog,digital,mixed,tdma,encrypted,partial");
  oneOf(cmd->add_option("--updated-days", a->updatedDays, "Only rows updated in the last N days"),
        {0, 1, 7, 30, 90});
  cmd->add_flag("--qkeys-departments", a->qkeysDepartments, "Auto Assign Quickkeys to departments");
  cmd->add_flag("--qkeys-sites", a->qkeysSites, "Auto Assign Quickkeys to sites");
  cmd->add_option("--control-channels", a->controlChannels, "Control channels to import")
      ->check(CLI::IsMember({"primary", "alternate", "all"}));
  cmd->add_flag("--edacs-afs", a->edacsAfs, "Convert Edacs To AFS");
  addRROptions(*cmd, a->connection);

  cmd->callback([&context, a] {
    const bool conventional = a->county || a->agency || a->zip;
    if (conventional == (a->system != 0)) {
      throw UserError{"Give either --county, --agency or --zip, or --system.", 2};
    }
    if (a->system && a->sites.empty()) throw UserError{"Give at least one --site SITEID.", 2};
    if (a->out.empty() && a->into.empty()) throw UserError{"Give --out FILE.hpd.", 2};
    const ImportOptions options = optionsFrom(*a);

    RRCliSession session(context, a->connection);
    session.login(false);
    auto& q = session.queries();

    Document doc;
    formats::MemoryRows rows;
    // The new system belongs to list 1: the file read with --into, or the new one.
    const int fileNumber = 1;
    if (!a->into.empty()) readHpdOrFail(doc, rows, a->into);
    RecordingFeedback feedback;
    ImportTarget target{doc, rows, feedback, fileNumber};
    ImportResult result;
    if (conventional) {
      std::string systemName;
      const std::string today = SystemClock().date();
      auto convRows = conventionalSelection(q, *a, options, today, systemName, session);
      if (!a->name.empty()) systemName = utf8ToLatin1(a->name);
      result = maak_detemp245(target, systemName, convRows, options);
    } else {
      result = importSystem(q, *a, options, target, session);
    }
    session.finish();
    if (!result.ok) throw UserError{result.message};
    writeHpdOrFail(doc, rows, a->out.empty() ? a->into : a->out);

    Listing l;
    l.field("system", result.systemKey).field("departments", result.departments);
    l.field("channels", result.channels).field("sites", result.sites);
    l.field("frequencies", result.frequencies).field("file", a->out.empty() ? a->into : a->out);
    if (a->connection.json) {
      printJson(std::cout, l);
    } else {
      std::cout << "Imported " << result.systemKey << ": "
                << counted(result.departments, "department") << ", "
                << counted(result.channels, conventional ? "channel" : "talkgroup");
      if (!conventional) {
        std::cout << ", " << counted(result.sites, "site") << ", "
                  << counted(result.frequencies, "frequency", "frequencies");
      }
      std::cout << " into " << (a->out.empty() ? a->into : a->out) << "\n";
    }
  });
}

}  // namespace zel::cli

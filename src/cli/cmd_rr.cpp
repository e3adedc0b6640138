// zel rr: the RadioReference service from the command line.
//   zel rr login                                  the account's expiry date
//   zel rr browse country COID | state STID | county CTID | agency AID | system SID
//   zel rr browse subcat SCID | talkgroups SID [--cat TGCID] [--tag N] | zip ZIP
//   zel rr search county CTID FREQ [--tone T] | search state STID FREQ [--tone T]
//   zel rr import --county CTID --subcat SCID... | --system SID --site SITEID... --out FILE
// Every record is printed with its own id (coid, stid, ctid, aid, cid, scid, sid, siteId,
// tgCid) so that an import can take it.
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "cli/cmd_rr_listings.h"
#include "cli/cmd_rr_session.h"
#include "cli/command_registry.h"
#include "cli/option_range.h"

namespace {

using zel::cli::Listing;
using zel::cli::RRCliSession;
using zel::cli::RROptions;

void emit(const RROptions& options, const Listing& listing) {
  if (options.json) {
    zel::cli::printJson(std::cout, listing);
  } else {
    zel::cli::printPlain(std::cout, listing);
  }
}

struct BrowseArgs {
  RROptions options;
  int id = 0;
  int cat = 0;
  int tag = 0;
  double freq = 0;
  std::string tone;
};

// One browse or search form: `run` makes the calls after the login and builds the listing.
void addForm(CLI::App& parent, const std::string& name, const std::string& help,
             const std::string& idName, zel::cli::Context& context,
             std::function<Listing(zel::radioref::RRQueries&, const BrowseArgs&)> run,
             std::function<void(CLI::App&, BrowseArgs&)> extra = {}) {
  auto args = std::make_shared<BrowseArgs>();
  auto* cmd = parent.add_subcommand(name, help);
  if (idName == "ZIP") {
    zel::cli::inRange(cmd->add_option(idName, args->id, "The zip code")->required(), 1, 99999,
                      "a zip code");
  } else {
    zel::cli::rrId(cmd->add_option(idName, args->id, idName + " of the record")->required());
  }
  if (extra) extra(*cmd, *args);
  zel::cli::addRROptions(*cmd, args->options);
  cmd->callback([&context, args, run] {
    RRCliSession session(context, args->options);
    session.login(false);
    Listing listing = run(session.queries(), *args);
    session.requireSuccess();
    session.finish();
    emit(args->options, listing);
  });
}

}  // namespace

ZEL_COMMAND(70) {
  using namespace zel::cli;
  auto* rr = app.add_subcommand("rr", "The RadioReference web service: log in, browse, search");
  rr->require_subcommand(1);

  auto loginArgs = std::make_shared<RROptions>();
  auto* login = rr->add_subcommand("login", "Log in and print the subscription's expiry date");
  addRROptions(*login, *loginArgs);
  login->callback([&context, loginArgs] {
    RRCliSession session(context, *loginArgs);
    auto outcome = session.login(true);
    session.finish();
    Listing listing;
    listing.field("user", session.queries().userData.username)
        .field("subExpireDate", outcome.expiry);
    if (loginArgs->json) {
      printJson(std::cout, listing);
    } else {
      std::cout << outcome.statusText << '\n';
    }
  });

  auto* browse = rr->add_subcommand("browse", "Walk the service's records by id");
  browse->require_subcommand(1);
  addForm(*browse, "country", "States and agencies of a country", "COID", context,
          [](auto& q, const BrowseArgs& a) {
            q.getCountryInfo(a.id);
            return countryListing(a.id, q.countryInfo);
          });
  addForm(*browse, "state", "Counties, trunked systems and agencies of a state", "STID", context,
          [](auto& q, const BrowseArgs& a) {
            q.getStateInfo(a.id);
            return stateListing(q.stateInfo);
          });
  addForm(*browse, "county", "Categories, subcategories, systems and agencies of a county",
          "CTID", context, [](auto& q, const BrowseArgs& a) {
            q.getCountyInfo(a.id);
            return countyListing(q.countyInfo);
          });
  addForm(*browse, "agency", "Categories and subcategories of an agency", "AID", context,
          [](auto& q, const BrowseArgs& a) {
            q.getAgencyInfo(a.id);
            return agencyListing(q.agencyInfo);
          });
  addForm(*browse, "system", "A trunked system: details, sites with frequencies, talkgroup "
          "categories", "SID", context, [](auto& q, const BrowseArgs& a) {
            q.getTrsFlavor(0);
            q.getTrsVoice(0);
            q.getTrsSites(a.id);
            q.getTrsDetails(a.id);
            q.getTrsTalkgroupCats(a.id);
            return systemListing(a.id, q);
          });
  addForm(*browse, "subcat", "Frequencies of a subcategory", "SCID", context,
          [](auto& q, const BrowseArgs& a) {
            q.getSubcatFreqs(a.id);
            return frequencyListing("scid", a.id, q.subcatFreqs);
          });
  addForm(
      *browse, "talkgroups", "Talkgroups of a trunked system", "SID", context,
      [](auto& q, const BrowseArgs& a) {
        q.getTrsTalkgroups(a.id, a.cat, a.tag, 0);
        return talkgroupListing(a.id, q.talkgroups);
      },
      [](CLI::App& cmd, BrowseArgs& a) {
        zel::cli::rrId(cmd.add_option("--cat", a.cat, "Only this talkgroup category (tgCid)"));
        zel::cli::rrId(cmd.add_option("--tag", a.tag, "Only talkgroups of this service tag (tagId)"));
      });
  addForm(*browse, "zip", "Where a US zip code lies (state and county)", "ZIP", context,
          [](auto& q, const BrowseArgs& a) {
            q.getZipcodeInfo(a.id);
            return zipListing(q.zipcode);
          });
  addForm(
      *browse, "tag", "Frequencies of a county with one service tag", "CTID", context,
      [](auto& q, const BrowseArgs& a) {
        q.getCountyFreqsByTag(a.id, a.tag);
        return frequencyListing("ctid", a.id, q.countyFreqsByTag);
      },
      [](CLI::App& cmd, BrowseArgs& a) {
        zel::cli::rrId(cmd.add_option("--tag", a.tag, "Service tag (tagId)")->required());
      });

  addRRImport(*rr, context);

  auto* search = rr->add_subcommand("search", "Find a frequency in a county or a state");
  search->require_subcommand(1);
  auto freqOptions = [](CLI::App& cmd, BrowseArgs& a) {
    zel::cli::inRange(cmd.add_option("FREQ", a.freq, "Frequency in MHz")->required(), 25, 1300,
                      "a frequency in MHz");
    cmd.add_option("--tone", a.tone, "Only conventional frequencies with this tone");
  };
  addForm(
      *search, "county", "Search a county", "CTID", context,
      [](auto& q, const BrowseArgs& a) {
        q.searchCountyFreq(a.id, a.freq, a.tone);
        return searchListing(q.searchHits);
      },
      freqOptions);
  addForm(
      *search, "state", "Search a state", "STID", context,
      [](auto& q, const BrowseArgs& a) {
        q.searchStateFreq(a.id, a.freq, a.tone);
        return searchListing(q.searchHits);
      },
      freqOptions);
}

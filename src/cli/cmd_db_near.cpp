// zel db near LAT LON [--range MILES] [--service NAME]... (--root DIR | --folder DIR)
// The systems, sites and departments of every state file whose location circle reaches the
// point (or comes within MILES of it), nearest first. LAT and LON are signed decimal degrees.
#include <iostream>
#include <memory>

#include "cli/cmd_db_common.h"
#include "core/text.h"
#include "database/db_near.h"
#include "database/state_edit.h"

namespace {

using namespace zel;

struct NearArgs {
  cli::DbSource source;
  double latitude = 0;
  double longitude = 0;
  double range = 0;
  std::vector<std::string> services;
  int limit = 0;
  bool json = false;
};

void check(bool ok, const std::string& sentence) {
  if (!ok) throw cli::UserError{sentence};
}

std::string fixed(double value, int decimals) {
  return formatFixed(value, decimals);
}

void runNear(const NearArgs& args) {
  check(args.latitude >= -90 && args.latitude <= 90,
        "LAT takes a latitude from -90 to 90, not " + fixed(args.latitude, 6) + ".");
  check(args.longitude >= -180 && args.longitude <= 180,
        "LON takes a longitude from -180 to 180, not " + fixed(args.longitude, 6) + ".");
  check(args.range >= 0 && args.range <= 1000,
        "--range takes a number of miles from 0 to 1000, not " + fixed(args.range, 1) + ".");
  check(args.limit >= 0, "--limit takes a number of lines from 1 up, or 0 for all.");
  database::NearQuery query;
  query.latitude = args.latitude;
  query.longitude = args.longitude;
  query.rangeMiles = args.range;
  for (const std::string& name : args.services) {
    const int number = database::serviceFilterNumber(name);
    check(number > 0, "\"" + name + "\" is not a service type.");
    query.services.push_back(number);
  }
  const cli::OpenedDatabase db = cli::openDatabase(args.source);
  const database::NearResult result = database::findNear(db.index.states, query);
  std::size_t count = result.hits.size();
  if (args.limit > 0 && count > static_cast<std::size_t>(args.limit)) count = args.limit;

  if (args.json) {
    std::cout << "{\"filesRead\":" << result.filesRead << ",\"missing\":[";
    for (std::size_t n = 0; n < result.missing.size(); ++n) {
      std::cout << (n ? "," : "") << "\"" << cli::jsonInside(result.missing[n]) << "\"";
    }
    std::cout << "],\"hits\":[";
    for (std::size_t n = 0; n < count; ++n) {
      const database::NearHit& h = result.hits[n];
      std::cout << (n ? "," : "") << "{\"kind\":\"" << database::nearKindName(h.kind)
                << "\",\"distance\":" << fixed(h.distance, 2) << ",\"range\":" << fixed(h.range, 1)
                << ",\"latitude\":" << fixed(h.latitude, 6)
                << ",\"longitude\":" << fixed(h.longitude, 6) << ",\"state\":\""
                << cli::jsonInside(h.stateName) << "\",\"file\":\"" << h.stateFile
                << "\",\"line\":" << h.line << ",\"system\":\"" << cli::jsonInside(h.system)
                << "\",\"name\":\"" << cli::jsonInside(h.name) << "\"}";
    }
    std::cout << "]}\n";
    return;
  }
  if (result.hits.empty()) {
    std::cout << "Nothing in the " << result.filesRead << " state files reaches that point.\n";
    return;
  }
  std::cout << "Miles\tRange\tKind\tState\tSystem\tName\n";
  for (std::size_t n = 0; n < count; ++n) {
    const database::NearHit& h = result.hits[n];
    std::cout << fixed(h.distance, 2) << "\t"
              << (h.kind == database::NearKind::System ? "" : fixed(h.range, 1)) << "\t"
              << database::nearKindName(h.kind) << "\t" << h.stateName << "\t" << h.system << "\t"
              << (h.kind == database::NearKind::System ? "" : h.name) << "\n";
  }
  if (count < result.hits.size()) {
    std::cout << "(" << result.hits.size() - count << " more; --limit 0 lists all)\n";
  }
}

}  // namespace

ZEL_COMMAND(35) {
  (void)context;
  CLI::App* db = cli::dbNoun(app);
  auto args = std::make_shared<NearArgs>();
  auto* near = db->add_subcommand(
      "near", "The systems, sites and departments whose location reaches a point, nearest first");
  near->add_option("LAT", args->latitude, "Latitude in decimal degrees (south negative)")
      ->required();
  near->add_option("LON", args->longitude, "Longitude in decimal degrees (west negative)")
      ->required();
  near->add_option("--range", args->range, "Also list circles that end within this many miles");
  near->add_option("--service", args->services,
                   "Only departments with channels of this service type (repeatable)")
      ->allow_extra_args(false);
  near->add_option("--limit", args->limit, "Print at most this many lines (0: all)");
  cli::addDbSource(*near, args->source);
  near->add_flag("--json", args->json, "Print a JSON object");
  near->callback([args] { runNear(*args); });
}

// The service's largest reply read into its table, and a user's first minute against the
// simulated service over loopback HTTP: the description, a login with its lookup lists, and
// the walk from a country down to a county's frequency table.
// Targets: the 1.29 MB talkgroup reply under 20 ms; the login and walk under 150 ms wall;
// the real P25 system (1,793 talkgroups, every site) fetched and imported under 1 s.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/memory_ports.h"
#include "platform/qt_http_transport.h"
#include "formats/row_store.h"
#include "radioref/rr_import.h"
#include "radioref/rr_queries.h"
#include "radioref/rr_readers.h"
#include "radioref/soap_envelope.h"
#include "sim/radioref_sim.h"

namespace {

using namespace zel;
using namespace zel::radioref;

std::string realReply(const std::string& name) {
  std::ifstream in(std::string(ZEL_REALDATA_DIR) + "/radioref/v18/" + name, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

void BM_TalkgroupReplyIntoTable(benchmark::State& state) {
  const std::string text = realReply("trs_talkgroups_p25.xml");
  if (text.empty()) {
    state.SkipWithError("real replies not found");
    return;
  }
  std::size_t rows = 0;
  for (auto _ : state) {
    SoapEnvelope envelope;
    envelope.Parse(text);
    const SoapNode& part = envelope.Parameters().Item(0).Nodes().Item(0);
    auto table = readTalkgroups(part);
    rows = table.size();
    benchmark::DoNotOptimize(table);
  }
  state.counters["talkgroups"] = static_cast<double>(rows);
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_TalkgroupReplyIntoTable)->Unit(benchmark::kMillisecond);

void ensureApplication() {
  static int argc = 1;
  static char name[] = "radioref_bench";
  static char* argv[] = {name, nullptr};
  static QCoreApplication app(argc, argv);
}

// A client of the simulated service as the application makes one, logged in as demo.
struct DemoSession {
  DemoSession(const sim::RadioRefSim& sim, const std::filesystem::path& work)
      : client(http, feedback, clock), queries(client) {
    client.BaseUrl = sim.endpoint();
    client.WorkFolder = work.string();
    client.appKeySetting = "12345678";
    loggedIn = queries.login("demo", "demo").result == LoginOutcome::Result::LoggedIn;
  }
  QtHttpTransport http;
  RecordingFeedback feedback;
  SystemClock clock;
  SoapClient client;
  RRQueries queries;
  bool loggedIn = false;
};

void BM_LoginAndWalkToCountyFrequencies(benchmark::State& state) {
  ensureApplication();
  sim::RadioRefSim sim({});
  if (!sim.start()) {
    state.SkipWithError("simulated service did not start");
    return;
  }
  const auto work = std::filesystem::temp_directory_path() / "zel-rr-bench";
  std::size_t rows = 0;
  for (auto _ : state) {
    DemoSession session(sim, work);
    RRQueries& q = session.queries;
    if (!session.loggedIn) {
      state.SkipWithError("login failed");
      break;
    }
    q.getCountryInfo(1);
    q.getStateInfo(q.countryInfo.stateList.at(0).stid);
    q.getCountyInfo(q.stateInfo.countyList.at(0).ctid);
    for (const auto& cat : q.countyInfo.cats) {
      if (!cat.subcats.empty()) {
        q.getSubcatFreqs(cat.subcats.front().scid);
        break;
      }
    }
    rows = q.subcatFreqs.size();
  }
  state.counters["rows"] = static_cast<double>(rows);
  std::filesystem::remove_all(work);
}
BENCHMARK(BM_LoginAndWalkToCountyFrequencies)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_ImportRealP25System(benchmark::State& state) {
  ensureApplication();
  sim::RadioRefSimOptions options;
  options.dataDir = std::string(ZEL_REALDATA_DIR) + "/radioref/v18";
  sim::RadioRefSim sim(options);
  if (!sim.start()) {
    state.SkipWithError("simulated service did not start (real replies missing?)");
    return;
  }
  const auto work = std::filesystem::temp_directory_path() / "zel-rr-bench-import";
  DemoSession session(sim, work);
  RRQueries& q = session.queries;
  if (!session.loggedIn) {
    state.SkipWithError("login failed");
    return;
  }
  const ImportOptions importOptions = ImportOptions::defaults();
  std::size_t talkgroupCount = 0;
  for (auto _ : state) {
    const TrunkSystem system = loadTrunkSystem(q, 6673);
    std::vector<TalkgroupRow> talkgroups;
    for (const auto& cat : system.categories) {
      q.getTrsTalkgroups(6673, cat.tgCid, 0, 0);
      auto rows = talkgroupRows(q.talkgroups, cat, system, importOptions,
                                static_cast<int>(talkgroups.size()) + 1);
      talkgroups.insert(talkgroups.end(), rows.begin(), rows.end());
    }
    const std::vector<SiteRow> sites = siteRows(system);
    Document doc;
    formats::MemoryRows rows;
    RecordingFeedback importFeedback;
    TrunkImport input{system, talkgroups, sites, [](int) { return std::optional<RRCounty>{}; }};
    const ImportResult result =
        importTrunked(ImportTarget{doc, rows, importFeedback, 0}, input, importOptions);
    if (!result.ok) {
      state.SkipWithError(result.message.c_str());
      break;
    }
    talkgroupCount = static_cast<std::size_t>(result.channels);
  }
  state.counters["talkgroups"] = static_cast<double>(talkgroupCount);
  std::filesystem::remove_all(work);
}
BENCHMARK(BM_ImportRealP25System)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

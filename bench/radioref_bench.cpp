// The service's largest reply read into its table, and a user's first minute against the
// simulated service over loopback HTTP: the description, a login with its lookup lists, and
// the walk from a country down to a county's frequency table.
// Targets: the 1.29 MB talkgroup reply under 20 ms; the login and walk under 150 ms wall.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/memory_ports.h"
#include "platform/qt_http_transport.h"
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

void BM_LoginAndWalkToCountyFrequencies(benchmark::State& state) {
  static int argc = 1;
  static char name[] = "radioref_bench";
  static char* argv[] = {name, nullptr};
  static QCoreApplication app(argc, argv);
  sim::RadioRefSim sim({});
  if (!sim.start()) {
    state.SkipWithError("simulated service did not start");
    return;
  }
  const auto work = std::filesystem::temp_directory_path() / "zel-rr-bench";
  std::size_t rows = 0;
  for (auto _ : state) {
    QtHttpTransport http;
    RecordingFeedback feedback;
    SystemClock clock;
    SoapClient client(http, feedback, clock);
    client.BaseUrl = sim.endpoint();
    client.WorkFolder = work.string();
    client.appKeySetting = "12345678";
    RRQueries q(client);
    if (q.login("demo", "demo").result != LoginOutcome::Result::LoggedIn) {
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

}  // namespace

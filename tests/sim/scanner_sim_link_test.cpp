// The virtual control's state machines against the simulated scanner, in memory and on a
// settable clock: the two sides were written apart, each from its own model of the
// protocol, so agreement here means something. The watchdog after silence, Log And Avoid and
// the Close Call accept are each proved on a scripted port (control tests), the silence and
// the key against the real pseudo-terminal as well (monitor end-to-end test).
#include <gtest/gtest.h>

#include "control/scripted_serial_port.h"
#include "control/virtual_control.h"
#include "core/memory_ports.h"
#include "core/text.h"
#include "sim/scanner_sim.h"

namespace zel {
namespace {

using control::Family;

class NullPump : public control::EventPump {
 public:
  explicit NullPump(ManualClock& c) : clock_(c) {}
  void runFor(int ms) override { clock_.advance(ms); }
  void runPending() override {}

 private:
  ManualClock& clock_;
};

struct Bench {
  Bench(Family family, const std::string& model, std::uint32_t seed, double activity) {
    sim::ScannerSimOptions o;
    o.model = model;
    o.seed = seed;
    o.activity = activity;
    scanner = std::make_unique<sim::ScannerSim>(o);
    scanner->advance(0);
    port.ports = {{"COM3", ""}};
    port.responder = [this](const std::string& command) {
      scanner->advance(clock.ms);
      port.feed(scanner->answer(command));
    };
    vc = std::make_unique<control::VirtualControl>(
        family, control::VcPorts{port, clock, pump, feedback, settings}, "");
    vc->options.action = control::LogAction::Off;
    vc->logger.onLine = [this](const std::string& l) { lines.push_back(l); };
    vc->link.selectPortName("COM3");
    vc->link.connect();
  }
  void run(std::int64_t ms) {
    vc->timers.runUntil(clock, clock.ms + ms, [this](int id) {
      scanner->advance(clock.ms);
      vc->fire(id);
    });
  }
  std::vector<std::string> linesOf(const std::string& type) const {
    std::vector<std::string> out;
    for (const auto& l : lines)
      if (startsWith(l, type + ",")) out.push_back(l);
    return out;
  }

  ManualClock clock;
  NullPump pump{clock};
  control::ScriptedSerialPort port;
  RecordingFeedback feedback;
  MemorySettingsStore settings;
  std::unique_ptr<sim::ScannerSim> scanner;
  std::unique_ptr<control::VirtualControl> vc;
  std::vector<std::string> lines;
};

bool onList(const std::string& channel) {
  for (const auto& c : sim::builtInScanList().channels)
    if (c.name == channel) return true;
  return false;
}

TEST(ScannerSimLink, TheBcdWindowLogsTheScriptedScan) {
  Bench b(Family::Bcd, "BCD536HP", 11, 0.4);
  b.run(60000);
  EXPECT_EQ(b.vc->link.watchdogFirings, 0);
  EXPECT_EQ(b.vc->status.model, "BCD536HP");
  auto logs = b.linesOf("LOG");
  ASSERT_GE(logs.size(), 5u);
  for (const auto& l : logs) {
    auto f = split(l, ',');
    ASSERT_EQ(f.size(), 14u) << l;
    // A Close Call hit is named by its frequency; every other hit is a channel of the list.
    EXPECT_TRUE(onList(f[3]) || (f[7] == "CloseCall" && f[3] == f[1])) << l;
  }
  // Talkgroup hits carry their unit IDs; every logged one is a unit of the list.
  auto uids = b.linesOf("UID");
  ASSERT_FALSE(uids.empty());
  for (const auto& l : uids) {
    std::string uid = split(l, ',')[6];
    EXPECT_TRUE(uid == "1872001" || uid == "1872044" || uid == "2500310") << l;
  }
  EXPECT_FALSE(b.linesOf("SUB").empty());
  EXPECT_FALSE(b.linesOf("NAC").empty());
  // The comma inside "Springfield, City of" was repaired before the split.
  bool repaired = false;
  for (const auto& l : logs) repaired = repaired || l.find("Springfield; City of") != l.npos;
  EXPECT_TRUE(repaired);
}

TEST(ScannerSimLink, TheSdsWindowReadsTheXmlAndNamesTheModel) {
  Bench b(Family::Sds, "SDS200", 5, 0.4);
  b.run(60000);
  EXPECT_EQ(b.vc->link.watchdogFirings, 0);
  EXPECT_EQ(b.vc->link.title(), control::kSdsTitle);
  auto logs = b.linesOf("LOG");
  ASSERT_GE(logs.size(), 5u);
  for (const auto& l : logs) {
    auto f = split(l, ',');
    ASSERT_EQ(f.size(), 15u) << l;  // with Extra Info
    EXPECT_TRUE(onList(f[3]) || f[8] == "CloseCall") << l;
    EXPECT_FALSE(f[7].empty()) << l;  // the system type at least
  }
  EXPECT_FALSE(b.vc->status.ldat[control::ld::kListName].empty());
}

}  // namespace
}  // namespace zel

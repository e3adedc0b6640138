#include "control/timer_bank.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zel::control {
namespace {

TEST(TimerBank, EnablingAnEnabledTimerDoesNotRestartIt) {
  ManualClock clock;
  TimerBank bank(clock);
  int watchdog = bank.add("Timer2", 2000);
  bank.enable(watchdog);
  EXPECT_EQ(bank.due(watchdog), 2000);
  clock.advance(1500);
  bank.enable(watchdog);  // armed again at every send tick: no effect
  EXPECT_EQ(bank.due(watchdog), 2000);
  bank.disable(watchdog);
  bank.enable(watchdog);  // off and on again restarts it
  EXPECT_EQ(bank.due(watchdog), 3500);
}

TEST(TimerBank, ANewIntervalRestartsTheSameIntervalDoesNot) {
  ManualClock clock;
  TimerBank bank(clock);
  int send = bank.add("Timer1", 100, true);
  auto generation = bank.generation(send);
  clock.advance(40);
  bank.setInterval(send, 100);
  EXPECT_EQ(bank.generation(send), generation);
  bank.setInterval(send, 75);
  EXPECT_EQ(bank.due(send), 115);
  EXPECT_GT(bank.generation(send), generation);
}

TEST(TimerBank, RunUntilFiresInTimeOrderAndHonoursHandlersThatStopTimers) {
  ManualClock clock;
  TimerBank bank(clock);
  int fast = bank.add("fast", 10, true);
  int slow = bank.add("slow", 25, true);
  int once = bank.add("once", 15, true);
  std::vector<std::string> fired;
  bank.runUntil(clock, 50, [&](int id) {
    fired.push_back(bank.name(id) + "@" + std::to_string(clock.ms));
    if (id == once) bank.disable(once);
  });
  // Same-time ties go to the lower id: "fast" before "slow" at 50.
  EXPECT_EQ(fired, (std::vector<std::string>{"fast@10", "once@15", "fast@20", "slow@25", "fast@30",
                                             "fast@40", "fast@50", "slow@50"}));
  EXPECT_EQ(clock.ms, 50);
  EXPECT_TRUE(!bank.enabled(once) && bank.enabled(fast) && bank.enabled(slow));
}

TEST(TimerBank, ListenerHearsEveryChange) {
  ManualClock clock;
  TimerBank bank(clock);
  int t = bank.add("t", 100);
  std::vector<int> heard;
  bank.setListener([&](int id) { heard.push_back(id); });
  bank.enable(t);
  bank.enable(t);  // no change, nothing heard
  bank.setInterval(t, 50);
  bank.disable(t);
  EXPECT_EQ(heard.size(), 3u);
  EXPECT_EQ(std::make_pair(bank.find("t"), bank.find("none")), std::make_pair(t, -1));
}

}  // namespace
}  // namespace zel::control

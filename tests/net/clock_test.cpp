// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/clock.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/errors.h"
#include "net/run_task.h"
#include "support/event_loop.h"
#include "support/hand_clock.h"
#include "support/run_virtual.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Durations = std::vector<std::chrono::milliseconds>;

/// Sleeps and says how that ended.
Task<std::string> sleepOutcome(Clock* clock, std::chrono::milliseconds duration, StopToken stop) {
  try {
    co_await clock->sleepFor(duration, stop);
  } catch (const NetworkError& error) {
    co_return error.what();
  }
  co_return "awake";
}

TEST(SystemClock, SleepsAtLeastAsLongAsAsked) {
  SystemClock clock;
  const auto start = clock.monotonic();
  EXPECT_EQ(runTask(sleepOutcome(&clock, 30ms, {})), "awake");
  EXPECT_GE(clock.monotonic() - start, 30ms);
  EXPECT_EQ(runTask(sleepOutcome(&clock, -1ms, {})), "awake");
}

TEST(SystemClock, StopsFromTheEventLoop) {
  SystemClock clock;
  StopSource source;
  auto sleeping = sleepOutcome(&clock, 1h, source.token());
  source.requestStop();
  EXPECT_FALSE(sleeping.isReady()) << "resumed inside requestStop()";
  EXPECT_EQ(runTask(std::move(sleeping)), "Cancelled");
  EXPECT_EQ(runTask(sleepOutcome(&clock, 1h, source.token())), "Cancelled");
}

Task<> sleepAndNote(HandClock* clock, Durations naps, std::string name, std::string* log) {
  for (const auto nap : naps) {
    co_await clock->sleepFor(nap, {});
    const auto time = clock->monotonic().time_since_epoch();
    *log += name + std::to_string(time.count()) + " ";
  }
}

TEST(HandClock, WakesInOrderOfDeadlineEachAtItsOwnTime) {
  HandClock clock;
  std::string log;
  detach(sleepAndNote(&clock, {30ms}, "a", &log), "a");
  detach(sleepAndNote(&clock, {10ms, 10ms, 100ms}, "b", &log), "b");
  detach(sleepAndNote(&clock, {0ms, 30ms}, "c", &log), "c");
  clock.advance(29ms);
  EXPECT_EQ(log, "c0 b10 b20 ");
  clock.advance(1ms);
  EXPECT_EQ(log, "c0 b10 b20 a30 c30 ");
  EXPECT_TRUE(clock.advanceToNextDeadline());
  EXPECT_EQ(log, "c0 b10 b20 a30 c30 b120 ");
  EXPECT_FALSE(clock.advanceToNextDeadline());
  EXPECT_EQ(clock.waits(), (Durations{30ms, 10ms, 0ms, 30ms, 10ms, 100ms}));
}

TEST(HandClock, AStoppedSleeperIsNoDeadline) {
  HandClock clock;
  StopSource source;
  auto sleeping = sleepOutcome(&clock, 5s, source.token());
  source.requestStop();
  EXPECT_FALSE(clock.advanceToNextDeadline());
  EXPECT_EQ(runVirtual(clock, std::move(sleeping)), "Cancelled");
}

TEST(HandClock, TheWallClockCanBeSetApart) {
  const Instant noon = Instant{} + 12h;
  HandClock clock(noon);
  clock.setNow(noon - 1h);
  clock.advance(60500ms);
  EXPECT_EQ(clock.now(), noon - 1h + 60500ms);
  EXPECT_EQ(clock.monotonic(), Clock::Monotonic(60500ms));
}

}  // namespace
}  // namespace quillet

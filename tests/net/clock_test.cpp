// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/clock.h"

#include <gtest/gtest.h>

#include <string>

#include "base/errors.h"
#include "net/run_task.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

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
  // Longer than a timer of Qt's can be: cut to an int of milliseconds it would be 0.
  auto sleeping = sleepOutcome(&clock, std::chrono::milliseconds(1LL << 32), source.token());
  EXPECT_EQ(runTask(sleepOutcome(&clock, 1ms, {})), "awake");
  EXPECT_FALSE(sleeping.isReady());
  source.requestStop();
  EXPECT_FALSE(sleeping.isReady()) << "resumed inside requestStop()";
  EXPECT_EQ(runTask(std::move(sleeping)), "Cancelled");
  EXPECT_EQ(runTask(sleepOutcome(&clock, 1h, source.token())), "Cancelled");
}

}  // namespace
}  // namespace quillet

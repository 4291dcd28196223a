// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/stop_signals.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "support/event_loop.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

TEST(StopSignals, TheFirstRequestsAStop) {
  for (const int signal : {SIGINT, SIGTERM}) {
    const StopSignals signals;
    const StopToken stop = signals.token();
    ::raise(signal);
    waitFor([&] { return stop.stopRequested(); });
    EXPECT_EQ(signals.received(), signal);
  }
}

/// What the end is like while the event loop is held.
TEST(StopSignalsDeathTest, WhatHoldsTheEndDoesNotHoldItForEver) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  const auto hold = [] {
    for (;;) ::pause();
  };
  const auto raiseTwice = [&] {
    const StopSignals signals;
    ::raise(SIGTERM);
    ::raise(SIGINT);
    hold();
  };
  EXPECT_EXIT(raiseTwice(), testing::ExitedWithCode(128 + SIGINT), "");
  const auto raiseOnce = [&](StopSignals::LateStatus status) {
    const StopSignals signals(10ms, status);
    ::raise(SIGTERM);
    hold();
  };
  EXPECT_EXIT(raiseOnce(StopSignals::LateStatus::success), testing::ExitedWithCode(0), "");
  EXPECT_EXIT(raiseOnce(StopSignals::LateStatus::signal), testing::ExitedWithCode(128 + SIGTERM),
              "");
  const auto endByItself = [&] {
    const StopSignals signals(10ms);
    signals.beginEnd();
    hold();
  };
  EXPECT_EXIT(endByItself(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace quillet

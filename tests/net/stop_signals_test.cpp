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
  const auto raiseOnce = [&] {
    const StopSignals signals(10ms);
    ::raise(SIGTERM);
    hold();
  };
  EXPECT_EXIT(raiseOnce(), testing::ExitedWithCode(0), "");
  const auto endByItself = [&] {
    const StopSignals signals(10ms);
    signals.beginEnd();
    hold();
  };
  EXPECT_EXIT(endByItself(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace quillet

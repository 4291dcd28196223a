// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/clock.h"

#include <gtest/gtest.h>

#include <string>

#include "base/errors.h"
#include "net/run_task.h"
#include "support/message_of.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

std::string howItEnded(Task<> sleeping) {
  return messageOf<NetworkError>([&] { runTask(std::move(sleeping)); });
}

TEST(SystemClock, SleepsAtLeastAsLongAsAsked) {
  SystemClock clock;
  const auto start = clock.monotonic();
  runTask(clock.sleepFor(30ms, {}));
  EXPECT_GE(clock.monotonic() - start, 30ms);
  runTask(clock.sleepFor(-1ms, {}));
}

TEST(SystemClock, StopsFromTheEventLoop) {
  SystemClock clock;
  StopSource source;
  // Longer than a timer of Qt's can be: cut to an int of milliseconds it would be 0.
  auto sleeping = clock.sleepFor(std::chrono::milliseconds(1LL << 32), source.token());
  runTask(clock.sleepFor(1ms, {}));
  EXPECT_FALSE(sleeping.isReady());
  source.requestStop();
  EXPECT_FALSE(sleeping.isReady()) << "resumed inside requestStop()";
  EXPECT_EQ(howItEnded(std::move(sleeping)), "Cancelled");
  EXPECT_EQ(howItEnded(clock.sleepFor(1h, source.token())), "Cancelled");
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/stop_token.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace quillet {
namespace {

TEST(StopToken, CallsEachRegisteredCallbackOnceAndInOrder) {
  std::string calls;
  StopSource source;
  const StopToken token = source.token();
  const StopCallback first(token, [&] { calls += "1"; });
  {
    const StopCallback gone(token, [&] { calls += "gone"; });
  }
  const StopCallback second(token, [&] { calls += "2"; });
  EXPECT_FALSE(token.stopRequested());
  source.requestStop();
  source.requestStop();
  const StopCallback late(token, [&] { calls += "late"; });
  EXPECT_TRUE(token.stopRequested());
  EXPECT_EQ(calls, "12late");
}

TEST(StopToken, CallbacksMayEndRegistrationsAndTheSource) {
  std::string calls;
  std::optional<StopSource> source(std::in_place);
  const StopToken token = source->token();
  std::optional<StopCallback> first;
  std::optional<StopCallback> second;
  first.emplace(token, [&] {
    calls += "1";
    first.reset();
    second.reset();
    source.reset();
  });
  second.emplace(token, [&] { calls += "2"; });
  source->requestStop();
  EXPECT_EQ(calls, "1");
  EXPECT_TRUE(token.stopRequested());
}

}  // namespace
}  // namespace quillet

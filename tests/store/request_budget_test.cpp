// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/request_budget.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "support/fake_clock.h"
#include "support/run_virtual.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using enum RequestClass;

/// Takes places one after the other or together, and notes when each request started.
class RequestBudgetTest : public testing::Test {
 protected:
  Task<> take(RequestClass requestClass, std::string name, StopToken stop = {}) {
    co_await budget.take(requestClass, stop);
    started.emplace_back(name);
    times.push_back(clock.monotonic() - begin);
  }

  void takeMany(int count, RequestClass requestClass = interactive) {
    for (int i = 0; i < count; ++i) runVirtual(clock, take(requestClass, "earlier"));
  }

  FakeClock clock;
  RequestBudget budget{clock};
  Clock::Monotonic begin = clock.monotonic();
  std::vector<std::string> started;
  std::vector<std::chrono::milliseconds> times;
};

TEST_F(RequestBudgetTest, PlacesAreTakenForAFullMinuteAndOneIsLeftForTheBackground) {
  RequestBudget small(clock, 2);
  runVirtual(clock, small.take(interactive, {}));
  clock.advance(600ms);
  runVirtual(clock, small.take(interactive, {}));
  clock.advance(59400ms);
  // Exactly a minute old still counts; then it waits half a second at least.
  runVirtual(clock, small.take(interactive, {}));
  EXPECT_EQ(clock.monotonic() - begin, 60500ms);
  clock.advance(60001ms);
  // Five places kept for people would be all of them.
  runVirtual(clock, small.take(background, {}));
  EXPECT_EQ(clock.monotonic() - begin, 120501ms);
}

TEST_F(RequestBudgetTest, WaitingRequestsStartInTheirOrder) {
  takeMany(15);
  std::vector<Task<>> waiting;
  for (int i = 0; i < 20; ++i) waiting.push_back(take(interactive, fmt::format("{:02}", i)));
  for (Task<>& task : waiting) runVirtual(clock, std::move(task));
  EXPECT_TRUE(std::is_sorted(started.begin() + 15, started.end()));
  EXPECT_EQ(times[29], 60500ms);
  EXPECT_EQ(times[30], 121000ms);
}

TEST_F(RequestBudgetTest, WhoWakesBeforeItsTurnDoesNotHoldUpTheOthers) {
  takeMany(15);
  Task<> first = take(interactive, "first");
  clock.advance(60200ms);
  Task<> second = take(interactive, "second");
  runVirtual(clock, std::move(first));
  runVirtual(clock, std::move(second));
  EXPECT_EQ(started.back(), "second");
  EXPECT_LE(times.back(), 60520ms);
}

TEST_F(RequestBudgetTest, BackgroundLeavesFivePlacesAndGoesLast) {
  takeMany(10, background);
  Task<> eleventh = take(background, "eleventh");
  takeMany(5);
  EXPECT_EQ(times.back(), 0ms);
  Task<> person = take(interactive, "waiting person");
  runVirtual(clock, std::move(person));
  runVirtual(clock, std::move(eleventh));
  EXPECT_EQ(started[15], "waiting person");
  EXPECT_EQ(times[15], 60500ms);
  EXPECT_EQ(started[16], "eleventh");
}

TEST_F(RequestBudgetTest, AbandonedWaitGivesUpItsTurn) {
  takeMany(15);
  StopSource source;
  Task<> abandoned = take(interactive, "abandoned", source.token());
  Task<> next = take(interactive, "next");
  source.requestStop();
  EXPECT_THROW(runVirtual(clock, std::move(abandoned)), NetworkError);
  runVirtual(clock, std::move(next));
  EXPECT_EQ(started.back(), "next");
  EXPECT_EQ(times.back(), 60500ms);
}

TEST_F(RequestBudgetTest, TellsHowLongTheNextOneWaits) {
  takeMany(15);
  EXPECT_EQ(budget.currentWait(), std::nullopt) << "full, but nobody waits";
  const Task<> last = take(background, "background");
  const Task<> person = take(interactive, "person");
  EXPECT_EQ(budget.currentWait(), 60500ms);
  clock.advance(20s);
  EXPECT_EQ(budget.currentWait(), 40500ms);
  clock.advance(41s);
  EXPECT_EQ(budget.currentWait(), std::nullopt);
  EXPECT_EQ(started.size(), 17U);
}

}  // namespace
}  // namespace quillet

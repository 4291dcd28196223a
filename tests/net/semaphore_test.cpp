// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/semaphore.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "base/errors.h"
#include "net/completion.h"
#include "support/event_loop.h"

namespace quillet {
namespace {

/// Enters, stays until `leave` is set, and notes both.
Task<> visit(Semaphore* semaphore, char name, Completion leave, StopToken stop, std::string* log,
             RequestClass requestClass = RequestClass::interactive) {
  try {
    const Semaphore::Permit permit = co_await semaphore->acquire(stop, requestClass);
    *log += name;
    co_await leave;
    *log += '-';
  } catch (const NetworkError&) {
    *log += 'x';
  }
}

/// Stops after what the event loop has to do already, and before what that asks for.
Task<> stopInTurn(StopSource source) {
  const Completion turn;
  turn.set();
  co_await turn;
  source.requestStop();
}

TEST(Semaphore, LetsInAsManyAsItHasPlacesInOrder) {
  Semaphore semaphore(2);
  std::string log;
  std::map<char, Completion> leave;
  for (const char name : {'a', 'b', 'c', 'd'}) {
    detach(visit(&semaphore, name, leave[name], {}, &log), "visit");
  }
  EXPECT_EQ(log, "ab");
  leave['a'].set();
  handlePendingEvents();
  EXPECT_EQ(log, "ab-c");
  for (const char name : {'b', 'c', 'd'}) leave[name].set();
  handlePendingEvents();
  EXPECT_EQ(log, "ab-c--d-");
  detach(visit(&semaphore, 'e', leave['d'], {}, &log), "visit");
  EXPECT_EQ(log, "ab-c--d-e-") << "a free place is taken at once";
}

TEST(Semaphore, LetsPeopleGoBeforeTheBackground) {
  Semaphore semaphore(1);
  std::string log;
  Completion leave;
  detach(visit(&semaphore, 'a', leave, {}, &log), "visit");
  detach(visit(&semaphore, 'b', leave, {}, &log, RequestClass::background), "visit");
  for (const char name : {'c', 'd'}) detach(visit(&semaphore, name, leave, {}, &log), "visit");
  leave.set();
  handlePendingEvents();
  EXPECT_EQ(log, "a-c-d-b-");
}

TEST(Semaphore, AStoppedVisitorTakesNoPlaceAndGivesNoneAway) {
  for (const char stopped : {'c', 'b'}) {
    Semaphore semaphore(1);
    StopSource source;
    std::string log;
    std::map<char, Completion> leave;
    for (const char name : {'a', 'b', 'c'}) {
      const StopToken token = name == stopped ? source.token() : StopToken();
      detach(visit(&semaphore, name, leave[name], token, &log), "visit");
    }
    if (stopped == 'c') source.requestStop();  // while it waits
    handlePendingEvents();
    leave['a'].set();
    if (stopped == 'b') detach(stopInTurn(source), "stop");  // when a has called it
    for (const char name : {'b', 'c'}) leave[name].set();
    handlePendingEvents();
    EXPECT_EQ(log, stopped == 'c' ? "ax-b-" : "a-xc-");
  }
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <stdexcept>
#include <utility>

#include "net/outcome.h"
#include "net/task.h"
#include "support/event_loop.h"
#include "support/fake_clock.h"

namespace quillet {

/// Drives `task` to its end on virtual time: whenever nothing is left to be done, `clock` moves to
/// its next deadline. Returns the task's value or rethrows what it threw; throws std::logic_error
/// when the task can never end, since nobody sleeps.
template <typename T>
T runVirtual(FakeClock& clock, Task<T> task) {
  auto outcome = std::make_shared<Outcome<T>>();
  const Task<> settling = settle<T>(std::move(task), outcome, [] {});
  handlePendingEvents();
  while (!outcome->isSet()) {
    if (!clock.advanceToNextDeadline()) throw std::logic_error("The task waits for nothing");
  }
  return outcome->take();
}

}  // namespace quillet

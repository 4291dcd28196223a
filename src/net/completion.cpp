// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/completion.h"

#include <QCoreApplication>
#include <cassert>
#include <utility>

namespace quillet {

/// Touched on the event-loop thread alone: set() only posts.
struct Completion::State {
  bool happened = false;
  std::coroutine_handle<> waiter;
};

Completion::Completion() : state_(std::make_shared<State>()) {}

void Completion::set() const {
  const auto wake = [state = state_] {
    state->happened = true;
    if (const auto waiter = std::exchange(state->waiter, nullptr)) waiter.resume();
  };
  QMetaObject::invokeMethod(QCoreApplication::instance(), wake, Qt::QueuedConnection);
}

bool Completion::await_ready() const { return state_->happened; }

void Completion::await_suspend(std::coroutine_handle<> waiter) const {
  assert(!state_->waiter);
  state_->waiter = waiter;
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <coroutine>
#include <memory>

namespace quillet {

/// Something that happens once and that one coroutine waits for (`co_await`). The coroutine goes on
/// from the event loop, never inside set(), so whoever calls set() may be in the middle of
/// anything. Copies share one state. Waiting suspends until the event loop has run.
class Completion {
 public:
  Completion();

  /// May be called from any thread and more than once; only the first call counts.
  void set() const;

  [[nodiscard]] bool await_ready() const;
  void await_suspend(std::coroutine_handle<> waiter) const;
  void await_resume() const {}

 private:
  struct State;
  std::shared_ptr<State> state_;
};

}  // namespace quillet

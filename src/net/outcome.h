// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>
#include <variant>

#include "net/task.h"

namespace quillet {

/// How an operation ended: with its value, or with what it threw. Open until then.
template <typename T>
class Outcome {
 public:
  using Value = std::conditional_t<std::is_void_v<T>, std::monostate, T>;

  [[nodiscard]] bool isSet() const { return kept_.index() != 0; }

  void setValue(Value value) { kept_.template emplace<1>(std::move(value)); }
  void setError(std::exception_ptr error) { kept_.template emplace<2>(std::move(error)); }

  /// Calls `function` and keeps what it returns or throws.
  template <typename F>
  void runAndKeep(F& function) {
    try {
      if constexpr (std::is_void_v<T>) {
        std::invoke(function);
        setValue({});
      } else {
        setValue(std::invoke(function));
      }
    } catch (...) {
      setError(std::current_exception());
    }
  }

  /// The value, moved out; rethrows what was thrown. It must be set.
  T take() {
    if (kept_.index() == 2) std::rethrow_exception(std::get<2>(kept_));
    if constexpr (!std::is_void_v<T>) return std::get<1>(std::move(kept_));
  }

 private:
  struct Open {};
  std::variant<Open, Value, std::exception_ptr> kept_;
};

/// Awaits `task`, keeps how it ended in `outcome`, then calls `then`. Throws nothing itself.
template <typename T>
Task<> settle(Task<T> task, std::shared_ptr<Outcome<T>> outcome, std::function<void()> then) {
  try {
    if constexpr (std::is_void_v<T>) {
      co_await task;
      outcome->setValue({});
    } else {
      T value = co_await task;
      outcome->setValue(std::move(value));
    }
  } catch (...) {
    outcome->setError(std::current_exception());
  }
  then();
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <exception>
#include <utility>
#include <vector>

#include "net/task.h"

namespace quillet {

/// Awaits tasks that are under way together. Where some throw, rethrows the first one's error, but
/// only after all have ended: none is left running.
inline Task<> allOf(std::vector<Task<>> tasks) {
  std::exception_ptr failure;
  for (Task<>& task : tasks) {
    try {
      co_await task;
    } catch (...) {
      if (!failure) failure = std::current_exception();
    }
  }
  if (failure) std::rethrow_exception(failure);
}

}  // namespace quillet

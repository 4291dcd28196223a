// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QEventLoop>
#include <memory>
#include <stdexcept>
#include <utility>

#include "net/outcome.h"
#include "net/task.h"

namespace quillet {

/// Runs the event loop until `task` has ended; returns its value or rethrows what it threw. Throws
/// std::logic_error when the application quits before.
template <typename T>
T runTask(Task<T> task) {
  // Shared with the coroutine: it may outlive this call when the application quits early.
  auto outcome = std::make_shared<Outcome<T>>();
  auto loop = std::make_shared<QEventLoop>();
  const Task<> settling = settle<T>(std::move(task), outcome, [loop] { loop->quit(); });
  if (!outcome->isSet()) loop->exec();
  if (!outcome->isSet()) throw std::logic_error("The event loop ended before the task");
  return outcome->take();
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QThreadPool>
#include <memory>
#include <type_traits>
#include <utility>

#include "net/completion.h"
#include "net/network_errors.h"
#include "net/outcome.h"
#include "net/stop_token.h"
#include "net/task.h"

namespace quillet {

/// Runs `function` on a thread of `pool` and goes on with its result on the event loop; what it
/// throws is rethrown there. The pool must live until the function has run, not longer. At a stop
/// it throws NetworkError `cancelled` at once, and the function is left to its end.
template <typename F>
Task<std::invoke_result_t<F&>> onPool(QThreadPool* pool, F function, StopToken stop = {}) {
  struct Job {
    F function;
    Outcome<std::invoke_result_t<F&>> outcome;
  };
  auto job = std::make_shared<Job>(std::move(function));
  Completion done;
  pool->start([job, done] {
    job->outcome.runAndKeep(job->function);
    done.set();
  });
  const StopCallback onStop(stop, [done] { done.set(); });
  co_await done;
  if (stop.stopRequested()) throw cancelledError();
  co_return job->outcome.take();
}

/// The same on the global pool. The function must be pure: it works on what it captured by value.
template <typename F>
Task<std::invoke_result_t<F&>> onWorker(F function, StopToken stop = {}) {
  return onPool(QThreadPool::globalInstance(), std::move(function), std::move(stop));
}

}  // namespace quillet

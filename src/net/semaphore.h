// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <utility>

#include "net/completion.h"
#include "net/request_class.h"
#include "net/stop_token.h"
#include "net/task.h"

namespace quillet {

/// Lets a few in at a time; the others wait, interactive ones before background ones and each in
/// the order in which they came. Must outlive those who wait and the permits given out.
class Semaphore {
 public:
  /// One of them, given back at the end of its life.
  class Permit {
   public:
    explicit Permit(Semaphore& semaphore) : semaphore_(&semaphore) {}
    Permit(Permit&& other) noexcept : semaphore_(std::exchange(other.semaphore_, nullptr)) {}
    Permit& operator=(Permit&&) = delete;
    ~Permit();

   private:
    Semaphore* semaphore_;
  };

  explicit Semaphore(int permits) : free_(permits) {}
  Semaphore(const Semaphore&) = delete;
  Semaphore& operator=(const Semaphore&) = delete;

  /// Throws NetworkError `cancelled` when stopped while it waits.
  Task<Permit> acquire(StopToken stop, RequestClass requestClass = RequestClass::interactive);

 private:
  Task<> waitForTurn(StopToken stop, RequestClass requestClass);
  void release();

  int free_;
  int lastNumber_ = 0;
  std::map<std::pair<RequestClass, int>, Completion> waiting_;
};

}  // namespace quillet

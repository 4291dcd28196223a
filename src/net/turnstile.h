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
/// the order in which they came. Must outlive those who wait and the places given out.
class Turnstile {
 public:
  /// One place taken, given up at the end of its life.
  class Place {
   public:
    explicit Place(Turnstile& turnstile) : turnstile_(&turnstile) {}
    Place(Place&& other) noexcept : turnstile_(std::exchange(other.turnstile_, nullptr)) {}
    Place& operator=(Place&&) = delete;
    ~Place();

   private:
    Turnstile* turnstile_;
  };

  explicit Turnstile(int places) : free_(places) {}
  Turnstile(const Turnstile&) = delete;
  Turnstile& operator=(const Turnstile&) = delete;

  /// Throws NetworkError `cancelled` when stopped while it waits.
  Task<Place> enter(StopToken stop, RequestClass requestClass = RequestClass::interactive);

 private:
  Task<> waitForTurn(StopToken stop, RequestClass requestClass);
  void leave();

  int free_;
  int lastNumber_ = 0;
  std::map<std::pair<RequestClass, int>, Completion> waiting_;
};

}  // namespace quillet

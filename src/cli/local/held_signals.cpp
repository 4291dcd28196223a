// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/held_signals.h"

#include <atomic>

namespace quillet {

namespace {

// All that a handler can reach, on whichever thread it runs. 0: none came.
std::atomic<int> cameMeanwhile;
static_assert(std::atomic<int>::is_always_lock_free);

extern "C" void noteSignal(int signal) { cameMeanwhile = signal; }

}  // namespace

HeldSignals::HeldSignals() {
  cameMeanwhile = 0;
  struct sigaction noting{};
  noting.sa_handler = noteSignal;
  noting.sa_flags = SA_RESTART;
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    sigaction(kSignals[i], nullptr, &before_[i]);
    if (before_[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &noting, nullptr);
  }
}

HeldSignals::~HeldSignals() {
  for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &before_[i], nullptr);
  if (waiting()) raise(cameMeanwhile);
}

bool HeldSignals::waiting() const { return cameMeanwhile != 0; }

}  // namespace quillet

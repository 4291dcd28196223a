// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/held_signals.h"

namespace quillet {

namespace {

constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP};

bool isIgnored(int signal) {
  struct sigaction action{};
  return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

HeldSignals::HeldSignals() {
  sigemptyset(&held_);
  for (const int signal : kEndingSignals) {
    // While it is blocked, even an ignored signal would be noted as waiting.
    if (!isIgnored(signal)) sigaddset(&held_, signal);
  }
  pthread_sigmask(SIG_BLOCK, &held_, &before_);
}

HeldSignals::~HeldSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

bool HeldSignals::waiting() const {
  sigset_t pending{};
  sigpending(&pending);
  for (const int signal : kEndingSignals) {
    const bool ours = sigismember(&held_, signal) == 1 && sigismember(&before_, signal) == 0;
    if (ours && sigismember(&pending, signal) == 1) return true;
  }
  return false;
}

}  // namespace quillet

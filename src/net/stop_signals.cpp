// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/stop_signals.h"

#include <sys/signalfd.h>
#include <unistd.h>

namespace quillet {

namespace {

sigset_t stopSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  return signals;
}

}  // namespace

void holdStopSignals() {
  const sigset_t awaited = stopSignals();
  pthread_sigmask(SIG_BLOCK, &awaited, nullptr);
}

StopSignals::StopSignals() {
  const sigset_t awaited = stopSignals();
  pthread_sigmask(SIG_BLOCK, &awaited, &before_);
  descriptor_ = ::signalfd(-1, &awaited, SFD_CLOEXEC);
  notifier_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [this] { read(); });
}

StopSignals::~StopSignals() {
  notifier_.reset();
  ::close(descriptor_);
  pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

void StopSignals::read() {
  signalfd_siginfo signal{};
  if (::read(descriptor_, &signal, sizeof signal) != sizeof signal || received_ != 0) return;
  received_ = static_cast<int>(signal.ssi_signo);
  stop_.requestStop();
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSocketNotifier>
#include <csignal>
#include <memory>

#include "net/stop_token.h"

namespace quillet {

/// Keeps SIGINT and SIGTERM for the StopSignals to come. To be called before the application object
/// is made where that starts a thread, as one with a display does: it would take them.
void holdStopSignals();

/// Turns SIGINT and SIGTERM into a requested stop, as long as it lives. Made before any thread is
/// started, on the event-loop thread.
class StopSignals {
 public:
  StopSignals();
  ~StopSignals();
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;

  [[nodiscard]] StopToken token() const { return stop_.token(); }
  /// Readable from the moment a signal comes until the event loop takes it in: for waits that keep
  /// the event loop from running.
  [[nodiscard]] int descriptor() const { return descriptor_; }
  /// The signal that came first; 0 when none did.
  [[nodiscard]] int received() const { return received_; }

 private:
  void read();

  StopSource stop_;
  sigset_t before_{};
  int descriptor_ = -1;
  int received_ = 0;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace quillet

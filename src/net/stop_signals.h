// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <chrono>
#include <csignal>
#include <optional>
#include <thread>

#include "net/stop_token.h"
#include "system/descriptor.h"

namespace quillet {

/// Turns SIGINT and SIGTERM into a requested stop, as long as it lives. A second one ends the
/// process at once, whatever the event loop is busy with. Made on the event-loop thread, once at a
/// time.
class StopSignals {
 public:
  /// `longestEnd`: what the end may take from the first signal on; then the process ends with
  /// status 0 all the same. Absent means as long as it takes.
  explicit StopSignals(std::optional<std::chrono::milliseconds> longestEnd = {});
  ~StopSignals();
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;

  [[nodiscard]] StopToken token() const { return stop_.token(); }
  /// The signal that came first; 0 when none did.
  [[nodiscard]] int received() const { return received_; }

  /// The process ends for a reason of its own: what is left of `longestEnd` begins to run, unless
  /// it does already.
  void beginEnd() const;

 private:
  void note(int signal);
  void watch();

  std::optional<std::chrono::milliseconds> longestEnd_;
  StopSource stop_;
  int received_ = 0;
  QObject context_;  ///< what the thread posts to the event loop ends with it
  Descriptor reading_;
  Descriptor writing_;
  struct sigaction interruptBefore_{};
  struct sigaction terminateBefore_{};
  std::thread watcher_;
};

}  // namespace quillet

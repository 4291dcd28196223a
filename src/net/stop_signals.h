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
  /// With which status the process ends where its own end takes too long.
  enum class LateStatus {
    success,
    signal,  ///< 128 and the first signal, as a shell says it
  };

  /// `longestEnd`: what the end may take from the first signal on; then the process ends all the
  /// same. Absent means as long as it takes.
  explicit StopSignals(std::optional<std::chrono::milliseconds> longestEnd = {},
                       LateStatus lateStatus = LateStatus::success);
  ~StopSignals();
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;

  [[nodiscard]] StopToken token() const { return stop_.token(); }
  /// Readable from the moment a signal comes: for waits that keep the event loop from running.
  /// When it is, the event loop has the stop among its events.
  [[nodiscard]] int descriptor() const { return told_.reading.get(); }
  /// The signal that came first; 0 when none did.
  [[nodiscard]] int received() const { return signal_; }

  /// The process ends for a reason of its own: what is left of `longestEnd` begins to run, unless
  /// it does already.
  void beginEnd() const;

 private:
  struct Pipe {
    Descriptor reading;
    Descriptor writing;
  };

  [[nodiscard]] static Pipe makePipe();
  void note(int signal);
  void watch();

  std::optional<std::chrono::milliseconds> longestEnd_;
  LateStatus lateStatus_;
  StopSource stop_;
  int signal_ = 0;
  QObject context_;  ///< what the thread posts to the event loop ends with it
  Pipe received_;    ///< from the signals' handler to the thread
  Pipe told_;        ///< from the thread to who waits
  struct sigaction interruptBefore_{};
  struct sigaction terminateBefore_{};
  std::thread watcher_;
};

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <csignal>

namespace quillet {

/// Holds back the signals that end the process (Ctrl-C, SIGTERM, a closed terminal) as long as it
/// lives, so that what must be tidied up is; one that came meanwhile ends the process afterwards.
/// Signals that the process ignores are left alone. For the calling thread.
class HeldSignals {
 public:
  HeldSignals();
  ~HeldSignals();
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;

  /// Whether one of them has come: long work should stop.
  [[nodiscard]] bool waiting() const;

 private:
  sigset_t held_{};
  sigset_t before_{};
};

}  // namespace quillet

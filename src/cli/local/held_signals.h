// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <csignal>

namespace quillet {

/// Holds back the signals that end the process (Ctrl-C, SIGTERM, a closed terminal) as long as it
/// lives, so that what must be tidied up is; one that came meanwhile ends the process afterwards.
/// Signals that the process ignores are left alone. For all threads of the process, so that only
/// one may live at a time; others' handlers for these signals are put off like the usual end.
class HeldSignals {
 public:
  HeldSignals();
  ~HeldSignals();
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;

  /// Whether one of them has come: long work should stop.
  [[nodiscard]] bool waiting() const;

 private:
  static constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP};

  std::array<struct sigaction, kSignals.size()> before_{};
};

}  // namespace quillet

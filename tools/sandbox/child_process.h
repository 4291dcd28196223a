// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <csignal>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace quillet::sandbox {

/// Keeps SIGINT, SIGTERM and SIGCHLD from this thread and all that it starts later, so that they
/// can be waited for. Made before any other thread; gives the old mask back at its end.
class HeldSignals {
 public:
  HeldSignals();
  ~HeldSignals();
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;

  /// Until SIGINT or SIGTERM comes.
  void waitForEnd() const;

  [[nodiscard]] const sigset_t& before() const { return before_; }

 private:
  sigset_t before_{};
};

using Environment = std::vector<std::pair<std::string, std::string>>;

/// This process's environment with `added` in it and without anything that names a proxy, as
/// "NAME=value" lines.
[[nodiscard]] std::vector<std::string> childEnvironment(const Environment& added);

/// Runs a command with this process's standard streams and hands SIGINT and SIGTERM on to it.
/// Returns its status as a shell would: 128 and the signal for one that was killed, 127 for one
/// that is not found, 126 for one that cannot be started (with a line on standard error).
[[nodiscard]] int runChild(std::span<const std::string> command,
                           std::span<const std::string> environment, const HeldSignals& signals);

}  // namespace quillet::sandbox

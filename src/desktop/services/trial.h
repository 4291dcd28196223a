// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>

#include "system/descriptor.h"

namespace quillet {

/// How a trial has gone so far.
enum class TrialState { running, passed, failed };

/// Runs a function in a process of its own, to learn whether it comes to its end. Some of what the
/// libraries do with a session never returns, or ends the process, where the session is broken.
/// Made before any thread is started; the process is gone with this object.
class Trial {
 public:
  /// `attempt`: has nothing of this process's files but standard output and error, which lead
  /// nowhere. A crash counts as false.
  explicit Trial(const std::function<bool()>& attempt);
  Trial(Trial&& other) noexcept;
  ~Trial();

  /// Waits for its end for as long as that.
  [[nodiscard]] TrialState state(std::chrono::milliseconds patience);

  /// Can be read from once the trial has ended.
  [[nodiscard]] int descriptor() const { return answer_.get(); }

 private:
  void end();

  pid_t process_ = -1;
  Descriptor answer_;
  TrialState state_ = TrialState::running;
};

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <optional>
#include <string>

#include "cli/cli_error.h"
#include "cli/online/progress.h"
#include "cli/streams.h"

namespace quillet {

/// How long the next request has still to wait for the request budget; absent while none waits.
using BudgetWait = std::function<std::optional<std::chrono::milliseconds>()>;

/// One line on standard error for a person who waits, from the first second of work on. What the
/// command writes must go through streams(): it erases the line first, so that nothing is left.
class ProgressLine final : public ProgressSink {
 public:
  /// `width`: columns of the terminal; 0 where no line may be shown.
  ProgressLine(Clock& clock, Streams under, std::size_t width, BudgetWait budgetWait);
  ProgressLine(const ProgressLine&) = delete;

  void report(std::string activity) override;
  void countDown(std::string activity, Clock::Monotonic end) override;
  /// Nothing where no line may be shown.
  void announce(std::string_view sentence) override;

  /// The command's streams, valid as long as this line.
  [[nodiscard]] Streams streams();

  /// Keeps the line up to date until `stop` is requested, and then erases it.
  Task<> keepShowing(StopToken stop);

 private:
  /// A stream that erases the line before it writes.
  class Guarded final : public TextStream {
   public:
    Guarded(ProgressLine& line, TextStream& under) : line_(line), under_(under) {}
    void write(std::string_view text) override;

   private:
    ProgressLine& line_;
    TextStream& under_;
  };

  [[nodiscard]] std::string text() const;
  void draw();
  void erase();

  Clock& clock_;
  Streams under_;
  std::size_t width_;
  BudgetWait budgetWait_;
  Guarded out_;
  Guarded err_;
  std::string activity_;
  std::optional<Clock::Monotonic> end_;
  std::string drawn_;  // what the terminal shows; empty: nothing
};

/// Awaits the command while the line is kept up to date.
Task<ExitStatus> showProgress(ProgressLine* line, Task<ExitStatus> command);

}  // namespace quillet

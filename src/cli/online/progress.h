// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "net/clock.h"

namespace quillet {

/// Who shows what a command is doing.
class ProgressSink {
 public:
  virtual ~ProgressSink() = default;
  virtual void report(std::string activity) = 0;
  virtual void countDown(std::string activity, Clock::Monotonic end) = 0;
  virtual void announce(std::string_view sentence) = 0;
};

/// Where a command says what it is doing, for people who wait. Copies speak to the same sink; one
/// made by default speaks to nobody.
class Progress {
 public:
  Progress() = default;
  /// `sink` outlives every copy.
  explicit Progress(ProgressSink& sink) : sink_(&sink) {}

  /// A short clause that replaces the one before: "Reading reviews: 3 pages".
  void report(std::string activity) const {
    if (sink_ != nullptr) sink_->report(std::move(activity));
  }

  /// Likewise, shown with the seconds that are left until `end`.
  void countDown(std::string activity, Clock::Monotonic end) const {
    if (sink_ != nullptr) sink_->countDown(std::move(activity), end);
  }

  /// A sentence that stays: what a person should know before a long wait.
  void announce(std::string_view sentence) const {
    if (sink_ != nullptr) sink_->announce(sentence);
  }

 private:
  ProgressSink* sink_ = nullptr;
};

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <deque>
#include <mutex>
#include <string>
#include <vector>

#include "base/dates.h"
#include "base/log_sink.h"

namespace quillet {

/// The last lines of the log, for who wants to see what went on. Any thread may add to it.
class RecentLog {
 public:
  struct Line {
    Instant at;
    std::string text;
  };

  static constexpr std::size_t kMostLines = 200;
  static constexpr std::size_t kLongestLine = 500;  ///< bytes; what is longer is cut

  void add(const std::string& text, Instant at);
  [[nodiscard]] std::vector<Line> lines() const;

  /// A sink that keeps each line, and hands it on unless `next` is empty. This outlives it.
  [[nodiscard]] LogSink before(LogSink next);

 private:
  mutable std::mutex mutex_;
  std::deque<Line> lines_;
};

/// A line of the log without what may tell which apps it is about: of an address its server alone,
/// of a failure its first words. What is said of the start and of the event loop stays as it is.
[[nodiscard]] std::string withoutApps(const std::string& line);

}  // namespace quillet

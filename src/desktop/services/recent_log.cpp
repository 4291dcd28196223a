// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/recent_log.h"

#include <chrono>
#include <utility>

namespace quillet {

void RecentLog::add(const std::string& text, Instant at) {
  const std::scoped_lock lock(mutex_);
  lines_.push_back({at, text.substr(0, kLongestLine)});
  if (lines_.size() > kMostLines) lines_.pop_front();
}

std::vector<RecentLog::Line> RecentLog::lines() const {
  const std::scoped_lock lock(mutex_);
  return {lines_.begin(), lines_.end()};
}

LogSink RecentLog::before(LogSink next) {
  return [this, next = std::move(next)](const std::string& line) {
    add(line, std::chrono::floor<Instant::duration>(std::chrono::system_clock::now()));
    if (next) next(line);
  };
}

std::string withoutApps(const std::string& line) {
  if (line.starts_with("start ") || line.starts_with("loop ")) return line;
  if (!line.starts_with("net ")) return line.substr(0, line.find(':') + 1) + " …";
  const std::size_t scheme = line.find("://");
  if (scheme == std::string::npos) return "net …";
  const bool isFile = line.substr(0, scheme).ends_with("file");
  const std::size_t path = isFile ? scheme + 3 : line.find_first_of("/?# ", scheme + 3);
  return path == std::string::npos ? line : line.substr(0, path) + "/…";
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/timed_lines.h"

#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

#include "base/dates.h"

namespace quillet {

namespace {

/// systemd names the socket that leads to the journal. The variable reaches all that a service
/// starts, also what has its standard error elsewhere.
bool isJournal(int descriptor, const Environment& environment) {
  struct stat status{};
  return ::fstat(descriptor, &status) == 0 &&
         environment.get("JOURNAL_STREAM") == fmt::format("{}:{}", status.st_dev, status.st_ino);
}

}  // namespace

bool lacksTimes(int descriptor, const Environment& environment) {
  return ::isatty(descriptor) == 0 && !isJournal(descriptor, environment);
}

std::function<void(const std::string& text)> timedLines(
    std::function<void(const std::string& text)> write, const Clock& clock) {
  return [write = std::move(write), &clock](const std::string& text) {
    const std::string time = formatInternetDate(clock.now());
    std::string timed;
    for (std::size_t start = 0; start < text.size();) {
      const std::size_t end = std::min(text.find('\n', start), text.size() - 1) + 1;
      timed += fmt::format("{} {}", time, text.substr(start, end - start));
      start = end;
    }
    write(timed);
  };
}

}  // namespace quillet

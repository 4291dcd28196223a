// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/round_pace.h"

#include <fmt/format.h>

namespace quillet {

namespace {

using std::chrono::minutes;

minutes timeOf(std::int64_t lookups, const RoundPace& pace) {
  return minutes((lookups + pace.requestsPerMinute - 1) / pace.requestsPerMinute);
}

/// "1,234".
std::string grouped(std::int64_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t end = digits.size(); end > 3; end -= 3) digits.insert(end - 3, ",");
  return digits;
}

}  // namespace

std::int64_t addressesFor(std::int64_t lookups, const RoundPace& pace) {
  const std::int64_t period = 4 * minutes(pace.every).count();
  const std::int64_t needed = 5 * timeOf(lookups, pace).count();
  return (needed + period - 1) / period;
}

std::string beginningOf(const Round& round, const RoundPace& pace) {
  return fmt::format("Round {}: {} lookups; {} at {} requests a minute.", round.id,
                     grouped(round.lookups), spanText(timeOf(round.lookups, pace)),
                     pace.requestsPerMinute);
}

std::optional<std::string> shortageOf(const Round& round, const RoundPace& pace) {
  const minutes time = timeOf(round.lookups, pace);
  if (pace.every == pace.every.zero() || time <= pace.every) return {};
  return fmt::format(
      "{} lookups take {} at {} a minute, longer than the {} h of --every: {} addresses would do "
      "it.",
      grouped(round.lookups), spanText(time), pace.requestsPerMinute, pace.every.count(),
      addressesFor(round.lookups, pace));
}

std::string progressOf(const Round& round) {
  if (!round.preparation)
    return fmt::format("{} of {} lookups are done", round.done, round.lookups);
  return fmt::format("{} of {} charts and searches are asked; {} apps found",
                     round.preparation->done, round.preparation->questions,
                     grouped(round.preparation->apps));
}

std::string spanText(std::chrono::milliseconds span) {
  using namespace std::chrono_literals;
  if (span >= 48h) return fmt::format("{} d {} h", span / 24h, span % 24h / 1h);
  if (span < 2h) return fmt::format("{} min", span / 1min);
  const auto rest = span % 1h / 1min;
  return rest == 0 ? fmt::format("{} h", span / 1h) : fmt::format("{} h {} min", span / 1h, rest);
}

}  // namespace quillet

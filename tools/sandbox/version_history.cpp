// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/version_history.h"

#include "base/numbers.h"
#include "base/text.h"
#include "sandbox/words.h"

namespace quillet::sandbox {

namespace {

constexpr std::size_t kLongestHistory = 25;  // what the store's version list shows at most

Instant onDay(std::chrono::sys_days today, int daysAgo, Random& random) {
  // A day that is over: nothing may be newer than the moment in which it is asked for.
  const std::chrono::seconds time(random.between(7 * 3600, 23 * 3600));
  return today - std::chrono::days(std::max(daysAgo, 1)) + time;
}

/// "3.4.0" is written "3.4", "3.0.0" is "3.0".
std::string shortened(const std::vector<std::int64_t>& parts) {
  std::size_t size = parts.size();
  while (size > 2 && parts[size - 1] == 0) --size;
  std::string text = std::to_string(parts[0]);
  for (std::size_t i = 1; i < size; ++i) text += fmt::format(".{}", parts[i]);
  return text;
}

}  // namespace

std::string versionBefore(std::string_view version) {
  std::vector<std::int64_t> parts;
  for (const std::string_view piece : split(version, '.')) {
    const auto number = parseWhole(piece);
    if (!number) return {};
    parts.push_back(*number);
  }
  std::size_t last = parts.size();
  while (last > 0 && parts[last - 1] == 0) --last;
  const bool isFirst = last == 0 || (last == 1 && parts[0] == 1) || version == "0.1";
  if (isFirst) return {};
  --parts[last - 1];
  if (last == 1) {
    parts.resize(2);
    parts[1] = 9;
  }
  return shortened(parts);
}

std::vector<SampleVersion> versionHistory(const HistoryPlan& plan, std::chrono::sys_days today,
                                          Random random) {
  std::vector<SampleVersion> versions;
  std::string number = plan.newest;
  int day = plan.updated;
  while (!number.empty() && versions.size() < kLongestHistory &&
         (versions.empty() || day < plan.first)) {
    versions.push_back({number, onDay(today, day, random), random.pick(words().releaseNotes)});
    number = versionBefore(number);
    day += std::max(plan.every * random.between(50, 150) / 100, 1);
  }
  if (!plan.newestNotes.empty()) versions.front().notes = plan.newestNotes;
  return versions;
}

}  // namespace quillet::sandbox

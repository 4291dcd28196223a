// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/maintenance_health.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "system/settings_keys.h"

namespace quillet {

namespace {

using Days = std::chrono::duration<double, std::chrono::days::period>;

// 30.44 days. Whoever compares verdicts over time relies on it to the second.
constexpr std::chrono::seconds kMonth{2'630'016};
constexpr std::chrono::seconds kYear{31'536'000};

MaintenanceHealth activeHealth(std::span<const VersionEntry> history, Instant now) {
  const auto count = std::count_if(history.begin(), history.end(), [now](const VersionEntry& e) {
    return e.releaseDate >= now - kYear;
  });
  const auto listed = static_cast<std::ptrdiff_t>(history.size());
  constexpr auto kCut = static_cast<std::ptrdiff_t>(kLongestHistory);
  MaintenanceHealth health;
  health.level = MaintenanceLevel::active;
  health.updatesLastYear = std::max<std::int64_t>(count, 1);
  health.mayBeMore = count >= kCut && count == listed;
  return health;
}

std::string counted(std::int64_t count, std::string_view noun) {
  return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

/// Rounded down to whole years from the first year on.
std::string roughDuration(std::int64_t months) {
  return months < 12 ? counted(months, "month") : counted(months / 12, "year");
}

}  // namespace

MaintenanceThresholds readMaintenanceThresholds(const Settings& settings) {
  // A default has to give way, too: slowing after 20 months leaves no room for stale after 12.
  const auto atLeast = [&](const WholeSetting& setting, std::int64_t lowest) {
    return std::max(readSetting(settings, setting), lowest);
  };
  MaintenanceThresholds thresholds;
  thresholds.slowing = readSetting(settings, kSlowingAfterMonths);
  thresholds.stale = atLeast(kStaleAfterMonths, thresholds.slowing + 1);
  thresholds.abandoned = atLeast(kAbandonedAfterMonths, thresholds.stale + 1);
  return thresholds;
}

std::optional<Instant> lastRelease(std::span<const VersionEntry> history,
                                   std::optional<Instant> fallback) {
  if (history.empty()) return fallback;
  return std::ranges::max(history, {}, &VersionEntry::releaseDate).releaseDate;
}

MaintenanceHealth maintenanceHealth(std::span<const VersionEntry> history,
                                    std::optional<Instant> fallback,
                                    const MaintenanceThresholds& thresholds, Instant now) {
  const auto last = lastRelease(history, fallback);
  if (!last) return {};
  const std::int64_t months = (now - *last) / kMonth;
  if (months < thresholds.slowing) return activeHealth(history, now);
  MaintenanceHealth health;
  health.monthsSinceUpdate = months;
  health.level = months >= thresholds.abandoned ? MaintenanceLevel::abandoned
                 : months >= thresholds.stale   ? MaintenanceLevel::stale
                                                : MaintenanceLevel::slowing;
  return health;
}

std::string maintenanceSummary(const MaintenanceHealth& health) {
  const std::int64_t months = health.monthsSinceUpdate.value_or(0);
  const std::int64_t updates = health.updatesLastYear.value_or(1);
  switch (health.level) {
    case MaintenanceLevel::active:
      return fmt::format("{}{} update{} in the last year", updates, health.mayBeMore ? "+" : "",
                         updates == 1 ? "" : "s");
    case MaintenanceLevel::slowing: return fmt::format("Last updated {} months ago", months);
    case MaintenanceLevel::stale: return fmt::format("No update in {} months", months);
    case MaintenanceLevel::abandoned: return "No update in over " + roughDuration(months);
    case MaintenanceLevel::unknown: break;
  }
  return "Update history unavailable";
}

std::optional<std::int64_t> medianDaysBetweenReleases(std::span<const VersionEntry> history) {
  if (history.size() < 2) return {};
  std::vector<Instant> dates;
  for (const VersionEntry& entry : history) dates.push_back(entry.releaseDate);
  std::ranges::sort(dates);
  std::vector<double> gaps;
  for (std::size_t i = 1; i < dates.size(); ++i) {
    gaps.push_back(Days(dates[i] - dates[i - 1]).count());
  }
  std::ranges::sort(gaps);
  const std::size_t middle = gaps.size() / 2;
  const double median = gaps.size() % 2 == 1 ? gaps[middle] : (gaps[middle - 1] + gaps[middle]) / 2;
  return std::llround(median);
}

std::int64_t wholeDaysBetween(Instant earlier, Instant later) {
  return std::max<std::int64_t>((later - earlier) / std::chrono::days(1), 0);
}

}  // namespace quillet

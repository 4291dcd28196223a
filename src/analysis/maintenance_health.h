// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "base/dates.h"
#include "base/enum_table.h"
#include "store/records/app_enrichment.h"
#include "system/settings.h"

namespace quillet {

enum class MaintenanceLevel { active, slowing, stale, abandoned, unknown };

// Scripts read these; never change.
inline constexpr EnumTable<MaintenanceLevel, 5> kMaintenanceWords{{
    {MaintenanceLevel::active, "active"},
    {MaintenanceLevel::slowing, "slowing"},
    {MaintenanceLevel::stale, "stale"},
    {MaintenanceLevel::abandoned, "abandoned"},
    {MaintenanceLevel::unknown, "unknown"},
}};
static_assert(isComplete(kMaintenanceWords, MaintenanceLevel::unknown));

/// From how many whole months after its last release an app is called slowing, stale, abandoned.
/// They strictly increase.
struct MaintenanceThresholds {
  std::int64_t slowing = 6;
  std::int64_t stale = 12;
  std::int64_t abandoned = 24;

  friend bool operator==(const MaintenanceThresholds&, const MaintenanceThresholds&) = default;
};

/// The user's thresholds, each moved where it must be to keep the three increasing.
[[nodiscard]] MaintenanceThresholds readMaintenanceThresholds(const Settings& settings);

/// How actively an app is maintained, judged from its releases.
struct MaintenanceHealth {
  MaintenanceLevel level = MaintenanceLevel::unknown;
  std::optional<std::int64_t> updatesLastYear;  ///< of an active app alone; at least 1
  bool mayBeMore = false;  ///< whether the history was cut before the year it counts was over
  std::optional<std::int64_t> monthsSinceUpdate;  ///< of a slowing, stale or abandoned app alone

  friend bool operator==(const MaintenanceHealth&, const MaintenanceHealth&) = default;
};

/// The store's version list holds no more releases than this.
inline constexpr std::size_t kLongestHistory = 25;

/// `fallback` (the date of the current version in the app's record) counts where the history is
/// empty; absent where neither says anything.
[[nodiscard]] std::optional<Instant> lastRelease(std::span<const VersionEntry> history,
                                                 std::optional<Instant> fallback);

[[nodiscard]] MaintenanceHealth maintenanceHealth(std::span<const VersionEntry> history,
                                                  std::optional<Instant> fallback,
                                                  const MaintenanceThresholds& thresholds,
                                                  Instant now);

/// The verdict in one line: "25+ updates in the last year", "No update in over 2 years".
[[nodiscard]] std::string maintenanceSummary(const MaintenanceHealth& health);

/// Absent for fewer than two releases. The order of the entries does not matter.
[[nodiscard]] std::optional<std::int64_t> medianDaysBetweenReleases(
    std::span<const VersionEntry> history);

/// Whole days from `earlier` to `later`, truncated; 0 where that is no time forward.
[[nodiscard]] std::int64_t wholeDaysBetween(Instant earlier, Instant later);

}  // namespace quillet

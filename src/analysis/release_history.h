// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "analysis/maintenance_health.h"
#include "store/records/app_enrichment.h"

namespace quillet {

/// An app's releases and what they say of its upkeep.
struct ReleaseHistory {
  std::vector<VersionEntry> releases;  ///< all that the store returned, newest first
  /// Of each release, the days since the one before it, as their dates tell it: they have no hours.
  std::vector<std::optional<std::int64_t>> gaps;
  bool capped = false;  ///< whether those are as many as the store ever returns
  MaintenanceHealth health;
  std::optional<Instant> lastRelease;
  std::optional<std::int64_t> daysSinceLastRelease;
  std::optional<std::int64_t> medianDaysBetweenReleases;
};

/// What a verdict is formed with.
struct MaintenanceView {
  MaintenanceThresholds thresholds;
  Instant now;
};

/// `fallback`: see lastRelease().
[[nodiscard]] ReleaseHistory releaseHistory(std::vector<VersionEntry> releases,
                                            std::optional<Instant> fallback,
                                            const MaintenanceView& view);

}  // namespace quillet

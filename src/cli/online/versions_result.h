// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/maintenance_health.h"
#include "cli/online/app/version_entry.h"
#include "store/records/itunes_app.h"

namespace quillet {

/// An app's releases, as far as they are listed, and what they say of its upkeep.
struct CLIVersionsPayload {
  std::int64_t trackId = 0;
  std::string name;
  std::optional<std::string> seller;  ///< for people; not in JSON
  Platform platform = Platform::mac;
  std::string country;
  std::size_t total = 0;  ///< releases that the store returned
  bool capped = false;    ///< whether those are as many as it ever returns
  MaintenanceHealth health;
  std::optional<Instant> lastRelease;  ///< for people; not in JSON
  std::optional<std::int64_t> daysSinceLastRelease;
  std::optional<std::int64_t> medianDaysBetweenReleases;
  std::vector<VersionEntry> versions;  ///< newest first
  /// Of each listed version, the days since the release before it; for people.
  std::vector<std::optional<std::int64_t>> gaps;
};

/// What a verdict is formed with.
struct MaintenanceView {
  MaintenanceThresholds thresholds;
  Instant now;
};

/// The first `limit` of the releases, judged by all of them. `fallback`: see lastRelease().
[[nodiscard]] CLIVersionsPayload versionsOf(const std::vector<VersionEntry>& history,
                                            std::optional<Instant> fallback, std::size_t limit,
                                            const MaintenanceView& view);

[[nodiscard]] std::string renderVersionsJson(const CLIVersionsPayload& payload);

}  // namespace quillet

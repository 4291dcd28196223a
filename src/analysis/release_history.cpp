// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/release_history.h"

namespace quillet {

namespace {

std::int64_t daysBetween(Instant earlier, Instant later) {
  using std::chrono::days;
  return (std::chrono::floor<days>(later) - std::chrono::floor<days>(earlier)).count();
}

std::vector<std::optional<std::int64_t>> gapsOf(const std::vector<VersionEntry>& releases) {
  std::vector<std::optional<std::int64_t>> gaps(releases.size());
  for (std::size_t i = 0; i + 1 < releases.size(); ++i) {
    gaps[i] = daysBetween(releases[i + 1].releaseDate, releases[i].releaseDate);
  }
  return gaps;
}

}  // namespace

ReleaseHistory releaseHistory(std::vector<VersionEntry> releases, std::optional<Instant> fallback,
                              const MaintenanceView& view) {
  ReleaseHistory history;
  history.gaps = gapsOf(releases);
  history.capped = releases.size() >= kLongestHistory;
  history.health = maintenanceHealth(releases, fallback, view.thresholds, view.now);
  history.lastRelease = lastRelease(releases, fallback);
  if (history.lastRelease) {
    history.daysSinceLastRelease = wholeDaysBetween(*history.lastRelease, view.now);
  }
  history.medianDaysBetweenReleases = medianDaysBetweenReleases(releases);
  history.releases = std::move(releases);
  return history;
}

}  // namespace quillet

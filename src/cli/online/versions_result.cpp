// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/versions_result.h"

namespace quillet {

namespace {

/// As the dates beside them tell it, which have no hours.
std::int64_t daysBetween(Instant earlier, Instant later) {
  using std::chrono::days;
  return (std::chrono::floor<days>(later) - std::chrono::floor<days>(earlier)).count();
}

void writeMaintenance(JsonWriter& writer, const CLIVersionsPayload& payload) {
  const MaintenanceHealth& health = payload.health;
  writer.beginObject();
  writer.member("daysSinceLastRelease", payload.daysSinceLastRelease);
  writer.member("medianDaysBetweenReleases", payload.medianDaysBetweenReleases);
  writer.member("monthsSinceUpdate", health.monthsSinceUpdate);
  writer.member("status", textOf(kMaintenanceWords, health.level));
  writer.member("summary", maintenanceSummary(health));
  writer.member("updatesLastYear", health.updatesLastYear);
  writer.endObject();
}

}  // namespace

CLIVersionsPayload versionsOf(const std::vector<VersionEntry>& history,
                              std::optional<Instant> fallback, std::size_t limit,
                              const MaintenanceView& view) {
  CLIVersionsPayload payload;
  payload.total = history.size();
  payload.capped = history.size() >= kLongestHistory;
  payload.health = maintenanceHealth(history, fallback, view.thresholds, view.now);
  payload.lastRelease = lastRelease(history, fallback);
  if (payload.lastRelease) {
    payload.daysSinceLastRelease = wholeDaysBetween(*payload.lastRelease, view.now);
  }
  payload.medianDaysBetweenReleases = medianDaysBetweenReleases(history);
  for (std::size_t i = 0; i < std::min(limit, history.size()); ++i) {
    payload.versions.push_back(history[i]);
    payload.gaps.emplace_back();
    if (i + 1 == history.size()) break;
    payload.gaps.back() = daysBetween(history[i + 1].releaseDate, history[i].releaseDate);
  }
  return payload;
}

std::string renderVersionsJson(const CLIVersionsPayload& payload) {
  return jsonObject([&](JsonWriter& writer) {
    writer.member("capped", payload.capped);
    writer.member("count", payload.versions.size());
    writer.member("country", payload.country);
    writer.key("maintenance");
    writeMaintenance(writer, payload);
    writer.member("name", payload.name);
    writer.member("platform", textOf(kPlatformWords, payload.platform));
    writer.member("total", payload.total);
    writer.member("trackId", payload.trackId);
    writer.list("versions", payload.versions, writeVersion);
  });
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/app/versions_result.h"

#include "cli/online/app/version_entry.h"

namespace quillet {

namespace {

void writeMaintenance(JsonWriter& writer, const ReleaseHistory& history) {
  const MaintenanceHealth& health = history.health;
  writer.beginObject();
  writer.member("daysSinceLastRelease", history.daysSinceLastRelease);
  writer.member("medianDaysBetweenReleases", history.medianDaysBetweenReleases);
  writer.member("monthsSinceUpdate", health.monthsSinceUpdate);
  writer.member("status", textOf(kMaintenanceWords, health.level));
  writer.member("summary", maintenanceSummary(health));
  writer.member("updatesLastYear", health.updatesLastYear);
  writer.endObject();
}

}  // namespace

std::string renderVersionsJson(const CLIVersionsPayload& payload) {
  return jsonObject([&](JsonWriter& writer) {
    writer.member("capped", payload.history.capped);
    writer.member("count", payload.listed().size());
    writer.member("country", payload.country);
    writer.key("maintenance");
    writeMaintenance(writer, payload.history);
    writer.member("name", payload.name);
    writer.member("platform", textOf(kPlatformWords, payload.platform));
    writer.member("total", payload.history.releases.size());
    writer.member("trackId", payload.trackId);
    writer.list("versions", payload.listed(), writeVersion);
  });
}

}  // namespace quillet

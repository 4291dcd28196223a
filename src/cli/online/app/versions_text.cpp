// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/app/versions_text.h"

#include <fmt/format.h>

#include "analysis/maintenance_texts.h"
#include "base/text.h"
#include "cli/online/app/info_text.h"
#include "cli/online/app/version_entry.h"
#include "cli/page.h"

namespace quillet {

namespace {

std::string daysText(std::int64_t days) {
  return fmt::format("{} day{}", days, days == 1 ? "" : "s");
}

Ink inkOf(MaintenanceLevel level) {
  switch (level) {
    case MaintenanceLevel::active: return Ink::green;
    case MaintenanceLevel::unknown: return Ink::dim;
    default: return Ink::yellow;
  }
}

std::string verdictText(const MaintenanceHealth& health) {
  const std::string summary = maintenanceSummary(health);
  if (health.level == MaintenanceLevel::unknown) return summary;
  return fmt::format("{} ({})", maintenanceTitle(health.level), summary);
}

void addVerdict(Page& page, const ReleaseHistory& history) {
  page.fact("Maintenance", verdictText(history.health), inkOf(history.health.level));
  if (history.lastRelease) {
    page.fact("Last release", fmt::format("{} ago ({})", daysText(*history.daysSinceLastRelease),
                                          formatDay(*history.lastRelease)));
  }
  if (const auto median = history.medianDaysBetweenReleases) {
    page.fact("Usual gap", daysText(*median) + " between releases");
  }
  std::string count = std::to_string(history.releases.size());
  if (history.capped) count += " returned (Apple's limit; older ones exist)";
  page.fact("Releases", count);
}

const std::vector<TableColumn>& releaseColumns() {
  static const std::vector<TableColumn> kColumns{
      {.heading = "Version", .ink = Ink::bold},
      {.heading = "Released"},
      {.heading = "After", .align = Align::right, .leavesAs = 2},
      {.heading = "Notes", .ink = Ink::dim, .smallest = 16, .leavesAs = 1},
  };
  return kColumns;
}

void addReleases(Page& page, const CLIVersionsPayload& payload) {
  const std::span<const VersionEntry> listed = payload.listed();
  if (listed.empty()) return;
  std::vector<TableRow> rows;
  for (std::size_t i = 0; i < listed.size(); ++i) {
    const VersionEntry& entry = listed[i];
    const auto gap = payload.history.gaps[i];
    rows.push_back({printable(entry.version), formatDay(entry.releaseDate),
                    gap ? daysText(*gap) : "", firstLineOf(entry.releaseNotes)});
  }
  page.startBlock();
  page.lines(renderTable(releaseColumns(), rows, page.style()));
  const std::size_t left = payload.history.releases.size() - listed.size();
  if (left > 0) page.note(fmt::format("and {} earlier; --limit shows more", left));
}

}  // namespace

std::string renderVersionsText(const CLIVersionsPayload& payload, const LocaleFormats& formats,
                               const TextStyle& style) {
  Page page(style, formats);
  page.heading(printable(payload.name), shown(payload.seller));
  page.line(fmt::format("Releases for {}, {} storefront", platformName(payload.platform),
                        payload.country));
  page.startBlock();
  addVerdict(page, payload.history);
  addReleases(page, payload);
  return page.take();
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/maintenance_texts.h"

#include <fmt/format.h>

namespace quillet {

namespace {

constexpr EnumTable<MaintenanceLevel, 5> kTitles{{
    {MaintenanceLevel::active, "Actively updated"},
    {MaintenanceLevel::slowing, "Slowing down"},
    {MaintenanceLevel::stale, "Stale"},
    {MaintenanceLevel::abandoned, "Likely abandoned"},
    {MaintenanceLevel::unknown, "Unknown"},
}};
static_assert(isComplete(kTitles, MaintenanceLevel::unknown));

bool isWholeYears(std::int64_t months) { return months >= 12 && months % 12 == 0; }

/// "6 months", "1 year", "18 months".
std::string duration(std::int64_t months) {
  const bool years = isWholeYears(months);
  const std::int64_t count = years ? months / 12 : months;
  return fmt::format("{} {}{}", count, years ? "year" : "month", count == 1 ? "" : "s");
}

/// "6–12 months", "1–2 years". Both ends are never 1, for the second is the larger.
std::string range(std::int64_t from, std::int64_t to) {
  const bool years = isWholeYears(from) && isWholeYears(to);
  return years ? fmt::format("{}–{} years", from / 12, to / 12)
               : fmt::format("{}–{} months", from, to);
}

/// "in the last year", not "in the last 1 year".
std::string withoutOne(std::string text) { return text.starts_with("1 ") ? text.substr(2) : text; }

}  // namespace

std::string_view maintenanceTitle(MaintenanceLevel level) { return textOf(kTitles, level); }

std::string maintenanceExplanation(MaintenanceLevel level,
                                   const MaintenanceThresholds& thresholds) {
  const auto& [slowing, stale, abandoned] = thresholds;
  switch (level) {
    case MaintenanceLevel::active: return "Updated in the last " + withoutOne(duration(slowing));
    case MaintenanceLevel::slowing: return range(slowing, stale) + " since an update";
    case MaintenanceLevel::stale: return range(stale, abandoned) + " since an update";
    case MaintenanceLevel::abandoned: return "Over " + duration(abandoned) + " since an update";
    case MaintenanceLevel::unknown: break;
  }
  return {};
}

std::string maintenanceAdvice(MaintenanceLevel level, const MaintenanceThresholds& thresholds) {
  switch (level) {
    case MaintenanceLevel::active:
      return fmt::format(
          "The developer is shipping updates regularly. Apps updated within the last {} are almost "
          "always still supported, so bugs and compatibility issues are likely to get fixed.",
          duration(thresholds.slowing));
    case MaintenanceLevel::slowing:
      return "Updates have paused, but not alarmingly. Small, finished apps often go quiet for a "
             "while — this is a nudge to check the reviews before buying, not a warning.";
    case MaintenanceLevel::stale:
      return fmt::format(
          "There's been no update in over {}. The app may still work fine, but it hasn't been "
          "adapted to recent macOS or iOS releases, and support may be slow.",
          duration(thresholds.stale));
    case MaintenanceLevel::abandoned:
      return fmt::format(
          "Nothing has shipped in more than {}. The developer has likely moved on, so don't expect "
          "fixes — and be cautious if the app relies on an online service or system features that "
          "change.",
          duration(thresholds.abandoned));
    case MaintenanceLevel::unknown: break;
  }
  return "Quillet couldn't load this app's release history, so there's nothing to judge. It "
         "usually "
         "means the App Store didn't return version data for this storefront.";
}

}  // namespace quillet

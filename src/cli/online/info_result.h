// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/monetization.h"
#include "cli/online/app_summary.h"
#include "cli/online/purchase_summary.h"
#include "cli/online/version_entry.h"
#include "store/records/app_enrichment.h"
#include "store/records/platform.h"
#include "system/locale_formats.h"

namespace quillet {

/// Everything known about one app's build for a platform, in one storefront. What is not known is
/// absent; an empty list is known to be empty.
struct CLIAppDetail {
  CLIAppSummary app;
  std::string country;
  Platform platform = Platform::mac;
  std::optional<std::string> description;
  std::optional<std::string> releaseNotes;
  std::optional<std::string> architecture;  ///< "Apple silicon and Intel"; of a Mac build
  std::optional<std::string> requirements;
  std::optional<std::vector<std::string>> deviceFamilies;
  std::optional<std::string> editorialBadge;
  std::optional<std::string> tagline;
  std::optional<ChartPosition> chartPosition;
  std::optional<std::vector<std::int64_t>> ratingHistogram;  ///< from one star to five
  std::optional<std::vector<CLIPurchase>> inAppPurchases;
  std::optional<std::vector<VersionEntry>> recentVersions;      ///< newest first
  MonetizationModel monetization = MonetizationModel::unknown;  ///< for people; not in JSON
};

/// Joins a record with what the catalog says of its build for `platform`; an empty enrichment says
/// nothing. Where the record describes another build (an ID that a Mac and an iOS app share), what
/// belongs to a build (version, dates, size, requirements, ratings) comes from the catalog alone.
[[nodiscard]] CLIAppDetail detailOf(ITunesApp app, Platform platform, std::string country,
                                    AppEnrichment enrichment, const LocaleFormats& formats);

[[nodiscard]] std::string renderInfoJson(const CLIAppDetail& detail);

}  // namespace quillet

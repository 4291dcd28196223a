// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/described_app.h"
#include "cli/online/app/app_summary.h"
#include "cli/online/app/purchase_summary.h"
#include "cli/online/app/version_entry.h"
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
  std::optional<std::vector<VersionEntry>> recentVersions;  ///< newest first

  // For people; not in JSON.
  MonetizationModel monetization = MonetizationModel::unknown;
  bool isCatalogRead = false;  ///< else an unknown rating is no sign that nobody rated
};

[[nodiscard]] CLIAppDetail detailOf(const DescribedApp& described, std::string country,
                                    const LocaleFormats& formats);

[[nodiscard]] std::string renderInfoJson(const CLIAppDetail& detail);

}  // namespace quillet

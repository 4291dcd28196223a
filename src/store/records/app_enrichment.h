// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/dates.h"
#include "store/records/app_review.h"
#include "store/records/in_app_purchase.h"

namespace quillet {

/// One release of an app.
struct VersionEntry {
  std::string version;  ///< empty where the store did not say
  Instant releaseDate;
  std::optional<std::string> releaseNotes;

  friend bool operator==(const VersionEntry&, const VersionEntry&) = default;
};

/// An app's ratings in one storefront.
struct AppRating {
  std::optional<double> value;  ///< mean, 0 to 5
  std::optional<std::int64_t> count;
  std::vector<std::int64_t> histogram;  ///< five counts, from one star to five, or none

  friend bool operator==(const AppRating&, const AppRating&) = default;
};

/// An app's place in a top chart.
struct ChartPosition {
  std::string chart;      ///< the chart's label; empty where the store did not say
  std::string genreName;  ///< likewise
  std::int64_t position = 1;
  std::optional<std::string> chartURL;  ///< a web address

  friend bool operator==(const ChartPosition&, const ChartPosition&) = default;
};

/// What one platform's build of an app needs and supports. Absent means that the store did not say.
struct PlatformInfo {
  std::optional<std::string> requirements;  ///< running text
  std::vector<std::string> deviceFamilies;
  std::optional<bool> runsOnAppleSilicon;
  std::optional<bool> runsOnIntel;
  std::optional<bool> requiresRosetta;
  std::optional<std::string> minimumMacOSVersion;
  std::optional<bool> isGameCenterEnabled;
  std::optional<bool> supportsGameController;
  std::optional<bool> hasSafariExtension;
  std::optional<bool> isSiriSupported;
  std::optional<bool> isAppleWatchSupported;
  std::optional<bool> isXROSCompatible;

  friend bool operator==(const PlatformInfo&, const PlatformInfo&) = default;
};

/// What the catalog says of an app's Mac build when it is asked for many apps at once.
struct PlatformFacts {
  std::optional<PlatformInfo> platform;
  std::optional<AppRating> rating;

  friend bool operator==(const PlatformFacts&, const PlatformFacts&) = default;
};

/// What the catalog knows of one app in one storefront on one platform, beyond its app record.
struct AppEnrichment {
  std::vector<VersionEntry> versions;  ///< newest first
  std::vector<AppReview> reviews;      ///< the first page only
  std::vector<InAppPurchase> inAppPurchases;
  std::optional<AppRating> rating;
  std::optional<std::string> editorialBadge;
  std::optional<std::string> tagline;
  std::vector<std::string> editorialStoryIds;
  std::optional<PlatformInfo> platform;
  std::optional<ChartPosition> chartPosition;

  friend bool operator==(const AppEnrichment&, const AppEnrichment&) = default;
};

}  // namespace quillet

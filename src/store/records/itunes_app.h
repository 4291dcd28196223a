// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"
#include "store/records/inside_cost.h"
#include "store/records/platform.h"

namespace quillet {

/// One store app as Apple's search service describes it. Field names are the JSON's keys. Absent
/// means that the source did not say: never 0, never "free".
struct ITunesApp {
  std::int64_t trackId = 0;
  std::string trackName;
  std::optional<std::string> bundleId;
  std::optional<std::string> sellerName;
  std::optional<std::string> artistName;
  std::optional<std::int64_t> artistId;
  std::optional<std::string> kind;
  std::optional<double> price;  ///< in the storefront's currency
  std::optional<std::string> formattedPrice;
  std::optional<std::string> currency;  ///< ISO 4217
  std::optional<double> averageUserRating;
  std::optional<std::int64_t> userRatingCount;
  std::optional<std::string> version;
  std::optional<Instant> releaseDate;
  std::optional<Instant> currentVersionReleaseDate;
  std::optional<std::string> releaseNotes;
  std::optional<std::string> description;
  std::optional<std::string> primaryGenreName;
  std::optional<std::vector<std::string>> genres;
  std::optional<std::vector<std::string>> screenshotUrls;
  std::optional<std::vector<std::string>> ipadScreenshotUrls;
  std::optional<std::string> artworkUrl60;
  std::optional<std::string> artworkUrl100;
  std::optional<std::string> artworkUrl512;
  std::optional<std::string> minimumOsVersion;
  std::optional<std::string> fileSizeBytes;  ///< decimal text; see sizeInBytes()
  std::optional<std::string> contentAdvisoryRating;
  std::optional<std::string> trackViewUrl;
  std::optional<std::string> sellerUrl;
  std::optional<std::string> artistViewUrl;
  std::optional<std::vector<std::string>> languageCodesISO2A;
  std::optional<std::vector<std::string>> supportedDevices;

  // Filled from the catalog; absent means not known.
  std::optional<std::vector<std::int64_t>> ratingHistogram;  ///< from one star to five
  std::optional<std::vector<std::string>> deviceFamilies;
  std::optional<bool> hasInAppPurchases;
  std::optional<bool> hasSubscription;
  std::optional<bool> hasUnlockPurchase;
  std::optional<InsideCost> insideCost;
  std::optional<std::string> editorialBadge;
  std::optional<std::string> tagline;
  std::optional<bool> needsRosetta;

  friend bool operator==(const ITunesApp&, const ITunesApp&) = default;
};

/// Apple's kind word of a Mac app.
inline constexpr std::string_view kMacSoftwareKind = "mac-software";

[[nodiscard]] bool isMacApp(const ITunesApp& app);

/// Whether the record's ratings say nothing: the search service gives Mac apps a rating of 0 from 0
/// people, whatever their ratings are.
[[nodiscard]] bool hasUnknownRating(const ITunesApp& app);

/// The whole number in `fileSizeBytes`; absent when there is none.
[[nodiscard]] std::optional<std::int64_t> sizeInBytes(const ITunesApp& app);

/// The addresses of the screenshots to show for a platform, in order; texts that are no absolute
/// http or https address are skipped. An iOS record has none for the Mac.
[[nodiscard]] std::vector<std::string> screenshotAddresses(const ITunesApp& app, Platform platform);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/dates.h"
#include "library/schema/table.h"

namespace quillet {

/// The last record fetched of one app in one storefront.
struct CachedApp {
  RowId id = 0;
  std::int64_t trackId = 0;
  std::string country;
  std::string name;
  std::optional<std::string> bundleId;
  std::optional<std::string> sellerName;
  std::optional<std::int64_t> artistId;
  std::optional<std::string> kind;
  std::optional<double> price;
  std::optional<std::string> formattedPrice;
  std::optional<std::string> currency;
  std::optional<double> rating;
  std::optional<std::int64_t> ratingCount;
  std::optional<std::string> version;
  std::optional<Instant> releaseDate;
  std::optional<Instant> currentVersionReleaseDate;
  std::optional<std::string> releaseNotes;
  std::optional<std::string> appDescription;
  std::optional<std::string> primaryGenreName;
  std::optional<std::string> artworkUrl512;
  std::optional<std::string> minimumOsVersion;
  std::optional<std::int64_t> fileSizeBytes;
  std::optional<std::string> contentAdvisoryRating;
  std::optional<std::string> trackViewUrl;
  std::optional<std::vector<std::int64_t>> ratingHistogram;  ///< five counts, from one star up
  std::optional<Instant> ratingsUpdatedAt;
  std::optional<bool> hasInAppPurchases;
  std::optional<bool> hasSubscription;
  std::optional<bool> hasUnlockPurchase;
  std::optional<Instant> lastViewedAt;  ///< set by opened pages alone
  std::optional<std::string> editorialBadge;
  std::optional<std::string> tagline;
  std::optional<std::string> sellerUrl;
  std::optional<std::string> artistViewUrl;
  std::optional<bool> needsRosetta;
  std::vector<std::string> genres;
  std::vector<std::string> screenshotUrls;
  std::vector<std::string> ipadScreenshotUrls;
  std::vector<std::string> languageCodes;
  std::vector<std::string> deviceFamilies;
  Instant updatedAt{};  ///< when it was fetched

  friend bool operator==(const CachedApp&, const CachedApp&) = default;
};

template <>
inline constexpr auto kTable<CachedApp> =
    Table{"CachedApp", 1, KeyUse::reused,
          std::array<Index, 3>{Index{Index::Kind::unique, {"trackId", "country"}},
                               Index{Index::Kind::plain, {"lastViewedAt"}}},
          std::tuple{attribute("trackId", &CachedApp::trackId),
                     attribute("country", &CachedApp::country),
                     attribute("name", &CachedApp::name),
                     attribute("bundleId", &CachedApp::bundleId),
                     attribute("sellerName", &CachedApp::sellerName),
                     attribute("artistId", &CachedApp::artistId),
                     attribute("kind", &CachedApp::kind),
                     attribute("price", &CachedApp::price),
                     attribute("formattedPrice", &CachedApp::formattedPrice),
                     attribute("currency", &CachedApp::currency),
                     attribute("rating", &CachedApp::rating),
                     attribute("ratingCount", &CachedApp::ratingCount),
                     attribute("version", &CachedApp::version),
                     attribute("releaseDate", &CachedApp::releaseDate),
                     attribute("currentVersionReleaseDate", &CachedApp::currentVersionReleaseDate),
                     attribute("releaseNotes", &CachedApp::releaseNotes),
                     attribute("appDescription", &CachedApp::appDescription),
                     attribute("primaryGenreName", &CachedApp::primaryGenreName),
                     attribute("artworkUrl512", &CachedApp::artworkUrl512),
                     attribute("minimumOsVersion", &CachedApp::minimumOsVersion),
                     attribute("fileSizeBytes", &CachedApp::fileSizeBytes),
                     attribute("contentAdvisoryRating", &CachedApp::contentAdvisoryRating),
                     attribute("trackViewUrl", &CachedApp::trackViewUrl),
                     attribute("ratingHistogram", &CachedApp::ratingHistogram),
                     attribute("ratingsUpdatedAt", &CachedApp::ratingsUpdatedAt),
                     attribute("hasInAppPurchases", &CachedApp::hasInAppPurchases),
                     attribute("hasSubscription", &CachedApp::hasSubscription),
                     attribute("hasUnlockPurchase", &CachedApp::hasUnlockPurchase),
                     attribute("lastViewedAt", &CachedApp::lastViewedAt),
                     attribute("editorialBadge", &CachedApp::editorialBadge),
                     attribute("tagline", &CachedApp::tagline),
                     attribute("sellerUrl", &CachedApp::sellerUrl),
                     attribute("artistViewUrl", &CachedApp::artistViewUrl),
                     attribute("needsRosetta", &CachedApp::needsRosetta),
                     attribute("genres", &CachedApp::genres),
                     attribute("screenshotUrls", &CachedApp::screenshotUrls),
                     attribute("ipadScreenshotUrls", &CachedApp::ipadScreenshotUrls),
                     attribute("languageCodes", &CachedApp::languageCodes),
                     attribute("deviceFamilies", &CachedApp::deviceFamilies),
                     attribute("updatedAt", &CachedApp::updatedAt)}};

}  // namespace quillet

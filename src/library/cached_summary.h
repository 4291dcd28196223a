// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "library/app_key.h"
#include "library/schema/cached_app.h"
#include "library/schema/rows.h"

namespace quillet {

/// The part of a cached app that lists show, without its long texts and arrays.
struct CachedSummary {
  RowId id = 0;
  std::int64_t trackId = 0;
  std::string country;
  std::string name;
  std::optional<std::string> sellerName;
  std::optional<std::string> artworkUrl512;
  std::optional<std::string> kind;
  std::optional<double> price;
  std::optional<std::string> formattedPrice;
  std::optional<std::string> currency;
  std::optional<double> rating;
  std::optional<std::int64_t> ratingCount;
  std::optional<std::string> version;
  std::optional<Instant> currentVersionReleaseDate;
  std::optional<std::string> primaryGenreName;
  std::optional<std::string> minimumOsVersion;
  std::optional<std::int64_t> fileSizeBytes;
  std::optional<bool> hasInAppPurchases;
  std::optional<bool> hasSubscription;
  std::optional<bool> hasUnlockPurchase;
  std::optional<bool> needsRosetta;
  std::optional<Instant> lastViewedAt;
  Instant updatedAt{};

  friend bool operator==(const CachedSummary&, const CachedSummary&) = default;
};

template <>
inline constexpr auto kTable<CachedSummary> = Table{
    kTable<CachedApp>.entity, kTable<CachedApp>.revision, kTable<CachedApp>.keys,
    kTable<CachedApp>.indexes,
    std::tuple{attribute("trackId", &CachedSummary::trackId),
               attribute("country", &CachedSummary::country),
               attribute("name", &CachedSummary::name),
               attribute("sellerName", &CachedSummary::sellerName),
               attribute("artworkUrl512", &CachedSummary::artworkUrl512),
               attribute("kind", &CachedSummary::kind),
               attribute("price", &CachedSummary::price),
               attribute("formattedPrice", &CachedSummary::formattedPrice),
               attribute("currency", &CachedSummary::currency),
               attribute("rating", &CachedSummary::rating),
               attribute("ratingCount", &CachedSummary::ratingCount),
               attribute("version", &CachedSummary::version),
               attribute("currentVersionReleaseDate", &CachedSummary::currentVersionReleaseDate),
               attribute("primaryGenreName", &CachedSummary::primaryGenreName),
               attribute("minimumOsVersion", &CachedSummary::minimumOsVersion),
               attribute("fileSizeBytes", &CachedSummary::fileSizeBytes),
               attribute("hasInAppPurchases", &CachedSummary::hasInAppPurchases),
               attribute("hasSubscription", &CachedSummary::hasSubscription),
               attribute("hasUnlockPurchase", &CachedSummary::hasUnlockPurchase),
               attribute("needsRosetta", &CachedSummary::needsRosetta),
               attribute("lastViewedAt", &CachedSummary::lastViewedAt),
               attribute("updatedAt", &CachedSummary::updatedAt)}};

// What the cache knows of the apps of a list, in no order; apps that it does not hold are missing.

[[nodiscard]] std::vector<CachedSummary> summariesOf(SQLite::Database& database,
                                                     const std::vector<AppKey>& apps);
[[nodiscard]] std::vector<CachedSummary> summariesOfWatched(SQLite::Database& database);
[[nodiscard]] std::vector<CachedSummary> summariesOfOwned(SQLite::Database& database);
[[nodiscard]] std::vector<CachedSummary> summariesOfEntries(SQLite::Database& database,
                                                            RowId collection);

}  // namespace quillet

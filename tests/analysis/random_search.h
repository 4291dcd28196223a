// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <fmt/format.h>

#include <random>
#include <string>
#include <vector>

#include "analysis/filter_verdict.h"

namespace quillet {

/// Apps and sets of filters, made by chance from few values so that they meet often.
class RandomSearch {
 public:
  explicit RandomSearch(unsigned seed) : random_(seed) {}

  /// The store's records, with numbers from 1, Mac apps and others mixed.
  std::vector<ITunesApp> apps(std::size_t count) {
    std::vector<ITunesApp> apps;
    for (std::size_t i = 0; i < count; ++i) apps.push_back(app(static_cast<std::int64_t>(i) + 1));
    return apps;
  }

  AppFilters filters() {
    AppFilters filters;
    if (rarely()) filters.price = any<PriceFilter>(3);
    if (rarely()) filters.maxPrice = price();
    if (rarely()) filters.minRating = static_cast<double>(below(5));
    if (rarely()) filters.minRatingCount = below(40);
    if (rarely()) filters.updatedWithin = any<UpdatedFilter>(5);
    if (rarely()) filters.maxSize = any<SizeFilter>(4);
    if (rarely()) filters.genre = genre();
    if (often()) filters.purchases = any<PurchaseFilter>(7);
    if (rarely()) filters.runsOn = OSRequirement{fmt::format("{}", 11 + below(4))};
    if (rarely()) filters.architecture = any<ArchitectureFilter>(3);
    if (rarely()) filters.released = released();
    filters.hideOwned = rarely();
    return filters;
  }

  std::vector<AppFilters> filterSets(std::size_t count) {
    std::vector<AppFilters> sets(count);
    for (AppFilters& each : sets) each = filters();
    return sets;
  }

  std::vector<CatalogReads> reads(std::size_t count) {
    std::vector<CatalogReads> reads(count);
    for (CatalogReads& each : reads) each = {often(), often()};
    return reads;
  }

  /// Says something, or nothing, of whatever was not read.
  void turnOut(std::vector<ITunesApp>& apps, const std::vector<CatalogReads>& reads) {
    for (std::size_t i = 0; i < apps.size(); ++i) {
      if (!reads[i].purchases) sell(apps[i]);
      if (!reads[i].build && isMacApp(apps[i])) build(apps[i]);
    }
  }

  MatchTerms terms() {
    return {{2, 3, 5, 8, 13}, now_, [](Instant) {
              return std::chrono::seconds(std::chrono::hours(2));
            }};
  }

  SortOrder sort() { return any<SortOrder>(8); }
  bool often() { return below(2) == 0; }
  std::int64_t below(std::int64_t end) {
    return std::uniform_int_distribution<std::int64_t>(0, end - 1)(random_);
  }

 private:
  template <typename Enum>
  Enum any(std::int64_t cases) {
    return static_cast<Enum>(below(cases));
  }
  bool rarely() { return below(4) == 0; }
  double price() { return static_cast<double>(below(4)) * 2.5; }
  std::string genre() { return often() ? "Games" : "Music"; }
  Instant date() { return now_ - std::chrono::days(below(1200)); }
  ReleasedFilter released() {
    if (often()) return ReleasedWithin{1 + below(30)};
    if (often()) return ReleasedBefore{2024 + below(3)};
    return ReleasedFrom{2024 + below(3)};
  }

  ITunesApp app(std::int64_t trackId) {
    ITunesApp app{.trackId = trackId, .trackName = fmt::format("App {}", below(50))};
    app.kind = often() ? "mac-software" : "software";
    if (!rarely()) app.price = price();
    if (isMacApp(app) && often()) {
      app.averageUserRating = 0;
      app.userRatingCount = 0;
    } else if (!rarely()) {
      app.averageUserRating = static_cast<double>(below(10)) / 2;
      app.userRatingCount = below(60);
    }
    if (!rarely()) app.currentVersionReleaseDate = date();
    if (!rarely()) app.releaseDate = date();
    if (!rarely()) app.fileSizeBytes = std::to_string(below(30) * 50'000'000);
    app.primaryGenreName = genre();
    app.minimumOsVersion = fmt::format("{}.{}", 11 + below(4), below(4));
    return app;
  }

  void sell(ITunesApp& app) {
    const auto perhaps = [&] { return rarely() ? std::optional<bool>() : often(); };
    app.hasInAppPurchases = perhaps();
    app.hasSubscription = perhaps();
    app.hasUnlockPurchase = perhaps();
  }

  void build(ITunesApp& app) {
    if (!rarely()) app.needsRosetta = often();
    if (!hasUnknownRating(app) || rarely()) return;
    app.averageUserRating = static_cast<double>(below(10)) / 2;
    app.userRatingCount = 1 + below(60);
  }

  std::mt19937 random_;
  Instant now_{std::chrono::sys_days{std::chrono::year{2026} / 11 / 20}};
};

}  // namespace quillet

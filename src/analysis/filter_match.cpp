// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filter_match.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "analysis/calendar.h"
#include "analysis/filter_words.h"
#include "analysis/monetization.h"
#include "base/enum_index.h"
#include "base/versions.h"

namespace quillet {

namespace {

// Spans of fixed length; "any" is never looked up.
constexpr std::array<std::chrono::days, 5> kUpdatedSpans{
    std::chrono::days{0}, std::chrono::days{30}, std::chrono::days{182}, std::chrono::days{365},
    std::chrono::days{730}};
constexpr std::array<std::int64_t, 4> kSizeLimits{0, 100'000'000, 500'000'000, 2'000'000'000};

bool isOwnershipAccepted(const ITunesApp& app, const AppFilters& filters, const TrackIds& owned) {
  return !filters.hideOwned || !owned.contains(app.trackId);
}

bool isPriceAccepted(const ITunesApp& app, PriceFilter filter) {
  const bool paid = app.price.value_or(0) != 0;
  switch (filter) {
    case PriceFilter::any: return true;
    case PriceFilter::free: return !paid;
    case PriceFilter::paid: return paid;
  }
  return true;
}

bool isWithinMaxPrice(const ITunesApp& app, std::optional<double> maxPrice) {
  return !maxPrice || app.price.value_or(0) <= *maxPrice;
}

bool isRatedEnough(const ITunesApp& app, double minimum) {
  return minimum <= 0 || (app.averageUserRating && *app.averageUserRating >= minimum);
}

bool isRatedOftenEnough(const ITunesApp& app, std::int64_t minimum) {
  return minimum < 1 || (app.userRatingCount && *app.userRatingCount >= minimum);
}

bool isUpdatedLately(const ITunesApp& app, UpdatedFilter filter, Instant now) {
  if (filter == UpdatedFilter::any) return true;
  const auto& updated = app.currentVersionReleaseDate;
  return updated && now - *updated <= kUpdatedSpans[indexOf(filter)];
}

bool isSmallEnough(const ITunesApp& app, SizeFilter filter) {
  if (filter == SizeFilter::any) return true;
  const auto size = sizeInBytes(app);
  return size && *size <= kSizeLimits[indexOf(filter)];
}

bool isInGenre(const ITunesApp& app, const std::optional<std::string>& genre) {
  if (!genre || app.primaryGenreName == *genre) return true;
  return app.genres && std::ranges::find(*app.genres, *genre) != app.genres->end();
}

bool canBeBoughtOutright(const ITunesApp& app) {
  const MonetizationModel model = monetizationModel(app);
  return model == MonetizationModel::paidOnce || model == MonetizationModel::oneTimeOnly ||
         model == MonetizationModel::subscriptionOrOneTime;
}

bool arePurchasesAccepted(const ITunesApp& app, PurchaseFilter filter) {
  switch (filter) {
    case PurchaseFilter::any: return true;
    case PurchaseFilter::hasSubscription: return app.hasSubscription == true;
    case PurchaseFilter::noSubscription: return app.hasSubscription == false;
    case PurchaseFilter::hasInAppPurchases: return app.hasInAppPurchases == true;
    case PurchaseFilter::noInAppPurchases: return app.hasInAppPurchases == false;
    case PurchaseFilter::buyOutright: return canBeBoughtOutright(app);
    case PurchaseFilter::subscriptionOnly:
      return monetizationModel(app) == MonetizationModel::subscriptionOnly;
  }
  return true;
}

bool isArchitectureAccepted(const ITunesApp& app, ArchitectureFilter filter) {
  if (filter == ArchitectureFilter::any) return true;
  return app.needsRosetta == (filter == ArchitectureFilter::needsRosetta);
}

bool runsOn(const ITunesApp& app, const std::optional<OSRequirement>& system) {
  if (!system || !app.minimumOsVersion) return true;
  return compareVersions(*app.minimumOsVersion, system->atMost) <= 0;
}

/// Judges a first release by each case of the filter.
struct ReleaseJudge {
  Instant released;
  Instant now;
  const UtcOffsetAt& zone;

  bool operator()(const ReleasedWithin& filter) const {
    return released >= monthsBefore(now, filter.months, zone);
  }
  bool operator()(const ReleasedBefore& filter) const {
    return calendarYear(released, zone) < filter.year;
  }
  bool operator()(const ReleasedFrom& filter) const {
    return calendarYear(released, zone) >= filter.year;
  }
};

bool isReleaseAccepted(const ITunesApp& app, const std::optional<ReleasedFilter>& filter,
                       Instant now, const UtcOffsetAt& zone) {
  if (!filter) return true;
  return app.releaseDate && std::visit(ReleaseJudge{*app.releaseDate, now, zone}, *filter);
}

}  // namespace

bool matches(const ITunesApp& app, const AppFilters& filters, const TrackIds& ownedTrackIds,
             Instant now, const UtcOffsetAt& zone) {
  return isOwnershipAccepted(app, filters, ownedTrackIds) && isPriceAccepted(app, filters.price) &&
         isWithinMaxPrice(app, filters.maxPrice) && isRatedEnough(app, filters.minRating) &&
         isRatedOftenEnough(app, filters.minRatingCount) &&
         isUpdatedLately(app, filters.updatedWithin, now) && isSmallEnough(app, filters.maxSize) &&
         isInGenre(app, filters.genre) && arePurchasesAccepted(app, filters.purchases) &&
         isArchitectureAccepted(app, filters.architecture) && runsOn(app, filters.runsOn) &&
         isReleaseAccepted(app, filters.released, now, zone);
}

int activeCount(const AppFilters& filters) {
  return static_cast<int>(activeFilterWords(filters).size());
}

bool readsPurchases(const AppFilters& filters) { return filters.purchases != PurchaseFilter::any; }

bool readsArchitecture(const AppFilters& filters) {
  return filters.architecture != ArchitectureFilter::any;
}

}  // namespace quillet

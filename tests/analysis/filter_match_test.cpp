// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filter_match.h"

#include <gtest/gtest.h>

#include "analysis/filters_json.h"
#include "base/dates.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Apps = std::vector<ITunesApp>;

Instant at(std::string_view text) { return parseInternetDate(text).value(); }

/// An hour ahead of UTC, two from the last Sunday of March 2026 to that of October.
std::chrono::seconds centralEurope(Instant instant) {
  const bool summer = instant >= at("2026-03-29T01:00:00Z") && instant < at("2026-10-25T01:00:00Z");
  return summer ? 2h : 1h;
}

/// An app of which nothing is known.
const ITunesApp kUnknown;

ITunesApp released(std::string_view date) { return {.releaseDate = at(date)}; }

class FilterMatch : public testing::Test {
 protected:
  void expect(const AppFilters& filters, const Apps& taken, const Apps& left) {
    SCOPED_TRACE(encodeFilters(filters));
    for (const ITunesApp& app : taken)
      EXPECT_TRUE(matches(app, filters, owned, now, zone)) << "taken " << &app - taken.data();
    for (const ITunesApp& app : left)
      EXPECT_FALSE(matches(app, filters, owned, now, zone)) << "left " << &app - left.data();
  }

  Instant now = at("2026-06-15T12:00:00Z");
  UtcOffsetAt zone = [](Instant) { return 0h; };
  TrackIds owned;
};

TEST_F(FilterMatch, priceAndRatings) {
  expect({}, {kUnknown}, {});
  expect({.minRating = -1, .minRatingCount = -1}, {kUnknown}, {});
  expect({.price = PriceFilter::free}, {kUnknown, {.price = 0}}, {{.price = 0.99}});
  expect({.price = PriceFilter::paid}, {{.price = 0.99}}, {{.price = 0}});
  expect({.maxPrice = 5}, {{.price = 5}}, {{.price = 5.01}});
  expect({.maxPrice = 0}, {kUnknown}, {});
  expect({.maxPrice = -1}, {}, {kUnknown});
  expect({.minRating = 4}, {{.averageUserRating = 4}}, {{.averageUserRating = 3.99}, kUnknown});
  expect({.minRatingCount = 100}, {{.userRatingCount = 100}}, {{.userRatingCount = 99}, kUnknown});
  expect({.minRatingCount = 1}, {}, {{.userRatingCount = 0}});
}

TEST_F(FilterMatch, updatedWithinSpansOfFixedSeconds) {
  const auto updated = [&](std::chrono::seconds ago) {
    return ITunesApp{.currentVersionReleaseDate = now - ago};
  };
  using enum UpdatedFilter;
  const std::pair<UpdatedFilter, std::chrono::seconds> spans[] = {
      {month, 2'592'000s}, {sixMonths, 15'724'800s}, {year, 31'536'000s}, {twoYears, 63'072'000s}};
  for (const auto& [filter, span] : spans)
    expect({.updatedWithin = filter}, {updated(span), updated(-24h)},
           {updated(span + 1s), kUnknown});
}

TEST_F(FilterMatch, sizeGenreAndSystem) {
  const auto sized = [](const char* bytes) { return ITunesApp{.fileSizeBytes = bytes}; };
  expect({.maxSize = SizeFilter::under100MB}, {}, {sized("100000001"), sized("abc"), kUnknown});
  expect({.maxSize = SizeFilter::under500MB}, {sized("500000000")}, {sized("500000001")});
  expect({.maxSize = SizeFilter::under2GB}, {sized("2000000000")}, {sized("2147483648")});
  const ITunesApp second{.primaryGenreName = "Music", .genres = {{"Music", "Games"}}};
  expect({.genre = "Games"}, {{.primaryGenreName = "Games"}, second},
         {{.primaryGenreName = "games"}});
  const auto needs = [](const char* version) { return ITunesApp{.minimumOsVersion = version}; };
  expect({.runsOn = OSRequirement{"14.0"}}, {needs("14"), kUnknown}, {needs("14.1")});
  expect({.runsOn = OSRequirement{"13.10"}}, {needs("13.5")}, {});
}

TEST_F(FilterMatch, purchasesAndArchitectureRejectTheUnknown) {
  using enum PurchaseFilter;
  const ITunesApp subscribes{.hasSubscription = true};
  const ITunesApp buysOnce{.hasSubscription = false};
  const ITunesApp sells{.hasInAppPurchases = true};
  const ITunesApp sellsNothing{.hasInAppPurchases = false};
  const ITunesApp paidOnce{.price = 9.99, .hasInAppPurchases = false};
  const ITunesApp tips{
      .hasInAppPurchases = true, .hasSubscription = false, .hasUnlockPurchase = false};
  const ITunesApp unlocks{.hasUnlockPurchase = true};
  const ITunesApp either{.hasSubscription = true, .hasUnlockPurchase = true};
  const ITunesApp subscribesOnly{.hasSubscription = true, .hasUnlockPurchase = false};
  expect({.purchases = hasSubscription}, {subscribes}, {buysOnce, kUnknown});
  expect({.purchases = noSubscription}, {buysOnce}, {subscribes, kUnknown});
  expect({.purchases = hasInAppPurchases}, {sells}, {sellsNothing, kUnknown});
  expect({.purchases = noInAppPurchases}, {sellsNothing}, {sells, kUnknown});
  expect({.purchases = buyOutright}, {paidOnce, unlocks, either}, {tips, kUnknown});
  expect({.purchases = subscriptionOnly}, {subscribesOnly}, {either, subscribes});
  const ITunesApp native{.needsRosetta = false};
  const ITunesApp translated{.needsRosetta = true};
  expect({.architecture = ArchitectureFilter::appleSilicon}, {native}, {translated, kUnknown});
  expect({.architecture = ArchitectureFilter::needsRosetta}, {translated}, {native, kUnknown});
}

TEST_F(FilterMatch, ownedAppsAreHiddenOnlyWhenAsked) {
  owned = {7};
  expect({.hideOwned = true}, {{.trackId = 8}}, {{.trackId = 7}});
  expect({}, {{.trackId = 7}}, {});
}

TEST_F(FilterMatch, releaseYearsAreThoseOfTheZone) {
  const AppFilters before2020{.released = ReleasedBefore{2020}};
  const AppFilters from2020{.released = ReleasedFrom{2020}};
  const ITunesApp eve = released("2019-12-31T23:30:00Z");
  const ITunesApp newYear = released("2020-01-01T00:00:00Z");
  expect(before2020, {eve}, {newYear, kUnknown});
  expect(from2020, {newYear}, {eve, kUnknown});
  zone = centralEurope;
  expect(before2020, {}, {eve});
  expect(from2020, {eve}, {});
  zone = [](Instant) { return -5h; };
  expect(before2020, {newYear}, {});
}

TEST_F(FilterMatch, releasedWithinCalendarMonthsOfAnyNumber) {
  const std::tuple<const char*, const char*, std::int64_t, const char*> rows[] = {
      {"day beyond the month's end", "2026-07-31T12:00:00Z", 1, "2026-06-30T12:00:00Z"},
      {"last of February in a leap year", "2024-05-31T12:00:00Z", 3, "2024-02-29T12:00:00Z"},
      {"summer to winter: same wall time", "2026-06-15T12:00:00Z", 4, "2026-02-15T13:00:00Z"},
      {"just after the spring change", "2026-04-29T01:30:00Z", 1, "2026-03-29T01:30:00Z"},
      {"just before the spring change", "2026-04-28T23:30:00Z", 1, "2026-03-29T00:30:00Z"},
      {"local date is the next day", "2026-05-30T22:30:00Z", 3, "2026-02-27T23:30:00Z"},
  };
  zone = centralEurope;
  for (const auto& [situation, today, months, cutOff] : rows) {
    SCOPED_TRACE(situation);
    now = at(today);
    ITunesApp older = released(cutOff);
    *older.releaseDate -= 1s;
    expect({.released = ReleasedWithin{months}}, {released(cutOff)}, {older});
  }
  using Limits = std::numeric_limits<std::int64_t>;
  expect({.released = ReleasedWithin{Limits::max()}}, {released("0000-01-01T00:00:00Z")},
         {kUnknown});
  expect({.released = ReleasedWithin{Limits::min()}}, {}, {released("9999-12-31T23:59:59Z")});
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filter_match.h"

#include <gtest/gtest.h>

#include "base/dates.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

Instant at(std::string_view text) { return parseInternetDate(text).value(); }

std::chrono::seconds utc(Instant) { return 0h; }

/// An hour ahead of UTC, two from the last Sunday of March 2026 to that of October.
std::chrono::seconds centralEurope(Instant instant) {
  const bool summer = instant >= at("2026-03-29T01:00:00Z") && instant < at("2026-10-25T01:00:00Z");
  return summer ? 2h : 1h;
}

ITunesApp with(auto ITunesApp::* field, auto value) {
  ITunesApp app;
  app.*field = value;
  return app;
}

AppFilters only(auto AppFilters::* field, auto value) {
  AppFilters filters;
  filters.*field = value;
  return filters;
}

struct Row {
  const char* situation;
  AppFilters filters;
  ITunesApp app;
  bool passes;
};

void expectAll(const std::vector<Row>& rows, Instant now = at("2026-06-15T12:00:00Z"),
               const UtcOffsetAt& zone = utc, const TrackIds& owned = {}) {
  for (const Row& row : rows)
    EXPECT_EQ(matches(row.app, row.filters, owned, now, zone), row.passes) << row.situation;
}

TEST(FilterMatch, priceAndRatings) {
  const AppFilters free = only(&AppFilters::price, PriceFilter::free);
  const AppFilters paid = only(&AppFilters::price, PriceFilter::paid);
  const AppFilters upToFive = only(&AppFilters::maxPrice, 5.0);
  const AppFilters upToZero = only(&AppFilters::maxPrice, 0.0);
  const AppFilters fourStars = only(&AppFilters::minRating, 4.0);
  const AppFilters hundred = only(&AppFilters::minRatingCount, 100);
  const auto priced = [](double price) { return with(&ITunesApp::price, price); };
  const auto rated = [](double stars) { return with(&ITunesApp::averageUserRating, stars); };
  const auto counted = [](std::int64_t count) { return with(&ITunesApp::userRatingCount, count); };
  expectAll({
      {"nothing set, nothing known", {}, {}, true},
      {"rating and count below their least are off",
       {.minRating = -1, .minRatingCount = -1},
       {},
       true},
      {"free: no price", free, {}, true},
      {"free: 0", free, priced(0), true},
      {"free: 0.99", free, priced(0.99), false},
      {"paid: 0", paid, priced(0), false},
      {"paid: 0.99", paid, priced(0.99), true},
      {"maximum: equal", upToFive, priced(5), true},
      {"maximum: over", upToFive, priced(5.01), false},
      {"maximum 0: no price", upToZero, {}, true},
      {"negative maximum: no price", only(&AppFilters::maxPrice, -1.0), {}, false},
      {"rating: equal", fourStars, rated(4), true},
      {"rating: below", fourStars, rated(3.99), false},
      {"rating: absent", fourStars, {}, false},
      {"count: equal", hundred, counted(100), true},
      {"count: below", hundred, counted(99), false},
      {"count: absent", hundred, {}, false},
      {"count of at least 1: none", only(&AppFilters::minRatingCount, 1), counted(0), false},
  });
}

TEST(FilterMatch, updatedWithinSpansOfFixedSeconds) {
  const Instant now = at("2026-06-15T12:00:00Z");
  const auto updated = [&](std::chrono::seconds ago) {
    return with(&ITunesApp::currentVersionReleaseDate, now - ago);
  };
  const std::pair<UpdatedFilter, std::chrono::seconds> spans[] = {
      {UpdatedFilter::month, 2'592'000s},
      {UpdatedFilter::sixMonths, 15'724'800s},
      {UpdatedFilter::year, 31'536'000s},
      {UpdatedFilter::twoYears, 63'072'000s},
  };
  for (const auto& [filter, span] : spans) {
    const AppFilters filters = only(&AppFilters::updatedWithin, filter);
    expectAll({{"exactly the span", filters, updated(span), true},
               {"a second more", filters, updated(span + 1s), false},
               {"in the future", filters, updated(-24h), true},
               {"absent", filters, {}, false}},
              now);
  }
}

TEST(FilterMatch, sizeGenreAndSystem) {
  const AppFilters under500 = only(&AppFilters::maxSize, SizeFilter::under500MB);
  const AppFilters games = only(&AppFilters::genre, "Games");
  const AppFilters on14 = only(&AppFilters::runsOn, OSRequirement{"14.0"});
  const auto sized = [](const char* bytes) { return with(&ITunesApp::fileSizeBytes, bytes); };
  const auto needs = [](const char* version) {
    return with(&ITunesApp::minimumOsVersion, version);
  };
  ITunesApp secondary = with(&ITunesApp::genres, std::vector<std::string>{"Music", "Games"});
  secondary.primaryGenreName = "Music";
  expectAll({
      {"size: equal", under500, sized("500000000"), true},
      {"size: a byte over", under500, sized("500000001"), false},
      {"size: no number", under500, sized("abc"), false},
      {"size: absent", under500, {}, false},
      {"100 MB", only(&AppFilters::maxSize, SizeFilter::under100MB), sized("100000001"), false},
      {"2 GB", only(&AppFilters::maxSize, SizeFilter::under2GB), sized("2000000000"), true},
      {"2 GB is decimal", only(&AppFilters::maxSize, SizeFilter::under2GB), sized("2147483648"),
       false},
      {"genre: other case", games, with(&ITunesApp::primaryGenreName, "games"), false},
      {"genre: in the list", games, secondary, true},
      {"runs on: same version, shorter", on14, needs("14"), true},
      {"runs on: newer needed", on14, needs("14.1"), false},
      {"runs on: numeric, not textual", only(&AppFilters::runsOn, OSRequirement{"13.10"}),
       needs("13.5"), true},
      {"runs on: no minimum", on14, {}, true},
  });
}

TEST(FilterMatch, purchasesAndArchitectureRejectTheUnknown) {
  const auto purchases = [](PurchaseFilter filter) { return only(&AppFilters::purchases, filter); };
  const AppFilters silicon = only(&AppFilters::architecture, ArchitectureFilter::appleSilicon);
  const AppFilters rosetta = only(&AppFilters::architecture, ArchitectureFilter::needsRosetta);
  const ITunesApp subscribes = with(&ITunesApp::hasSubscription, true);
  const ITunesApp noSubscription = with(&ITunesApp::hasSubscription, false);
  const ITunesApp sells = with(&ITunesApp::hasInAppPurchases, true);
  const ITunesApp sellsNothing = with(&ITunesApp::hasInAppPurchases, false);
  ITunesApp paidOnce = sellsNothing;
  paidOnce.price = 9.99;
  ITunesApp both = subscribes;
  both.hasUnlockPurchase = true;
  ITunesApp subscriptionOnly = subscribes;
  subscriptionOnly.hasUnlockPurchase = false;
  ITunesApp tipsOnly = sells;
  tipsOnly.hasSubscription = tipsOnly.hasUnlockPurchase = false;
  expectAll({
      {"has subscription: yes", purchases(PurchaseFilter::hasSubscription), subscribes, true},
      {"has subscription: no", purchases(PurchaseFilter::hasSubscription), noSubscription, false},
      {"has subscription: unknown", purchases(PurchaseFilter::hasSubscription), {}, false},
      {"no subscription: no", purchases(PurchaseFilter::noSubscription), noSubscription, true},
      {"no subscription: unknown", purchases(PurchaseFilter::noSubscription), {}, false},
      {"has purchases: yes", purchases(PurchaseFilter::hasInAppPurchases), sells, true},
      {"has purchases: unknown", purchases(PurchaseFilter::hasInAppPurchases), {}, false},
      {"no purchases: none", purchases(PurchaseFilter::noInAppPurchases), sellsNothing, true},
      {"no purchases: unknown", purchases(PurchaseFilter::noInAppPurchases), {}, false},
      {"outright: paid once", purchases(PurchaseFilter::buyOutright), paidOnce, true},
      {"outright: one-time unlock", purchases(PurchaseFilter::buyOutright),
       with(&ITunesApp::hasUnlockPurchase, true), true},
      {"outright: or subscription", purchases(PurchaseFilter::buyOutright), both, true},
      {"outright: tips", purchases(PurchaseFilter::buyOutright), tipsOnly, false},
      {"subscription only", purchases(PurchaseFilter::subscriptionOnly), subscriptionOnly, true},
      {"subscription only: or once", purchases(PurchaseFilter::subscriptionOnly), both, false},
      {"subscription only: unlock unknown", purchases(PurchaseFilter::subscriptionOnly), subscribes,
       false},
      {"native build", silicon, with(&ITunesApp::needsRosetta, false), true},
      {"translated build", silicon, with(&ITunesApp::needsRosetta, true), false},
      {"translated wanted", rosetta, with(&ITunesApp::needsRosetta, true), true},
      {"native: unknown", silicon, {}, false},
      {"translated: unknown", rosetta, {}, false},
  });
}

TEST(FilterMatch, ownedAppsAreHiddenOnlyWhenAsked) {
  const AppFilters hide = only(&AppFilters::hideOwned, true);
  const ITunesApp owned = with(&ITunesApp::trackId, 7);
  expectAll({{"owned", hide, owned, false},
             {"another", hide, with(&ITunesApp::trackId, 8), true},
             {"not asked", {}, owned, true}},
            at("2026-06-15T12:00:00Z"), utc, {7});
}

TEST(FilterMatch, releaseYearsAreThoseOfTheZone) {
  const AppFilters before2020 = only(&AppFilters::released, ReleasedBefore{2020});
  const AppFilters from2020 = only(&AppFilters::released, ReleasedFrom{2020});
  const ITunesApp eve = with(&ITunesApp::releaseDate, at("2019-12-31T23:30:00Z"));
  const ITunesApp newYear = with(&ITunesApp::releaseDate, at("2020-01-01T00:00:00Z"));
  const Instant now = at("2026-06-15T12:00:00Z");
  expectAll({{"before: new year", before2020, newYear, false},
             {"before: the evening before", before2020, eve, true},
             {"from: new year", from2020, newYear, true},
             {"from: the evening before", from2020, eve, false},
             {"before: unknown", before2020, {}, false}},
            now);
  expectAll({{"an hour ahead, before", before2020, eve, false},
             {"an hour ahead, from", from2020, eve, true}},
            now, centralEurope);
  expectAll({{"five hours behind", before2020, newYear, true}}, now, [](Instant) { return -5h; });
}

TEST(FilterMatch, releasedWithinCalendarMonths) {
  struct CutOff {
    const char* situation;
    const char* now;
    std::int64_t months;
    const char* cutOff;
  };
  const CutOff rows[] = {
      {"over the year's end", "2026-01-15T12:00:00Z", 13, "2024-12-15T12:00:00Z"},
      {"day beyond the month's end", "2026-07-31T12:00:00Z", 1, "2026-06-30T12:00:00Z"},
      {"last of February in a leap year", "2024-05-31T12:00:00Z", 3, "2024-02-29T12:00:00Z"},
      {"leap day to a common year", "2024-02-29T12:00:00Z", 12, "2023-02-28T12:00:00Z"},
      {"summer to winter: same wall time", "2026-06-15T12:00:00Z", 4, "2026-02-15T13:00:00Z"},
      {"just after the spring change", "2026-04-29T01:30:00Z", 1, "2026-03-29T01:30:00Z"},
      {"just before the spring change", "2026-04-28T23:30:00Z", 1, "2026-03-29T00:30:00Z"},
      {"local date is the next day", "2026-05-30T22:30:00Z", 3, "2026-02-27T23:30:00Z"},
  };
  for (const CutOff& row : rows) {
    const AppFilters filters = only(&AppFilters::released, ReleasedWithin{row.months});
    const Instant cutOff = at(row.cutOff);
    expectAll({{row.situation, filters, with(&ITunesApp::releaseDate, cutOff), true},
               {row.situation, filters, with(&ITunesApp::releaseDate, cutOff - 1s), false}},
              at(row.now), centralEurope);
  }
}

TEST(FilterMatch, releasedWithinNumbersBeyondTheCalendar) {
  constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
  constexpr auto kLeast = std::numeric_limits<std::int64_t>::min();
  const ITunesApp oldest = with(&ITunesApp::releaseDate, at("0000-01-01T00:00:00Z"));
  const ITunesApp latest = with(&ITunesApp::releaseDate, at("9999-12-31T23:59:59Z"));
  expectAll({
      {"the distant past", only(&AppFilters::released, ReleasedWithin{kMost}), oldest, true},
      {"still a known date", only(&AppFilters::released, ReleasedWithin{kMost}), {}, false},
      {"the distant future", only(&AppFilters::released, ReleasedWithin{kLeast}), latest, false},
  });
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// What the marks below an app's name say, for all that the library may know of it.

#include "desktop/page/page_marks.h"

#include <gtest/gtest.h>

#include "page_moments.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

const Instant kNow = moment(2026, 11, 22, 12);

struct MarksCase {
  std::string name;
  PageFacts facts;
  std::string marks;  ///< each with the sign of its kind
  bool showsMaintenance = true;
};

std::string signOf(MarkKind kind) {
  switch (kind) {
    case MarkKind::plain: return "";
    case MarkKind::down: return "v ";
    case MarkKind::up: return "^ ";
    case MarkKind::low: return "_ ";
    case MarkKind::fresh: return "! ";
    case MarkKind::neutral: return "- ";
    case MarkKind::mine: return "> ";
    case MarkKind::stars: return "* ";
    case MarkKind::aside: return ". ";
  }
  return "?";
}

WatchedApp watch(double added, double now, std::string currency,
                 std::optional<std::string> text = {}) {
  return {.currency = std::move(currency),
          .priceWhenAdded = added,
          .currentPrice = now,
          .formattedPrice = std::move(text),
          .addedAt = moment(2026, 3, 2)};
}

CachedApp record(double price, std::string text) {
  return {.price = price,
          .formattedPrice = std::move(text),
          .currency = "USD",
          .updatedAt = kNow - 12min};
}

AppPriceSeries series(std::vector<std::pair<double, Instant>> prices, std::string currency) {
  AppPriceSeries series;
  for (const auto& [price, when] : prices) series.prices.push_back({when, price, currency});
  return series;
}

WatchedApp with(WatchedApp app, auto change) {
  change(app);
  return app;
}

CachedApp with(CachedApp app, auto change) {
  change(app);
  return app;
}

PageFacts watchedFacts(WatchedApp app, AppPriceSeries prices = {}) {
  return {.watched = std::move(app), .prices = std::move(prices)};
}

PageFacts cachedFacts(CachedApp app, AppPriceSeries prices = {}) {
  return {.cached = std::move(app), .prices = std::move(prices)};
}

class PageMarksTest : public testing::TestWithParam<MarksCase> {};

TEST_P(PageMarksTest, Say) {
  const LocaleFormats formats{UserLocale{}};
  MarkTerms terms{formats, {}, [](Instant) { return 0s; }, kNow};
  if (GetParam().showsMaintenance) terms.maintenance = MaintenanceThresholds{};
  std::string said;
  for (const PageMark& mark : marksOf(GetParam().facts, terms))
    said += (said.empty() ? "" : "; ") + signOf(mark.kind) + mark.text.toStdString();
  EXPECT_EQ(said, GetParam().marks);
}

const AppPriceSeries kDipped = series(
    {{19.99, moment(2025, 6, 1)}, {9.99, moment(2025, 12, 8)}, {19.99, moment(2026, 1, 2)}}, "USD");

INSTANTIATE_TEST_SUITE_P(
    All, PageMarksTest,
    testing::Values(
        MarksCase{"NothingKnown", {}, "- Price unknown"},
        MarksCase{"WatchedAsItWas", watchedFacts(watch(4.99, 4.99, "USD")), "$4.99"},
        MarksCase{"WatchedCheaper", watchedFacts(watch(9.99, 4.99, "USD", "$4.99")), "v $4.99"},
        MarksCase{"WatchedDearer", watchedFacts(watch(9.99, 14.99, "EUR", "14,99 €")), "^ 14,99 €"},
        MarksCase{"NowFree", watchedFacts(watch(9.99, 0, "USD", "Free")), "v Free"},
        MarksCase{"AddedInAnotherCurrency",
                  watchedFacts(with(watch(19.99, 10.49, "EUR"),
                                    [](auto& app) { app.addedCurrency = "BGN"; })),
                  "€10.49"},
        MarksCase{"PriceNeverTold", watchedFacts(watch(0, 0, "")), "- Price unknown"},
        MarksCase{"PriceToldByTheRecordAlone",
                  {.cached = record(4.99, "$4.99"), .watched = watch(0, 0, "USD")},
                  "$4.99; . Read 12 min ago"},
        MarksCase{"RecordNewerThanTheLastCheck",
                  {.cached = record(3.99, "$3.99"),
                   .watched = with(watch(9.99, 4.99, "USD"),
                                   [](auto& app) {
                                     app.lastCheckedAt = kNow - 2h;
                                     app.isUnavailable = true;
                                   })},
                  "v $3.99; . Read 12 min ago"},
        MarksCase{"CheckNewerThanTheRecord",
                  {.cached = record(3.99, "$3.99"),
                   .watched = with(watch(9.99, 4.99, "USD"),
                                   [](auto& app) { app.lastCheckedAt = kNow - 1min; })},
                  "v $4.99; . Read 1 min ago"},
        MarksCase{"RecordNewerInAnotherCurrency",
                  {.cached = record(3.99, "$3.99"), .watched = watch(9.99, 4.99, "EUR")},
                  "$3.99; . Read 12 min ago"},
        MarksCase{"FreeWhereTheRecordNamesNoPrice",
                  cachedFacts(with(record(0, ""), [](auto& app) { app.price.reset(); })),
                  "Free; . Read 12 min ago"},
        MarksCase{"NoLongerSoldThoughCheap",
                  watchedFacts(
                      with(watch(19.99, 9.99, "USD"), [](auto& app) { app.isUnavailable = true; }),
                      series({{19.99, moment(2026, 1, 1)}, {9.99, moment(2026, 2, 1)}}, "USD")),
                  "- No longer sold"},
        MarksCase{"TargetAndCheck",
                  watchedFacts(with(watch(9.99, 9.99, "USD"),
                                    [](auto& app) {
                                      app.targetPrice = 2.99;
                                      app.lastCheckedAt = kNow - 2h;
                                    })),
                  "$9.99; > Target $2.99; . Read 2 hours ago"},
        MarksCase{"TargetInAnotherCurrency",
                  watchedFacts(with(watch(9.99, 9.99, "EUR"),
                                    [](auto& app) {
                                      app.targetPrice = 2.99;
                                      app.targetCurrency = "BGN";
                                    })),
                  "€9.99"},
        MarksCase{"LowIsPast", cachedFacts(record(19.99, "$19.99"), kDipped),
                  "$19.99; _ Low $9.99, last on 8 Dec 2025; . Read 12 min ago"},
        MarksCase{"LowIsNow", cachedFacts(record(9.99, "$9.99"), kDipped),
                  "$9.99; _ At its lowest; . Read 12 min ago"},
        MarksCase{"LowerThanEverRecorded", cachedFacts(record(4.99, "$4.99"), kDipped),
                  "$4.99; _ At its lowest; . Read 12 min ago"},
        MarksCase{
            "LowInAnotherCurrency",
            cachedFacts(with(record(8, "8 €"), [](auto& app) { app.currency = "EUR"; }), kDipped),
            "8 €; . Read 12 min ago"},
        MarksCase{"NeverChanged",
                  cachedFacts(record(5, "$5.00"), series({{5, moment(2026, 1, 1)}}, "USD")),
                  "$5.00; . Read 12 min ago"},
        MarksCase{"OnceFree",
                  cachedFacts(record(5, "$5.00"),
                              series({{0, moment(2026, 1, 1)}, {5, moment(2026, 1, 3)}}, "USD")),
                  "$5.00; _ Free, last on 1 Jan; . Read 12 min ago"},
        MarksCase{"Record",
                  cachedFacts(with(record(4.99, "$4.99"),
                                   [](auto& app) {
                                     app.currentVersionReleaseDate = moment(2024, 1, 1);
                                     app.hasInAppPurchases = false;
                                     app.editorialBadge = "Editors’ Choice";
                                     app.rating = 4.14;
                                     app.ratingCount = 1204;
                                   })),
                  "$4.99; - Likely abandoned; - Pay once; ! Editors’ Choice; * 4.1 · 1,204; "
                  ". Read 12 min ago"},
        MarksCase{"MaintenanceUnwanted",
                  cachedFacts(with(record(4.99, "$4.99"),
                                   [](auto& app) {
                                     app.currentVersionReleaseDate = moment(2026, 11, 1);
                                   })),
                  "$4.99; . Read 12 min ago", false},
        MarksCase{"NobodyRated",
                  cachedFacts(with(record(0, "Free"),
                                   [](auto& app) {
                                     app.rating = 0;
                                     app.ratingCount = 0;
                                     app.ratingsUpdatedAt = kNow;
                                   })),
                  "Free; . No ratings yet; . Read 12 min ago"},
        MarksCase{"WhoRatedIsUnknown",
                  cachedFacts(with(record(0, "Free"), [](auto& app) { app.rating = 3.5; })),
                  "Free; * 3.5; . Read 12 min ago"},
        MarksCase{"OwnedAlone", {.owned = OwnedApp{}}, "- Price unknown; > In My Apps"},
        MarksCase{"HostileTexts",
                  cachedFacts(with(record(4.99, "$4\n.99\x1B[31m"),
                                   [](auto& app) {
                                     app.editorialBadge = "\xE2\x80\xAE<b>Best</b>\n&amp;";
                                   })),
                  "$4 .99[31m; ! <b>Best</b> &amp;; . Read 12 min ago"}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace quillet

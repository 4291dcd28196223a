// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "queries/chart_reading.h"

#include "query_test.h"
#include "support/store_requests.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

class ChartReadingTest : public QueryTest {
 protected:
  void answerChart(const Ids& ids) {
    http.answer("https://web.example/us/mac/charts/36", 200,
                fmt::format(R"(<script id="serialized-server-data">{{"data":{{"data":{{"segments":[
                  {{"chart":"top-free","shelves":[{{"items":[{{"adamId":{}}}]}}]}}]}}}}}}</script>)",
                            fmt::join(ids, R"(},{"adamId":)")));
  }
  static std::string lookupOf(const Ids& ids) {
    return lookup(fmt::format("{}", fmt::join(ids, ",")));
  }
  /// Apps with odd IDs cost something.
  void answerRecords(const Ids& asked, const Ids& known) {
    std::vector<std::string> apps;
    for (const std::int64_t id : known) {
      apps.push_back(fmt::format(
          R"({{"trackId":{0},"trackName":"App {0}","kind":"mac-software","price":{1}}})", id,
          id % 2));
    }
    http.answer(lookupOf(asked), 200, answer({apps.begin(), apps.end()}));
  }
  Task<ChartReading> start() {
    criteria.storefront = "us";
    criteria.timeZone = [](Instant) { return 0s; };
    return readChart({ChartType::topFree, Platform::mac, "us", {}}, criteria, services(), call(),
                     watch);
  }

  ExaminationCriteria criteria;
  RowWatch watch;
};

TEST_F(ChartReadingTest, MakesUpForAppsThatTheStoreDoesNotKnow) {
  criteria.limit = 2;
  answerChart(idsFrom(1, 200));
  answerRecords({1, 2}, {2});
  answerRecords(idsFrom(3, 100), idsFrom(3, 100));
  const ChartReading chart = runVirtual(clock, start());
  EXPECT_EQ(chart.ranks, (std::vector<std::size_t>{2, 3}));
  EXPECT_EQ(chart.apps.back().trackId, 3);
  EXPECT_EQ(progress, (std::vector<std::string>{"0/0", "0/200", "2/200"}));
}

TEST_F(ChartReadingTest, LooksUpWholeBatchesNoFurtherThanItTakes) {
  criteria.limit = 51;
  criteria.filters.price = PriceFilter::paid;
  answerChart(idsFrom(1, 250));
  answerRecords(idsFrom(1, 100), idsFrom(1, 100));
  answerRecords(idsFrom(101, 100), idsFrom(101, 100));
  const ChartReading chart = runVirtual(clock, start());
  EXPECT_EQ(chart.ranks.back(), 101U);
  EXPECT_EQ(chart.scanned, 101U);
}

TEST_F(ChartReadingTest, HandsOverPlacesAndStopsGentlyWhileItLooksUp) {
  criteria.limit = 60;
  criteria.filters.price = PriceFilter::paid;
  StopSource enough;
  std::vector<std::size_t> places;
  watch = {.found = [&](const ITunesApp&, std::size_t place) { places.push_back(place); },
           .enough = enough.token()};
  answerChart(idsFrom(1, 200));
  answerRecords(idsFrom(1, 100), {5, 7});
  http.hold(lookupOf(idsFrom(101, 100)));
  auto task = start();
  clock.advance(1s);
  EXPECT_EQ(places, (std::vector<std::size_t>{4, 6}));
  enough.requestStop();
  EXPECT_EQ(runVirtual(clock, std::move(task)).ranks, (std::vector<std::size_t>{5, 7}));
}

TEST_F(ChartReadingTest, KeepsWhatItFoundWhenStoppedGentlyInTheCatalog) {
  criteria.limit = 60;
  criteria.filters.purchases = PurchaseFilter::hasInAppPurchases;
  StopSource enough;
  std::vector<std::size_t> places;
  watch = {.found = [&](const ITunesApp&, std::size_t place) { places.push_back(place); },
           .enough = enough.token()};
  answerChart(idsFrom(1, 100));
  answerRecords(idsFrom(1, 100), idsFrom(1, 100));
  http.answer(sold(idsFrom(1, 50)), 200,
              catalogOf({5}, R"("views":{"top-in-app-purchasables":{"data":[
                  {"id":"p","attributes":{"name":"Pro"}}]}})"));
  http.hold(sold(idsFrom(51, 50)));
  auto task = start();
  clock.advance(1s);
  EXPECT_EQ(places, (std::vector<std::size_t>{4}));
  enough.requestStop();
  const ChartReading chart = runVirtual(clock, std::move(task));
  EXPECT_EQ(chart.ranks, (std::vector<std::size_t>{5}));
  EXPECT_EQ(chart.scanned, 50U);
}

}  // namespace
}  // namespace quillet

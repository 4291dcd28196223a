// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/price_seed_service.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "library/chart_orders.h"
#include "library/deals.h"
#include "library/library_folder.h"
#include "library/memory_library.h"
#include "library/recorded_history.h"
#include "library/watched_apps.h"
#include "store/records/price_seed_error.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Numbers = std::vector<std::int64_t>;

const std::string kBase = "https://prices.example/file/quillbase-prices/v1/";

std::string app(int id, double now, std::string_view day = "2026-03-12") {
  return fmt::format(R"({{"a":"{0}","n":"App {0}","s":"Birch","c":"USD","k":"software",)"
                     R"("p":[{{"d":"2026-03-02","v":4}},{{"d":"{1}","v":{2}}}]}})",
                     id, day, now);
}

std::string file(std::string_view stamp, const std::vector<std::string>& apps) {
  return fmt::format(R"({{"schema":1,"generatedAt":"{}","storefront":{{"apps":[{}]}}}})", stamp,
                     fmt::join(apps, ","));
}

Numbers numbersOf(const std::vector<Deal>& deals) {
  Numbers numbers;
  for (const Deal& deal : deals) numbers.push_back(deal.trackId);
  return numbers;
}

class PriceSeedServiceTest : public LibraryServiceTest {
 protected:
  void answerManifest(int status = 200) {
    http_.answer(kBase + "manifest.json", status,
                 R"({"schema":1,"storefronts":[{"country":"us",)"
                 R"("lookedAt":"2026-03-20T03:05:00Z"},{"country":"gb"}]})");
  }
  void answerFile(std::string_view country, std::string body, int status = 200) {
    http_.answer(fmt::format("{}changes-{}.json.gz", kBase, country), status, std::move(body));
  }
  SeedImportResult import(std::vector<std::string> countries = {"us"}, StopToken stop = {}) {
    return runTask(service_.importStorefronts(std::move(countries), std::move(stop)));
  }
  /// Imports a whole edition on a later day than the one before.
  SeedImportResult importEdition(std::string_view stamp, const std::vector<std::string>& apps) {
    clock_.setNow(clock_.now() + 20h);
    answerManifest();
    answerFile("us", file(stamp, apps));
    return import();
  }
  std::vector<Deal> deals() {
    return runTask(store_->read(dealsOf, DealQuery{"us", {}, 0, 0, 2000}));
  }

  PriceSeedClient client_{http_, "https://prices.example"};
  PriceSeedService service_{*store_, client_, settings_, clock_};
};

TEST_F(PriceSeedServiceTest, KeepsPointsAndDealsAndRemembersThatItDid) {
  const std::string stamp = "2026-03-20T03:00:00Z";
  EXPECT_EQ(importEdition(stamp, {app(9, 5), app(7, 2), app(8, 0)}),
            (SeedImportResult{1, 3, 6, {}}));
  const auto points = runTask(store_->read(pricePointsOf, std::vector<AppKey>{{7, "us"}}));
  ASSERT_EQ(points.size(), 2U);
  EXPECT_EQ(points[1], (PricePoint{points[1].id, 7, "us", 2, "USD", dayAndSecond(11), true}));
  const auto found = deals();
  ASSERT_EQ(numbersOf(found), (Numbers{8, 7}));
  EXPECT_EQ(found[1], (Deal{found[1].id, 7, "us", "App 7", "Birch", "software", "USD", 4, 2, 50,
                            dayAndSecond(11), 2, dayAndSecond(11), stamp}));
  EXPECT_EQ(settings_.text("priceSeedPublishedStorefronts"), "us,gb");
  EXPECT_EQ(settings_.text("priceSeedLastWebCheck.us"), "2026-03-21T20:00:00Z");
  EXPECT_EQ(settings_.text("priceSeedRemoteStamp.us"), stamp);
  EXPECT_EQ(settings_.text("priceSeedImportedStamp"), stamp);
  EXPECT_EQ(service_.lastLookAt("us"), parseInternetDate("2026-03-20T03:05:00Z"));
  EXPECT_EQ(service_.lastLookAt("gb"), std::nullopt);
}

TEST_F(PriceSeedServiceTest, AsksEachStorefrontOnceInTwentyHours) {
  settings_.set("priceSeedLastWebCheck.us", "2026-03-20T04:00:01Z");
  EXPECT_EQ(import(), SeedImportResult{});
  for (const char* last : {"2026-03-20T04:00:00Z", "2031-01-01T00:00:00Z", "soon"}) {
    settings_.set("priceSeedLastWebCheck.us", last);
    answerManifest();
    answerFile("us", "", 404);
    EXPECT_EQ(import().failures.size(), 1U) << last;
    EXPECT_EQ(settings_.text("priceSeedLastWebCheck.us"), "2026-03-21T00:00:00Z");
  }
}

TEST_F(PriceSeedServiceTest, SkipsAnEditionThatItHasAndReplacesAnOlderOnesDeals) {
  EXPECT_EQ(importEdition("monday", {app(7, 2), app(8, 1)}).storefronts, 1U);
  EXPECT_EQ(importEdition("monday", {app(7, 1)}), SeedImportResult{});
  EXPECT_EQ(numbersOf(deals()), (Numbers{8, 7}));
  const Deal own{.country = "us", .percentOff = 5, .changedOn = dayAndSecond(18)};
  std::vector<Deal> seen{own, own};
  seen[0].trackId = 10;
  seen[1].trackId = 11;
  runTask(store_->change(keepDeals, seen));
  runTask(store_->change(watchApps, std::vector{watched(10), watched(11, "gb")}));
  EXPECT_EQ(importEdition("tuesday", {app(7, 1, "2026-03-19"), app(9, 3), app(10, 1)}),
            (SeedImportResult{1, 3, 5, {}}));
  const auto found = deals();
  EXPECT_EQ(numbersOf(found), (Numbers{7, 9, 10})) << "8 is none any more; 10 was seen later here, "
                                                      "and so was 11, which nobody watches";
  EXPECT_EQ(found[0].percentOff, 75);
}

TEST_F(PriceSeedServiceTest, AStorefrontThatCannotBeReadEndsItselfAlone) {
  answerManifest();
  answerFile("gb", R"({"schema":2})");
  answerFile("us", file("monday", {app(7, 2)}));
  using Kind = PriceSeedError::Kind;
  const std::vector<SeedImportResult::Failure> failures{
      {"gb", Kind::failed, "The price data is newer than this build understands."},
      {"br", Kind::nothingPublished, "No price data published for 'br'."}};
  EXPECT_EQ(import({"gb", "br", "us"}), (SeedImportResult{1, 1, 2, failures}));
  answerManifest(500);
  EXPECT_THROW(import({"fr"}), PriceSeedError);
  EXPECT_EQ(settings_.text("priceSeedLastWebCheck.fr"), std::nullopt);
}

TEST_F(PriceSeedServiceTest, ImportsWhereItCannotKeepNotesAndAsksNoMoreOftenForThat) {
  settings_.refuseWrites("The settings could not be kept: no room");
  SeedImportResult expected{1, 2, 4, {}, "The settings could not be kept: no room"};
  EXPECT_EQ(importEdition("monday", {app(7, 2), app(8, 1)}), expected);
  EXPECT_EQ(numbersOf(deals()), (Numbers{8, 7}));
  clock_.setNow(clock_.now() + 20h - 1ms);
  EXPECT_EQ(import(), SeedImportResult{});
  expected = {.unkeptSettings = expected.unkeptSettings};
  EXPECT_EQ(importEdition("monday", {app(7, 1)}), expected);
}

TEST_F(PriceSeedServiceTest, WhatWasStoppedGoesOnAtTheNextRun) {
  std::vector<std::string> apps;
  for (int id = 1; id <= 4500; ++id) apps.push_back(app(id, 2));
  answerManifest();
  answerFile("us", file("monday", apps));
  StopSource stop;
  int pieces = 0;
  QObject::connect(store_.get(), &DataStore::changed, &context_,
                   [&](const LibraryChanges& changes) {
                     pieces += changes.prices.empty() ? 0 : 1;
                     if (pieces == 2) stop.requestStop();
                   });
  EXPECT_THROW(import({"us"}, stop.token()), NetworkError);
  const std::size_t kept = deals().size();
  EXPECT_TRUE(kept > 0 && kept < 4500) << kept << " deals are shown as they come";
  EXPECT_EQ(importEdition("monday", apps), (SeedImportResult{1, 500, 1000, {}}));
}

using Deals = MemoryLibraryTest;

TEST_F(Deals, AreReadPieceByPieceAndByKind) {
  const Instant days[] = {dayAndSecond(1), dayAndSecond(2), dayAndSecond(3)};
  keepDeals(transaction_, {{0, 1, "us", "c", {}, {}, {}, 4, 3.6016, 10, days[2]},
                           {0, 2, "us", "B", {}, {}, {}, 4, 2, 50, days[0]},
                           {0, 3, "us", "a", {}, "mac-software", {}, 1, 0, 50, days[0]},
                           {0, 4, "us", "c", {}, "software", {}, 2, 1, 50, days[1]},
                           {0, 5, "us", "c", {}, {}, {}, 4, 2, 50, days[0]},
                           {0, 6, "gb", "c", {}, {}, {}, 1, 0, 50, days[0]}});
  const struct {
    DealQuery query;
    Numbers expected;
    std::int64_t count;
  } rows[] = {
      {{"us", {}, 50, 1, 2}, {3, 2}, 4},
      {{"us", {}, 10, 0, 9}, {4, 3, 2, 5}, 4},  // 1 is shown as 10 %, but is less
      {{"us", Platform::mac, 0, 0, 9}, {3}, 1},
      {{"us", Platform::ipad, 0, 0, 9}, {4, 2, 5, 1}, 4},
      {{"us", {}, 0, 0, 9, DealOrder::newest}, {1, 4, 3, 2, 5}, 5},
      {{"us", {}, 0, 0, 9, DealOrder::price}, {3, 4, 2, 5, 1}, 5},
      {{"us", {}, 0, 0, 9, DealOrder::name}, {3, 2, 4, 5, 1}, 5},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(numbersOf(dealsOf(database_, row.query)), row.expected);
    EXPECT_EQ(dealCount(database_, row.query), row.count);
  }
  EXPECT_EQ(takeChanges().deals, (std::set<std::string>{"gb", "us"}));
}

struct PickCase {
  const char* what;
  DealPick pick;
  Numbers expected;
};

class PickedDeals : public Deals, public testing::WithParamInterface<PickCase> {};

TEST_P(PickedDeals, AreThoseThatFulfilAll) {
  keepDeals(transaction_, {{0, 1, "us", "Paperfold", "Hazelworks", {}, {}, 4, 0, 100, {}, 0},
                           {0, 2, "us", "ÉCLAIR  Öffner", "Ba_nk", {}, {}, 4, 2, 50, {}, 1.9995},
                           {0, 3, "us", "Kestrel", "paper mill", {}, {}, 4, 3, 25, {}, 1},
                           {0, 4, "us", {}, {}, {}, {}, 5, 4, 20, {}, 4},
                           {0, 2, "de", "Paperfold", {}, {}, {}, 4, 0, 100, {}, 0}});
  watchApps(transaction_, {watched(3), watched(1, "de"), watched(2)});
  const auto snapshot = [](const char* key, int day, std::vector<std::int64_t> apps) {
    return ChartSnapshot{
        .chartKey = key, .country = "us", .day = dayAndSecond(day), .trackIds = std::move(apps)};
  };
  addSnapshots(transaction_, {snapshot("chart-mac-topFree-us-0", 1, {1}),
                              snapshot("chart-mac-topFree-us-0", 2, {2, 99}),
                              snapshot("chart-mac-topPaid-us-0", 1, {3})});
  cacheChart(transaction_, "chart-mac-topPaid-us-6007", {4}, dayAndSecond(3));
  cacheChart(transaction_, "chart-mac-topPaid-de-6007", {1}, dayAndSecond(3));
  const PickCase& asked = GetParam();
  DealQuery query{.country = "us", .platform = {}, .pick = asked.pick};
  EXPECT_EQ(numbersOf(dealsOf(database_, query)), asked.expected) << asked.what;
  EXPECT_EQ(dealCount(database_, query), static_cast<std::int64_t>(asked.expected.size()));
}

INSTANTIATE_TEST_SUITE_P(
    All, PickedDeals,
    testing::Values(
        PickCase{"any", {}, {1, 2, 3, 4}}, PickCase{"free", {.isFree = true}, {1}},
        PickCase{"at the lowest, by a hair", {.isAtLowest = true}, {1, 2, 4}},
        PickCase{"watched in this storefront", {.isWatched = true}, {2, 3}},
        PickCase{"in a chart as it was last", {.isInChart = true}, {2, 3, 4}},
        PickCase{"text in the name or the seller's", {.text = "PAPER"}, {1, 3}},
        PickCase{"other letters, folded", {.text = "éclair ÖFF"}, {2}},
        PickCase{"no wildcard", {.text = "a_n"}, {2}}, PickCase{"nor this", {.text = "%"}, {}},
        PickCase{"all of it", {.isAtLowest = true, .isWatched = true, .text = "öffner"}, {2}}));

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/price_seed_service.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "library/deals.h"
#include "library/import_records.h"
#include "library/library_folder.h"
#include "library/memory_library.h"
#include "library/recorded_history.h"
#include "store/records/price_data_error.h"
#include "support/hand_clock.h"
#include "support/memory_settings.h"
#include "support/scripted_http_client.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Numbers = std::vector<std::int64_t>;

const std::string kBase = "https://prices.example/file/quillbase-prices/v1/";

std::string app(int id, double now, std::string_view day = "2026-03-12") {
  return fmt::format(
      R"({{"a":"{}","n":"App {}","s":"Birch","c":"USD","k":"{}",
        "p":[{{"d":"2026-03-02","v":4}},{{"d":"{}","v":{}}}]}})",
      id, id, id % 2 == 0 ? "software" : "mac-software", day, now);
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

class PriceSeedServiceTest : public testing::Test {
 protected:
  PriceSeedServiceTest() { clock.setNow(parseInternetDate("2026-03-20T06:00:00Z").value()); }

  void answerManifest() {
    http.answer(kBase + "manifest.json", 200,
                R"({"schema":1,"storefronts":[{"country":"us"},{"country":"gb"}]})");
  }
  void answerFile(std::string_view country, std::string body, int status = 200) {
    http.answer(fmt::format("{}changes-{}.json.gz", kBase, country), status, std::move(body));
  }
  /// A later day.
  void passADay() { clock.setNow(clock.now() + 20h); }

  SeedImportResult import(std::vector<std::string> countries = {"us"}, StopToken stop = {}) {
    return runTask(service.importStorefronts(std::move(countries), std::move(stop)));
  }
  std::vector<Deal> deals(double minimumDrop = 0) {
    return runTask(store->read(dealsOf, DealQuery{"us", {}, minimumDrop, 0, 2000}));
  }
  std::vector<PricePoint> pricesOf(std::int64_t trackId) {
    return runTask(store->read(pricePointsOf, std::vector<AppKey>{{trackId, "us"}}));
  }

  LibraryFolder folder;
  std::unique_ptr<DataStore> store = folder.open();
  HandClock clock;
  ScriptedHttpClient http;
  PriceDataClient client{http, "https://prices.example"};
  MemorySettings settings;
  PriceSeedService service{*store, client, settings, clock};
};

TEST_F(PriceSeedServiceTest, KeepsPointsAndDealsAndRemembersThatItDid) {
  const PricePoint own{0, 7, "us", 4, "USD", dayAndSecond(1, 86399), false};
  runTask(store->change(addPricePoints, std::vector{own}));
  answerManifest();
  answerFile("us", file("2026-03-20T03:00:00Z", {app(9, 5), app(7, 2), app(8, 0)}));
  EXPECT_EQ(import(), (SeedImportResult{1, 3, 5, {}}));

  const auto points = pricesOf(7);
  ASSERT_EQ(points.size(), 2U) << "the day that was observed is not imported";
  EXPECT_FALSE(points[0].isBackfill);
  PricePoint imported{points[1].id, 7, "us", 2, "USD", dayAndSecond(11), true};
  EXPECT_EQ(points[1], imported);

  const auto found = deals();
  ASSERT_EQ(numbersOf(found), (Numbers{8, 7}));
  EXPECT_EQ(found[1], (Deal{found[1].id, 7, "us", "App 7", "Birch", "mac-software", "USD", 4, 2, 50,
                            dayAndSecond(11), 2, dayAndSecond(11), "2026-03-20T03:00:00Z"}));
  EXPECT_EQ(settings.text("priceSeedPublishedStorefronts"), "us,gb");
  EXPECT_EQ(settings.text("priceSeedLastWebCheck.us"), "2026-03-20T06:00:00Z");
  EXPECT_EQ(settings.text("priceSeedRemoteStamp.us"), "2026-03-20T03:00:00Z");
  EXPECT_EQ(settings.text("priceSeedImportedStamp"), "2026-03-20T03:00:00Z");
  EXPECT_EQ(runTask(store->read(importRecord, std::string("prices-us")))->stamp,
            "2026-03-20T03:00:00Z");
}

TEST_F(PriceSeedServiceTest, AsksEachStorefrontOnceInTwentyHours) {
  settings.set("priceSeedLastWebCheck.us", "2026-03-19T10:00:01Z");
  EXPECT_EQ(import({"us"}), SeedImportResult{});
  EXPECT_TRUE(http.requests().empty());
  for (const char* last : {"2026-03-19T10:00:00Z", "2031-01-01T00:00:00Z", "soon"}) {
    settings.set("priceSeedLastWebCheck.us", last);
    answerManifest();
    answerFile("us", "", 404);
    EXPECT_EQ(import().failures.size(), 1U) << last;
    EXPECT_EQ(settings.text("priceSeedLastWebCheck.us"), "2026-03-20T06:00:00Z");
  }
}

TEST_F(PriceSeedServiceTest, SkipsAnEditionThatItHasAndReplacesAnOlderOnesDeals) {
  answerManifest();
  answerFile("us", file("monday", {app(7, 2), app(8, 1)}));
  EXPECT_EQ(import().storefronts, 1U);
  passADay();
  answerManifest();
  answerFile("us", file("monday", {app(7, 1)}));
  EXPECT_EQ(import(), SeedImportResult{});
  EXPECT_EQ(numbersOf(deals()), (Numbers{8, 7}));

  Deal own;
  own.trackId = 10;
  own.country = "us";
  own.percentOff = 5;
  own.changedOn = dayAndSecond(18);
  runTask(store->change(keepDeals, std::vector{own}));
  passADay();
  answerManifest();
  answerFile("us", file("tuesday", {app(7, 1, "2026-03-19"), app(9, 3), app(10, 1)}));
  EXPECT_EQ(import(), (SeedImportResult{1, 3, 5, {}}));
  const auto found = deals();
  EXPECT_EQ(numbersOf(found), (Numbers{7, 9, 10})) << "8 is none any more; 10 was seen later here";
  EXPECT_EQ(found[0].percentOff, 75);
  EXPECT_EQ(numbersOf(deals(25)), (Numbers{7, 9}));
}

TEST_F(PriceSeedServiceTest, AStorefrontThatCannotBeReadEndsItselfAlone) {
  answerManifest();
  answerFile("gb", R"({"schema":2})");
  answerFile("us", file("monday", {app(7, 2)}));
  const SeedImportResult result = import({"gb", "br", "us"});
  EXPECT_EQ(result.storefronts, 1U);
  EXPECT_EQ(result.failures, (std::vector<SeedImportResult::Failure>{
                                 {"gb", "The price data is newer than this build understands."},
                                 {"br", "No price data published for 'br'."}}));
  // Without a manifest the file itself is asked for.
  http.answer(kBase + "manifest.json", 404, "");
  answerFile("de", file("monday", {app(7, 2)}));
  EXPECT_EQ(import({"de"}).storefronts, 1U);
  http.answer(kBase + "manifest.json", 500, "");
  EXPECT_THROW(import({"fr"}), PriceDataError);
  EXPECT_EQ(settings.text("priceSeedLastWebCheck.fr"), std::nullopt);
}

TEST_F(PriceSeedServiceTest, WhatWasStoppedGoesOnAtTheNextRun) {
  std::vector<std::string> apps;
  for (int id = 1; id <= 4500; ++id) apps.push_back(app(id, 2));
  answerManifest();
  answerFile("us", file("monday", apps));
  StopSource stop;
  QObject context;
  int pieces = 0;
  QObject::connect(store.get(), &DataStore::changed, &context, [&](const LibraryChanges& changes) {
    pieces += changes.prices.empty() ? 0 : 1;
    if (pieces == 2) stop.requestStop();
  });
  EXPECT_THROW(import({"us"}, stop.token()), NetworkError);
  EXPECT_EQ(pieces, 2);
  const std::size_t kept = deals().size();
  EXPECT_TRUE(kept > 0 && kept < 4500) << kept << " deals are shown as they come";

  answerManifest();
  answerFile("us", file("monday", apps));
  EXPECT_EQ(import(), (SeedImportResult{1, 500, 1000, {}}));
}

TEST(Deals, AreReadPieceByPieceAndByKind) {
  MemoryLibrary library;
  std::vector<Deal> deals;
  for (std::int64_t id = 1; id <= 6; ++id) {
    Deal deal;
    deal.trackId = id;
    deal.country = id == 6 ? "gb" : "us";
    deal.name = id == 2 ? "b" : id == 3 ? "A" : "c";
    deal.percentOff = id == 1 ? 10 : 50;
    deal.changedOn = dayAndSecond(id == 4 ? 2 : 1);
    if (id == 3) deal.kind = "mac-software";
    if (id == 4) deal.kind = "software";
    deals.push_back(deal);
  }
  keepDeals(library.transaction, deals);
  const struct {
    DealQuery query;
    Numbers expected;
  } rows[] = {
      {{"us", {}, 0, 0, 9}, {4, 3, 2, 5, 1}},
      {{"us", {}, 50, 1, 2}, {3, 2}},
      {{"us", Platform::mac, 0, 0, 9}, {3}},
      {{"us", Platform::ipad, 0, 0, 9}, {4, 2, 5, 1}},
      {{"fr", {}, 0, 0, 9}, {}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(numbersOf(dealsOf(library.database, row.query)), row.expected);
  }
  EXPECT_EQ(library.takeChanges().deals, (std::set<std::string>{"gb", "us"}));
}

}  // namespace
}  // namespace quillet

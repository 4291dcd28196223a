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
#include "library/watched_apps.h"
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
  answerManifest();
  answerFile("us", file("2026-03-20T03:00:00Z", {app(9, 5), app(7, 2), app(8, 0)}));
  EXPECT_EQ(import(), (SeedImportResult{1, 3, 6, {}}));

  const auto points = pricesOf(7);
  ASSERT_EQ(points.size(), 2U);
  EXPECT_EQ(points[1], (PricePoint{points[1].id, 7, "us", 2, "USD", dayAndSecond(11), true}));

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

  const auto own = [](std::int64_t trackId) {
    return Deal{
        .trackId = trackId, .country = "us", .percentOff = 5, .changedOn = dayAndSecond(18)};
  };
  runTask(store->change(keepDeals, std::vector{own(10), own(11)}));
  runTask(store->change(watchApps, std::vector{watched(10), watched(11, "gb")}));
  passADay();
  answerManifest();
  answerFile("us", file("tuesday", {app(7, 1, "2026-03-19"), app(9, 3), app(10, 1)}));
  EXPECT_EQ(import(), (SeedImportResult{1, 3, 5, {}}));
  const auto found = deals();
  EXPECT_EQ(numbersOf(found), (Numbers{7, 9, 10})) << "8 is none any more; 10 was seen later here, "
                                                      "and so was 11, which nobody watches";
  EXPECT_EQ(found[0].percentOff, 75);
  EXPECT_EQ(numbersOf(deals(25)), (Numbers{7, 9}));
}

TEST_F(PriceSeedServiceTest, AStorefrontThatCannotBeReadEndsItselfAlone) {
  answerManifest();
  answerFile("gb", R"({"schema":2})");
  answerFile("us", file("monday", {app(7, 2)}));
  const SeedImportResult result = import({"gb", "br", "us"});
  EXPECT_EQ(result.storefronts, 1U);
  using Kind = PriceDataError::Kind;
  EXPECT_EQ(result.failures,
            (std::vector<SeedImportResult::Failure>{
                {"gb", Kind::failed, "The price data is newer than this build understands."},
                {"br", Kind::nothingPublished, "No price data published for 'br'."}}));
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
    deal.name = id == 2 ? "B" : id == 3 ? "a" : "c";
    deal.percentOff = id == 1 ? 10 : 50;
    deal.nowPrice = id == 1 ? 3.6016 : static_cast<double>(id % 3);
    deal.wasPrice = id == 1 ? 4 : deal.nowPrice * 2;
    deal.changedOn = dayAndSecond(id == 1 ? 3 : id == 4 ? 2 : 1);
    if (id == 3) deal.kind = "mac-software";
    if (id == 4) deal.kind = "software";
    deals.push_back(deal);
  }
  keepDeals(library.transaction, deals);
  const struct {
    DealQuery query;
    Numbers expected;
    std::int64_t count;
  } rows[] = {
      {{"us", {}, 0, 0, 9}, {4, 3, 2, 5, 1}, 5},
      {{"us", {}, 50, 1, 2}, {3, 2}, 4},
      {{"us", {}, 10, 0, 9}, {4, 3, 2, 5}, 4},  // 1 is shown as 10 %, but is less
      {{"us", Platform::mac, 0, 0, 9}, {3}, 1},
      {{"us", Platform::ipad, 0, 0, 9}, {4, 2, 5, 1}, 4},
      {{"fr", {}, 0, 0, 9}, {}, 0},
      {{"us", {}, 0, 0, 9, DealOrder::newest}, {1, 4, 3, 2, 5}, 5},
      {{"us", {}, 0, 0, 9, DealOrder::price}, {3, 4, 2, 5, 1}, 5},
      {{"us", {}, 0, 0, 9, DealOrder::name}, {3, 2, 4, 5, 1}, 5},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(numbersOf(dealsOf(library.database, row.query)), row.expected);
    EXPECT_EQ(dealCount(library.database, row.query), row.count);
  }
  EXPECT_EQ(library.takeChanges().deals, (std::set<std::string>{"gb", "us"}));
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/owned_lookup.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "library/library_folder.h"
#include "library/owned_apps.h"
#include "library/storefront_check.h"
#include "library/watched_apps.h"
#include "net/outcome.h"
#include "store/records/itunes_error.h"
#include "support/event_loop.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

class OwnedLookupTest : public LibraryServiceTest {
 protected:
  void own(std::int64_t trackId, const std::string& platform, const std::string& country = "us") {
    OwnedApp app = owned(trackId, fmt::format("app{}", trackId));
    app.platformRaw = platform;
    app.country = country;
    app.storeVersion = "1";
    runTask(store_->change(addOwnedApps, std::vector{app}));
  }
  void answer(std::string_view ids, std::string_view records, std::string_view country = "us") {
    http_.answer(fmt::format("https://store.example/lookup?id={}&country={}", ids, country), 200,
                 fmt::format(R"({{"results":[{}]}})", records));
  }
  void answerBuilds(std::string_view ids, int status, std::string body) {
    http_.answer(fmt::format("https://web.example/api/apps/v1/catalog/us/apps?ids={}&platform=mac"
                             "&extend=versionHistory&l=en-US",
                             ids),
                 status, std::move(body));
  }
  static std::string record(std::int64_t trackId, std::string_view kind) {
    return fmt::format(R"({{"trackId":{},"kind":"{}","trackName":"A","version":"2"}})", trackId,
                       kind);
  }
  /// However long it waits for the store.
  void look() {
    auto outcome = std::make_shared<Outcome<void>>();
    const Task<> settling = settle<void>(lookup_.look(stop_.token()), outcome, [] {});
    waitFor([&] {
      while (clock_.advanceToNextDeadline()) {
      }
      return outcome->isSet();
    });
    outcome->take();
  }
  /// "1 v2 there; 2 v1 gone; ", by name.
  std::string told() {
    std::string text;
    for (const OwnedApp& app : runTask(store_->read(ownedApps))) {
      text += fmt::format("{} v{} ", app.trackId, app.storeVersion.value_or("-"));
      text += !app.isUnavailable ? "unknown; " : *app.isUnavailable ? "gone; " : "there; ";
    }
    return text;
  }

  StopSource stop_;
  ITunesClient itunes_{http_, clock_, "https://store.example"};
  CatalogClient catalog_{http_, clock_, "https://web.example", [] { return 0.5; }, {}};
  ChartsPageScraper chartPages_{http_, "https://web.example"};
  ChartsService charts_{itunes_, chartPages_, "https://store.example"};
  StoreScraper pages_{http_, clock_, "https://web.example", {}};
  OwnedLookup lookup_{*store_, {itunes_, catalog_, charts_, pages_, clock_}};
};

TEST_F(OwnedLookupTest, KnowsWhatIsGoneByTheBuildThatIsOwned) {
  own(1, "mac");
  own(2, "mac");
  own(3, "mac");     // there for the phone alone
  own(4, "iphone");  //
  own(5, "ipad", "de");
  own(6, "unheard of");
  answer("1,2,3,4,6", record(1, "mac-software") + "," + record(3, "software") + "," +
                          record(4, "software") + "," + record(6, "mac-software"));
  answerBuilds(
      "3", 200,
      R"({"data":[{"id":"3","attributes":{"deviceFamilies":["iphone"],"versionHistory":[{"versionDisplay":"2"}]}}]})");
  answer("5", "", "de");
  look();
  EXPECT_EQ(told(), "1 v2 there; 2 v1 gone; 3 v1 gone; 4 v2 there; 5 v1 gone; 6 v1 unknown; ");
  EXPECT_EQ(http_.requests().front().requestClass, RequestClass::background);

  // A day later one is back, and the catalog does not say of another.
  clock_.advance(23h);
  look();
  clock_.advance(1h);
  answer("1,2,3,4,6",
         record(2, "mac-software") + "," + record(3, "software") + "," + record(4, "software"));
  answerBuilds("3", 404, "");
  answer("5", record(5, "software"), "de");
  look();
  EXPECT_EQ(told(), "1 v2 gone; 2 v2 there; 3 v1 gone; 4 v2 there; 5 v2 there; 6 v1 gone; ");
}

TEST_F(OwnedLookupTest, WaitsWhereTheStoreLimitsRequestsAndKeepsWhatCameBefore) {
  own(1, "mac", "de");
  own(2, "mac", "us");
  answer("1", record(1, "mac-software"), "de");
  const std::string second = "https://store.example/lookup?id=2&country=us";
  for (int i = 0; i < 3; ++i) http_.answer(second, 403, "");
  EXPECT_THROW(look(), ITunesError);
  EXPECT_EQ(told(), "1 v2 there; 2 v1 unknown; ");
  EXPECT_EQ(clock_.waits(), (std::vector<std::chrono::milliseconds>{20s, 45s}));
  http_.answer(second, 403, "");
  answer("2", record(2, "mac-software"));
  look();
  EXPECT_EQ(told(), "1 v2 there; 2 v2 there; ");
}

TEST_F(OwnedLookupTest, NeedsNoLookupOfWhatAPriceCheckAskedFor) {
  for (const std::int64_t each : {1, 2, 3}) {
    own(each, "mac");
    runTask(store_->change(watchApps, std::vector{watched(each)}));
  }
  ITunesApp there{.trackId = 1};
  there.kind = "mac-software";
  there.version = "3";
  ITunesApp phone = there;
  phone.trackId = 3;
  phone.kind = "software";
  const StorefrontCheck check{.country = "us",
                              .when = clock_.now(),
                              .asked = {1, 2, 3},
                              .found = {there, phone},
                              .priceText = [](double, const auto&) { return std::string(); }};
  runTask(store_->change(recordStorefrontCheck, check));
  EXPECT_EQ(told(), "1 v3 there; 2 v1 gone; 3 v1 unknown; ");
  answer("3", "");
  look();
  EXPECT_EQ(told(), "1 v3 there; 2 v1 gone; 3 v1 gone; ");
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/page_controller.h"

#include <QSignalSpy>

#include "library/store_rows.h"
#include "page_fixture.h"
#include "system/settings_keys.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

constexpr std::int64_t kDraftlark = 7;
const AppKey kKey{kDraftlark, "us"};

const std::string kRecord =
    R"({"trackId":7,"trackName":"Draftlark","kind":"mac-software","price":14.99,)"
    R"("formattedPrice":"$14.99","currency":"USD"})";
const std::string kCatalogAnswer =
    R"({"data":[{"id":"7","attributes":{"editorialNotes":{"tagline":"Draws on"},)"
    R"("chartPositions":{"appStore":{"chart":"Top Paid Apps","genreName":"Utilities",)"
    R"("position":2}}}}]})";

class PageControllerTest : public PageTest {
 protected:
  PageControllerTest() { openStore(); }

  static ITunesApp record() {
    return {.trackId = kDraftlark, .trackName = "Draftlark", .kind = "mac-software", .price = 9.99};
  }
  void shelve(std::chrono::milliseconds age) {
    parts_.records.keep(kKey, {record(), Platform::mac, kNow - age});
  }
  void keepInLibrary(std::chrono::milliseconds age) {
    change([=](WriteTransaction& transaction) {
      recordView(transaction, cachedAppOf(record(), {"us", Platform::mac, kNow - age}), kNow - 48h);
    });
  }
  void answerLookup() { http_.answer(lookup_, 200, ScriptedStore::found(kRecord)); }
  void answerCatalog() { http_.answer(catalog_, 200, kCatalogAnswer); }

  /// The app is shown until all that can be known at once is.
  void look(const AppKey& app = kKey) {
    controller_->setSeen(true);
    controller_->show(app);
    settle();
    clock_.advance(300ms);
    settle();
  }
  [[nodiscard]] std::string strip() const {
    const auto strip = stripOf(controller_->state(), clock_.now());
    return strip ? strip->text.toStdString() : "";
  }
  std::vector<CachedApp> views() {
    return runTask(store_->read([](SQLite::Database& database) {
      std::vector<CachedApp> rows = cachedAppsOf(database, {kKey});
      std::erase_if(rows, [](const CachedApp& row) { return row.lastViewedAt < kNow; });
      return rows;
    }));
  }
  std::vector<RankPoint> ranks() { return runTask(store_->read(rankPointsOf, std::vector{kKey})); }

  const std::string lookup_ = ScriptedStore::lookupUrl(kDraftlark);
  const std::string catalog_ = ScriptedStore::catalogUrl(kDraftlark);
  std::unique_ptr<PageController> controller_ = std::make_unique<PageController>(world());
};

struct KnownCase {
  std::string name;
  std::optional<std::chrono::milliseconds> shelved;    ///< how old the record on the shelf is
  std::optional<std::chrono::milliseconds> inLibrary;  ///< and the one in the library
  bool keepsCatalog = false;
  std::string asked;
};

class PageControllerAgesTest : public PageControllerTest,
                               public testing::WithParamInterface<KnownCase> {};

TEST_P(PageControllerAgesTest, AsksForWhatIsOldOrMissingAlone) {
  const KnownCase& known = GetParam();
  if (known.keepsCatalog) {
    answerCatalog();
    runTask(web_.catalog.enrichment(kDraftlark, "us", Platform::mac, {}));
  }
  if (known.shelved) shelve(*known.shelved);
  if (known.inLibrary) keepInLibrary(*known.inLibrary);
  std::size_t earlier = http_.requests().size();
  const bool looksUp = known.asked.starts_with("lookup");
  if (looksUp) answerLookup();
  if (known.asked.ends_with("catalog")) answerCatalog();
  look();
  std::string asked;
  for (; earlier < http_.requests().size(); ++earlier) {
    if (!asked.empty()) asked += ' ';
    asked += http_.requests()[earlier].url == lookup_ ? "lookup" : "catalog";
  }
  EXPECT_EQ(asked, known.asked);
  EXPECT_EQ(controller_->facts()->store->app.record.tagline, "Draws on");
  EXPECT_EQ(controller_->facts()->cached->price, looksUp ? 14.99 : 9.99);
}

INSTANTIATE_TEST_SUITE_P(
    Ages, PageControllerAgesTest,
    testing::Values(KnownCase{"Nothing", {}, {}, false, "lookup catalog"},
                    KnownCase{"YoungOnTheShelf", 59min, {}, false, "catalog"},
                    KnownCase{"OldOnTheShelf", 60min, {}, false, "lookup catalog"},
                    KnownCase{"YoungerInTheLibrary", 3h, 5min, false, "catalog"},
                    KnownCase{"AllYoung", 5min, 3h, true, ""},
                    KnownCase{"OldButTheCatalogKept", {}, 2h, true, "lookup"}),
    [](const auto& each) { return each.param.name; });

TEST_F(PageControllerTest, AsksNothingOfAppsThatArePassedOrOfAPageThatIsNotSeen) {
  controller_->setSeen(true);
  for (std::int64_t app = 1; app <= 200; ++app) {
    controller_->show(AppKey{app, "us"});
    handlePendingEvents();
    clock_.advance(299ms);
  }
  controller_->setSeen(false);
  clock_.advance(1h);
  controller_->show(kKey);
  settle();
  clock_.advance(1h);
  EXPECT_TRUE(http_.requests().empty());
  answerLookup();
  answerCatalog();
  controller_->setSeen(true);
  clock_.advance(300ms);
  settle();
  EXPECT_EQ(http_.requests().size(), 2);
}

TEST_F(PageControllerTest, OfAnAppThatIsLeftKeepsTheRecordThatCame) {
  answerLookup();
  http_.hold(catalog_);
  shelve(2h);
  look();
  EXPECT_EQ(controller_->facts()->cached->price, 14.99) << "before the rest of the answers";
  EXPECT_EQ(controller_->facts()->store, nullptr);
  controller_->show(AppKey{8, "us"});
  http_.release(catalog_);
  settle();
  EXPECT_EQ(controller_->facts()->app.trackId, 8);
  EXPECT_EQ(controller_->facts()->store, nullptr);
  EXPECT_EQ(parts_.records.find(kKey)->app.price, 14.99);
  EXPECT_TRUE(views().empty());
}

TEST_F(PageControllerTest, NotesAVisitAndARankOnce) {
  QSignalSpy changed(&library_, &LibraryGateway::changed);
  answerLookup();
  answerCatalog();
  look();
  ASSERT_EQ(views().size(), 1);
  EXPECT_EQ(views().front().tagline, "Draws on");
  EXPECT_EQ(views().front().lastViewedAt, clock_.now());
  EXPECT_EQ(changed.size(), 1) << "what it writes makes it write nothing again";
  const Instant visited = clock_.now();
  clock_.advance(5min);
  answerLookup();
  answerCatalog();
  controller_->refresh();
  settle();
  EXPECT_EQ(views().front().lastViewedAt, visited);
  EXPECT_EQ(views().front().updatedAt, clock_.now());
  const std::vector<RankPoint> points = ranks();
  ASSERT_EQ(points.size(), 1);
  EXPECT_EQ(points.front().chart, "Top Paid Apps");
  EXPECT_EQ(points.front().genreName, "Utilities");
  EXPECT_EQ(points.front().position, 2);
  controller_->show(std::nullopt);
  look();
  EXPECT_GT(views().front().lastViewedAt, visited);
  EXPECT_EQ(ranks().size(), 1) << "a place that is still known was not read anew";
}

TEST_F(PageControllerTest, NotesNoVisitWithoutAHistoryOrWithoutYoungFacts) {
  keepInLibrary(3h);
  http_.answer(lookup_, 404, "");
  answerCatalog();
  look();
  EXPECT_TRUE(views().empty());
  settings_.set(kKeepHistory.key, "false");
  answerLookup();
  controller_->act(StripAction::tryAgain);
  settle();
  EXPECT_TRUE(views().empty());
  EXPECT_TRUE(ranks().empty());
  EXPECT_EQ(controller_->facts()->store->asOf, clock_.now());
}

TEST_F(PageControllerTest, KeepsWhatIsKnownWhileTheStoreLimitsRequestsAndRecovers) {
  keepInLibrary(3h);
  http_.answer(lookup_, 403, "");
  answerCatalog();
  look();
  EXPECT_EQ(strip(), "Apple is limiting requests. Trying again in 20 s.");
  EXPECT_EQ(controller_->facts()->cached->price, 9.99);
  answerLookup();
  clock_.advance(20s);
  settle();
  EXPECT_EQ(strip(), "");
  EXPECT_EQ(controller_->facts()->cached->price, 14.99);
  EXPECT_TRUE(controller_->facts()->store->catalog);
  EXPECT_EQ(views().size(), 1);
}

TEST_F(PageControllerTest, WithoutTheCatalogTellsWhatTheRecordSays) {
  answerLookup();
  http_.answer(catalog_, 404, "");
  look();
  EXPECT_NE(strip(), "");
  EXPECT_FALSE(controller_->facts()->store->catalog);
  EXPECT_EQ(views().size(), 1);
  answerCatalog();
  controller_->act(StripAction::tryAgain);
  settle();
  EXPECT_EQ(strip(), "");
  EXPECT_EQ(controller_->facts()->cached->tagline, "Draws on");
  EXPECT_EQ(ranks().size(), 1) << "of the same visit";
}

TEST_F(PageControllerTest, TellsWhatAYoungRecordSaysWhereTheCatalogFails) {
  shelve(5min);
  http_.answer(catalog_, 404, "");
  look();
  ASSERT_NE(controller_->facts()->store, nullptr);
  EXPECT_FALSE(controller_->facts()->store->catalog);
  QSignalSpy changed(&library_, &LibraryGateway::changed);
  answerCatalog();
  controller_->act(StripAction::tryAgain);
  settle();
  EXPECT_EQ(changed.size(), 1);
  controller_->setSeen(false);
  controller_->setSeen(true);
  clock_.advance(300ms);
  settle();
  EXPECT_EQ(changed.size(), 1) << "who comes back to a page learns nothing new";
}

TEST_F(PageControllerTest, SaysThatTheStorefrontHasTheAppNoLonger) {
  keepInLibrary(3h);
  http_.answer(lookup_, 200, ScriptedStore::found(""));
  http_.answer(catalog_, 404, "");
  look();
  EXPECT_EQ(strip(), "Not sold in the us storefront any more.");
  EXPECT_TRUE(controller_->facts()->isGone);
  EXPECT_EQ(controller_->facts()->cached->price, 9.99);
}

TEST_F(PageControllerTest, AsksForTheBuildThatAListMeans) {
  WatchedApp app = watched(kDraftlark);
  change(watchApps, std::vector{app});
  http_.answer(lookup_, 200,
               ScriptedStore::found(
                   R"({"trackId":7,"trackName":"Draftlark","kind":"software","version":"9.1"})"));
  answerCatalog();
  look();
  EXPECT_EQ(controller_->facts()->store->app.platform, Platform::mac);
  EXPECT_EQ(controller_->facts()->cached->version, std::nullopt) << "that of the iPhone's build";
}

TEST_F(PageControllerTest, KeepsWhatTheStoreToldOfThreeApps) {
  answerLookup();
  answerCatalog();
  look();
  const std::weak_ptr<const StoreFacts> first = controller_->facts()->store;
  for (const std::int64_t id : {11, 12, 13}) {
    EXPECT_FALSE(first.expired());
    http_.answer(ScriptedStore::lookupUrl(id), 200,
                 ScriptedStore::found(fmt::format(
                     R"({{"trackId":{},"trackName":"Other","kind":"mac-software"}})", id)));
    http_.answer(ScriptedStore::catalogUrl(id), 200, R"({"data":[]})");
    look({id, "us"});
  }
  EXPECT_TRUE(first.expired());
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/store_feed.h"

#include <QSignalSpy>

#include "analysis/filters_json.h"
#include "analysis/random_search.h"
#include "desktop/sections/search_fixture.h"
#include "library/owned_apps.h"
#include "queries/app_examination.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Ids = std::vector<std::int64_t>;

constexpr AppFilters kSells{.purchases = PurchaseFilter::hasInAppPurchases};

class StoreFeedTest : public SearchTest {
 protected:
  StoreFeedTest() { feed->wake(); }
  void TearDown() override {
    feed.reset();
    end();
  }

  void show(const StoreQuery& query) {
    feed->show(query);
    settle();
  }
  template <typename State>
  bool is() {
    return std::holds_alternative<State>(feed->state());
  }
  Ids rows() {
    Ids ids;
    for (int row = 0; row < feed->rows().rowCount(); ++row)
      ids.push_back(feed->rows().at(row).key.app.trackId);
    return ids;
  }
  QString strip() {
    const auto text = stripOf(feed->state(), clock.now());
    return text ? text->text : QString();
  }

  std::unique_ptr<StoreFeed> feed = std::make_unique<StoreFeed>(parts.world());
};

/// What the command line prints with `-n 200`.
Task<Ids> printed(std::vector<ITunesApp> apps, ExaminationCriteria criteria,
                  QueryServices services) {
  Examined examined =
      co_await examine(std::move(apps), criteria, services, QueryCall(), RowWatch());
  const LocaleFormats formats({});
  sortApps(examined.apps, criteria.sort, [&](std::string_view left, std::string_view right) {
    return formats.nameLess(left, right);
  });
  Ids ids;
  for (const ITunesApp& app : examined.apps) ids.push_back(app.trackId);
  co_return ids;
}

TEST_F(StoreFeedTest, HasTheRowsThatTheCommandLinePrintsWhateverWasShownBefore) {
  RandomSearch random(11);
  http.apps = random.apps(200);
  ExaminationCriteria criteria{.limit = 200, .storefront = "us", .now = clock.now()};
  criteria.timeZone = [](Instant) { return 0s; };
  for (const std::int64_t id : {2, 3, 5, 8, 13}) {
    criteria.ownedTrackIds.insert(id);
    runTask(library->change(addOwnedApps, std::vector{owned(id)}));
  }
  std::size_t shown = 0;
  for (int round = 0; round < 60; ++round) {
    criteria.filters = random.filters();
    criteria.sort = random.sort();
    feed->show(searchFor("ink", criteria.filters, criteria.sort));
    feed->showUpTo(200);
    settle();
    ASSERT_TRUE(is<Ready>());
    const Ids expected = runTask(printed(http.apps, criteria, services()));
    ASSERT_EQ(rows(), expected) << encodeFilters(criteria.filters);
    const std::vector choice{criteria.filters};
    ASSERT_EQ(feed->countsOf(choice).front(), expected.size());
    shown += expected.size();
  }
  EXPECT_GT(shown, 500) << "sets of filters that leave too little to compare";
  EXPECT_EQ(http.searches(), 1);
}

TEST_F(StoreFeedTest, ReadsTheCatalogOnlyAsFarAsRowsAreShown) {
  http.apps = macApps(200);
  show(searchFor("ink"));
  EXPECT_EQ(rows().size(), 200U);
  EXPECT_EQ(http.asking("ids="), 0);
  http.isHeld = true;
  show(searchFor("ink", kSells));
  EXPECT_EQ(strip(), u"Reading purchases 0 of 200…");
  http.release();
  settle();
  EXPECT_EQ(http.asking("ids="), 1);
  EXPECT_GE(rows().size(), 20U);
  EXPECT_TRUE(feed->tally().isPartial);
  EXPECT_TRUE(is<Ready>());
  feed->showUpTo(static_cast<int>(rows().size()) - 1);
  settle();
  EXPECT_EQ(http.asking("ids="), 2);
  // What was read stays read.
  show(searchFor("ink"));
  show(searchFor("ink", kSells));
  EXPECT_EQ(http.asking("ids="), 2);
}

TEST_F(StoreFeedTest, StoppedKeepsWhatThereIsAndGoesOnWhenAsked) {
  http.apps = macApps(200);
  show(searchFor("ink", kSells));
  const Ids before = rows();
  http.isHeld = true;
  feed->showUpTo(199);
  handlePendingEvents();
  EXPECT_EQ(strip(), u"Reading purchases 50 of 200…");
  feed->act(StripAction::stop);
  http.release();
  feed->showUpTo(199);
  settle();
  EXPECT_EQ(strip(), u"Stopped. Purchases were read of 50 of 200.");
  EXPECT_EQ(rows(), before);
  const auto asked = http.asking("ids=");
  feed->act(StripAction::goOn);
  settle();
  EXPECT_EQ(http.asking("ids="), asked + 3);
  EXPECT_FALSE(feed->tally().isPartial);
}

TEST_F(StoreFeedTest, AsksNothingWhileHiddenOrBeforeASearch) {
  feed->rest();
  feed->wake();
  show({});
  EXPECT_TRUE(feed->isFilled());
  feed->rest();
  http.apps = macApps(60);
  show(searchFor("ink", kSells));
  EXPECT_TRUE(http.asked.empty());
  http.failures = {429};
  feed->wake();
  settle();
  EXPECT_TRUE(is<Throttled>());
  feed->rest();
  clock.advance(5min);
  EXPECT_EQ(http.asked.size(), 1U);
  feed->wake();
  settle();
  EXPECT_EQ(http.searches(), 2);
  EXPECT_FALSE(rows().empty());
  // Nor is the catalog asked on.
  feed->rest();
  feed->showUpTo(59);
  settle();
  EXPECT_EQ(http.asking("ids="), 1);
  feed->wake();
  settle();
  EXPECT_EQ(http.asking("ids="), 2);
}

TEST_F(StoreFeedTest, ComesBackWithoutAQuestionAndTellsTheAge) {
  http.apps = macApps(3);
  show(searchFor("ink"));
  http.apps = macApps(2);
  show(searchFor("paper"));
  EXPECT_EQ(rows(), (Ids{1, 2}));
  show(searchFor("ink"));
  EXPECT_EQ(rows(), (Ids{1, 2, 3}));
  EXPECT_EQ(http.searches(), 2);
  feed->renewIfOlder(15min);
  settle();
  EXPECT_EQ(http.searches(), 2);
  clock.setNow(clock.now() + 61min);
  show(searchFor("paper"));
  EXPECT_EQ(strip(), u"From 1 hour ago.");
  // Asked anew, what is there stays until the answer.
  http.isHeld = true;
  http.apps = macApps(1);
  feed->renewIfOlder(15min);
  settle();
  EXPECT_EQ(rows(), (Ids{1, 2}));
  http.release();
  settle();
  EXPECT_EQ(rows(), (Ids{1}));
  EXPECT_TRUE(is<Ready>());
}

TEST_F(StoreFeedTest, DropsLateAnswersAndMayGoBeforeTheyCome) {
  http.apps = macApps(3);
  http.isHeld = true;
  show(searchFor("late"));
  http.isHeld = false;
  http.apps = macApps(1);
  show(searchFor("ink"));
  http.release();
  settle();
  EXPECT_EQ(rows(), (Ids{1}));
  http.isHeld = true;
  show(searchFor("ink", kSells));
  show(searchFor("gone"));
  feed.reset();
  http.release();
  settle();
}

TEST_F(StoreFeedTest, RecoversWhereTheStoreLimitsRequestsAndKeepsItsRows) {
  http.apps = macApps(60);
  show(searchFor("ink"));
  http.failures = {429, 403};
  feed->refresh();
  settle();
  EXPECT_TRUE(is<Throttled>());
  EXPECT_EQ(rows().size(), 60U);
  clock.advance(20s);
  settle();
  EXPECT_TRUE(is<Throttled>());
  clock.advance(45s);
  settle();
  EXPECT_TRUE(is<Ready>());
  http.failures = {429};
  feed->refresh();
  settle();
  feed->act(StripAction::stop);
  EXPECT_TRUE(is<Failed>());
  EXPECT_EQ(rows().size(), 60U);
  feed->act(StripAction::tryAgain);
  settle();
  EXPECT_TRUE(is<Ready>());
  // And so where the catalog fails.
  http.failures = {404};
  show(searchFor("ink", kSells));
  EXPECT_TRUE(is<Failed>());
  feed->showUpTo(59);
  settle();
  EXPECT_EQ(http.asking("ids="), 1) << "asked again by nobody's wish";
  feed->act(StripAction::tryAgain);
  settle();
  EXPECT_TRUE(is<Ready>());
  EXPECT_FALSE(rows().empty());
}

TEST_F(StoreFeedTest, AnsweredAnewNeedsNothingOfTheCatalogAgain) {
  http.apps = macApps(60);
  show(searchFor("ink", kSells, SortOrder::rating));
  feed->showUpTo(60);
  settle();
  const Ids before = rows();
  ASSERT_FALSE(before.empty());
  const auto asked = http.asking("ids=");
  QSignalSpy moved(&feed->rows(), &QAbstractItemModel::rowsRemoved);
  feed->refresh();
  settle();
  EXPECT_EQ(rows(), before);
  EXPECT_EQ(http.asking("ids="), asked);
  EXPECT_TRUE(moved.isEmpty());
}

TEST_F(StoreFeedTest, ShelvesRecordsForPages) {
  http.apps = macApps(2);
  show(searchFor("ink"));
  const auto kept = parts.records.find({2, "us"});
  ASSERT_TRUE(kept);
  EXPECT_EQ(kept->app.trackName, "App 2");
  EXPECT_EQ(kept->asOf, clock.now());
}

TEST_F(StoreFeedTest, TakesLinksAndIdsForApps) {
  const struct {
    const char* term;
    std::string_view asked;
    std::string country;
  } rows[] = {
      {"https://apps.apple.com/de/app/ink/id148", "/lookup?id=148&country=de", "de"},
      {" 148 ", "/lookup?id=148&country=us", "us"},
      {"com.example.ink", "/lookup?bundleId=com.example.ink&country=us", "us"},
      {"ink.", "/search?", "us"},
  };
  http.apps = {{.trackId = 148, .trackName = "Ink", .bundleId = "com.example.ink"}};
  for (const auto& row : rows) {
    http.asked.clear();
    show(searchFor(row.term));
    EXPECT_EQ(http.asked.size(), 1U) << row.term;
    EXPECT_EQ(http.asking(row.asked), 1) << http.asked.front();
    ASSERT_EQ(feed->rows().rowCount(), 1) << row.term;
    EXPECT_EQ(feed->rows().at(0).key.app.country, row.country);
  }
  // A number may be a name too.
  http.apps.clear();
  show(searchFor("2048"));
  EXPECT_EQ(http.asking("/search?term=2048"), 1);
  http.asked.clear();
  show(searchFor("https://apps.apple.com/us/app/id2048"));
  EXPECT_EQ(http.asking("/search?"), 0);
  StoreQuery developer;
  developer.developer = Developer{7, "Inkwell"};
  show(developer);
  EXPECT_EQ(http.asking("/lookup?id=7&"), 1);
}

}  // namespace
}  // namespace quillet

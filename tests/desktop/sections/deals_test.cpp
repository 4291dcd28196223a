// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QSignalSpy>
#include <QTest>

#include "desktop/lists/app_list_view.h"
#include "desktop/lists/list_pane.h"
#include "desktop/sections/deals/deal_feed.h"
#include "desktop/sections/deals/deals_section.h"
#include "desktop/sections/search_fixture.h"
#include "library/cached_apps.h"
#include "library/price_seed_import.h"
#include "library/watched_apps.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Ids = std::vector<std::int64_t>;

Deal dealOf(std::int64_t trackId) {
  return {.trackId = trackId,
          .country = "us",
          .name = "App " + std::to_string(trackId),
          .seller = "Birch",
          .kind = "mac-software",
          .currency = "USD",
          .wasPrice = 9.99,
          .nowPrice = 4.99,
          .percentOff = 50,
          .changedOn = Instant(std::chrono::sys_days{std::chrono::year{2026} / 11 / 12}),
          .lowestPrice = 4.99,
          .edition = "2026-11-20T00:00:00Z"};
}

struct RowCase {
  const char* what;
  void (*change)(Deal& deal);
  DealAside aside;
  const char* sentence;
};

TEST(DealFacts, TellWhenNobodyLookedForDays) {
  const auto recorded = parseInternetDate("2026-11-09T03:00:00Z");
  const auto looked = parseInternetDate("2026-11-12T03:00:00Z");
  const UtcOffsetAt zone = [](Instant) { return 0h; };
  const auto textAfter = [&](std::chrono::hours age) {
    return recordedText(recorded, {.next = {}, .looked = looked}, *looked + age, zone)
        .toStdString();
  };
  EXPECT_EQ(textAfter(72h), "Prices recorded 9 Nov 2026");
  EXPECT_EQ(textAfter(73h), "Prices recorded 9 Nov 2026, last looked at 12 Nov 2026");
}

class DealRows : public testing::TestWithParam<RowCase> {};

TEST_P(DealRows, TellWhatADealIs) {
  const RowContext context{Instant(std::chrono::sys_days{std::chrono::year{2026} / 11 / 20}) + 23h,
                           [](Instant) { return -10h; },
                           UserLocale{},
                           {}};
  Deal deal = dealOf(7);
  GetParam().change(deal);
  AppRow row = dealRow(deal, context, LocaleFormats(context.locale));
  takeAside(row, GetParam().aside);
  EXPECT_EQ(sentenceOf(row).toStdString(), GetParam().sentence) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    All, DealRows,
    testing::Values(
        RowCase{"at its lowest",
                [](Deal&) {},
                {},
                "App 7, $4.99, $9.99, −50 %, at its lowest, Birch, 12 Nov"},
        RowCase{"free, watched, with what else is known",
                [](Deal& deal) { deal.nowPrice = deal.lowestPrice = 0; },
                {true, "picture", QStringLiteral("Music")},
                "App 7, Free, $9.99, −100 %, at its lowest, watched, Birch · Music, 12 Nov"},
        RowCase{"above its lowest",
                [](Deal& deal) { deal.lowestPrice = 4.4; },
                {},
                "App 7, $4.99, $9.99, −50 %, 13 % above its lowest, Birch, 12 Nov"},
        RowCase{"by little",
                [](Deal& deal) { deal.lowestPrice = 4.98; },
                {},
                "App 7, $4.99, $9.99, −50 %, 0.2 % above its lowest, Birch, 12 Nov"},
        RowCase{"once free: nothing to divide by",
                [](Deal& deal) { deal.lowestPrice = 0; },
                {},
                "App 7, $4.99, $9.99, −50 %, was free before, Birch, 12 Nov"},
        RowCase{"of a day of its own, wherever one is",
                [](Deal& deal) { deal.changedOn += std::chrono::days(8); },
                {},
                "App 7, $4.99, $9.99, −50 %, at its lowest, Birch, today"},
        RowCase{"of an earlier year, hostile texts, without a currency",
                [](Deal& deal) {
                  deal.changedOn -= std::chrono::days(400);
                  deal.name = "\n \x01";
                  deal.seller = "<b>Birch\u202E";
                  deal.currency.reset();
                },
                {},
                "Unnamed app, 4.99, 9.99, −50 %, at its lowest, <b>Birch, 8 Oct 2025"}));

TEST(DealRow, ItsPriceIsThatOfTheEditionsDay) {
  Deal deal = dealOf(7);
  const RowContext context{{}, [](Instant) { return 0h; }, UserLocale{}, {}};
  const auto pricedOn = [&] {
    return formatDay(dealRow(deal, context, LocaleFormats(context.locale)).price.asOf.value());
  };
  EXPECT_EQ(pricedOn(), "2026-11-20");
  deal.edition.clear();
  EXPECT_EQ(pricedOn(), "2026-11-12") << "it was seen here";
}

class DealsTest : public SearchTest {
 protected:
  void TearDown() override {
    feed.reset();
    section.reset();
    end();
    while (clock.advanceToNextDeadline()) handlePendingEvents();
  }

  void keep(const std::vector<Deal>& deals) {
    runTask(library->change(keepDeals, deals));
    handlePendingEvents();
  }
  void keepNumbers(std::int64_t from, std::int64_t to) {
    std::vector<Deal> deals;
    for (std::int64_t id = from; id <= to; ++id) deals.push_back(dealOf(id));
    keep(deals);
  }
  DealFeed& begin(const DealQuery& query = {.country = "us", .platform = {}}) {
    feed = std::make_unique<DealFeed>(parts.world());
    feed->wake();
    feed->show(query);
    settle();
    return *feed;
  }
  std::set<AppKey> keys(std::int64_t from, std::int64_t to) {
    std::set<AppKey> apps;
    for (std::int64_t id = from; id <= to; ++id) apps.insert({id, "us"});
    return apps;
  }

  std::unique_ptr<DealFeed> feed;
  std::unique_ptr<Section> section;
};

TEST_F(DealsTest, AreReadAsFarAsSomebodyScrolls) {
  keepNumbers(1, 4500);
  DealFeed& shown = begin();
  EXPECT_EQ(shown.rows().rowCount(), 2000);
  EXPECT_EQ(shown.tally().shown, 4500);
  const auto scrollTo = [&](int row) {
    shown.showUpTo(row);
    settle();
    return shown.rows().rowCount();
  };
  EXPECT_EQ(scrollTo(1400), 2000);
  EXPECT_EQ(scrollTo(1999), 4000);
  EXPECT_EQ(scrollTo(3999), 4500);
  EXPECT_EQ(scrollTo(4499), 4500);

  // Who reads on looks at the same rows when all is read again.
  QSignalSpy resets(&shown.rows(), &QAbstractItemModel::modelReset);
  Deal cheap = dealOf(9000);
  cheap.nowPrice = cheap.lowestPrice = 0.99;
  cheap.percentOff = 90.1;
  keep({cheap});
  waitFor([&] { return shown.rows().rowCount() == 4501; });
  EXPECT_EQ(shown.rows().at(0).key.app.trackId, 9000);
  EXPECT_EQ(resets.count(), 0);

  shown.show({.country = "us", .platform = {}, .minimumDrop = 60});
  settle();
  EXPECT_EQ(shown.rows().rowCount(), 1);
  EXPECT_EQ(shown.tally().all, 4501);
}

TEST_F(DealsTest, PicturesAreAskedForOnceAHundredAtATimeAndNotWhereTheStoreWantsFewer) {
  keepNumbers(1, 250);
  DealFeed& shown = begin();
  const auto lookups = [&] { return http.asking("/lookup?"); };
  for (std::int64_t id = 1; id <= 90; ++id)
    http.apps.push_back({.trackId = id, .trackName = "App", .artworkUrl512 = "https://a/512.png"});
  shown.showExtras(keys(1, 130));
  settle();
  EXPECT_EQ(lookups(), 1);
  const auto row = [&](std::int64_t id) {
    return shown.rows().at(shown.rows().find({{id, "us"}, 0}));
  };
  EXPECT_EQ(row(1).artwork, "https://a/512.png") << "kept, and shown";
  EXPECT_EQ(row(130).artwork, "");

  // What is seen by then is asked for, no sooner than ten seconds later.
  shown.showExtras(keys(200, 210));
  clock.advance(9s);
  EXPECT_EQ(lookups(), 1);
  http.failures = {429};
  clock.advance(1s);
  settle();
  EXPECT_EQ(lookups(), 2);
  EXPECT_NE(http.asked.back().find("=200,201,"), std::string::npos) << http.asked.back();
  shown.showExtras(keys(200, 210));
  clock.advance(60s);
  EXPECT_EQ(lookups(), 2) << "the store wants fewer";
  clock.advance(5s);
  settle();
  EXPECT_EQ(lookups(), 3);
  // Apps that the store does not know are not asked for again.
  shown.showExtras(keys(95, 100));
  clock.advance(60s);
  settle();
  EXPECT_EQ(lookups(), 3);
}

TEST_F(DealsTest, AreWatchedWithTheirPriceAsTargetAndLeftAsTheyWere) {
  keepNumbers(1, 3);
  section = makeDeals(parts.world());
  section->view()->resize(1000, 600);
  section->view()->show();
  Place place;
  place.section = SectionId::deals;
  place.rows.chips = {"watched"};
  section->show(place);
  settle();
  EXPECT_EQ(section->rows()->rowCount(), 0);
  section->setRowView({});
  settle();
  ASSERT_EQ(section->rows()->rowCount(), 3);
  section->choose({{2, "us"}, 0});
  parts.edits.perform(*section->targetWatch());
  settle();
  const auto kept = runTask(library->read(watchedApps));
  ASSERT_EQ(kept.size(), 1U);
  EXPECT_EQ(kept[0].trackId, 2);
  EXPECT_EQ(kept[0].targetPrice, 4.99);
  EXPECT_EQ(kept[0].name, "App 2");
  EXPECT_EQ(kept[0].currency, "USD");
  EXPECT_TRUE(section->rows()->at(1).marks.testFlag(RowMark::watched));

  // One that is watched keeps what else was decided, and both edits are undone.
  parts.edits.perform(*section->targetWatch());
  settle();
  EXPECT_EQ(runTask(library->read(watchedApps)), kept);
  parts.edits.undo();
  settle();
  EXPECT_TRUE(runTask(library->read(watchedApps)).empty());
  EXPECT_FALSE(section->rows()->at(1).marks.testFlag(RowMark::watched));

  // Several at once, in one step.
  section->view()->findChild<AppListView*>()->selectAll();
  parts.edits.perform(*section->targetWatch());
  settle();
  const auto all = runTask(library->read(watchedApps));
  ASSERT_EQ(all.size(), 3U);
  for (const WatchedApp& app : all) EXPECT_EQ(app.targetPrice, 4.99);
  parts.edits.undo();
  settle();
  EXPECT_TRUE(runTask(library->read(watchedApps)).empty());
}

TEST_F(DealsTest, AreWatchedAndLeftByAClickOnTheEye) {
  keepNumbers(1, 3);
  section = makeDeals(parts.world());
  section->view()->resize(1000, 600);
  section->view()->show();
  Place place;
  place.section = SectionId::deals;
  section->show(place);
  settle();
  auto* list = section->view()->findChild<AppListView*>();
  QSignalSpy clicked(list, &AppListView::watchClicked);
  const QRect row = list->visualRect(list->model()->index(1, 0));
  QPoint eye(row.right(), row.center().y());
  const auto click = [&] {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, eye);
    settle();
    return !clicked.isEmpty();
  };
  while (!click() && eye.x() > row.left()) eye.rx() -= 4;
  const std::int64_t app = section->rows()->at(1).key.app.trackId;
  const auto watched = [this] { return runTask(library->read(watchedApps)); };
  ASSERT_EQ(watched().size(), 1U);
  EXPECT_EQ(watched()[0].trackId, app);
  EXPECT_EQ(watched()[0].targetPrice, std::nullopt);
  click();
  EXPECT_TRUE(watched().empty());
}

}  // namespace
}  // namespace quillet

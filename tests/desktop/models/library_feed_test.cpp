// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Rows read from a real library, and kept as it is.

#include "desktop/models/library_feed.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "library/library_folder.h"
#include "library/recorded_history.h"
#include "library/watched_apps.h"
#include "support/event_loop.h"

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;

AppKey app(std::int64_t id) { return {id, "us"}; }

AppRow rowOf(const WatchedApp& app) {
  AppRow row;
  row.key.app = keyOf(app);
  row.name = QString::fromStdString(app.name);
  row.price.amount = app.targetPrice;
  return row;
}

/// Rows of all watched apps. What is known of them late is how often they were asked for.
struct Source {
  std::shared_ptr<int> reads = std::make_shared<int>(0);
  std::shared_ptr<int> lates = std::make_shared<int>(0);

  [[nodiscard]] RowSource make() const {
    const auto rowsOf = [](const std::vector<WatchedApp>& apps) {
      std::vector<AppRow> rows;
      for (const WatchedApp& each : apps) rows.push_back(rowOf(each));
      return rows;
    };
    return {.all =
                [rowsOf, reads = reads](auto& database) {
                  ++*reads;
                  return rowsOf(watchedApps(database));
                },
            .ofApps = [rowsOf](auto& database,
                               const auto& apps) { return rowsOf(watchedAppsOf(database, apps)); },
            .touched = [](const LibraryChanges& changes) { return changes.watchedApps; },
            .late =
                [lates = lates](auto&, const std::vector<LateRow>& asked) {
                  ++*lates;
                  std::vector<LateFacts> facts;
                  for (const LateRow& each : asked)
                    facts.push_back({.app = each.app, .purchasesChanged = *lates});
                  return facts;
                },
            .take =
                [](AppRow& row, const LateFacts& facts) {
                  row.aside = QString::number(facts.purchasesChanged);
                }};
  }
};

class LibraryFeedTest : public testing::Test {
 protected:
  LibraryFeedTest() { change(watchApps, std::vector{watched(1), watched(2)}); }

  template <typename... Arguments>
  void change(Arguments... arguments) {
    runTask(store->change(arguments...));
    settle();
  }
  /// What was asked of the library before came, and what was asked for then.
  void settle() {
    for (int i = 0; i < 3; ++i) runTask(store->read([](SQLite::Database&) { return 0; }));
  }
  QStringList names() {
    QStringList all;
    for (int i = 0; i < rows.rowCount(); ++i) all << rows.at(i).name;
    return all;
  }
  QStringList asides() {
    QStringList all;
    for (int i = 0; i < rows.rowCount(); ++i) all << rows.at(i).aside;
    return all;
  }

  LibraryFolder folder;
  FakeClock clock{dayAndSecond(20)};
  std::unique_ptr<DataStore> store = folder.open();
  LibraryGateway library;
  std::unique_ptr<LibraryFeed> feed = std::make_unique<LibraryFeed>(library, clock);
  AppListModel& rows = feed->rows();
  Source source;
};

TEST_F(LibraryFeedTest, WaitsForTheLibraryAndFollowsIt) {
  feed->show(source.make());
  EXPECT_TRUE(std::holds_alternative<Loading>(feed->state()));
  library.use(*store);
  settle();
  EXPECT_TRUE(std::holds_alternative<Ready>(feed->state()));
  EXPECT_EQ(names(), QStringList({u"Paperfold 2"_s, u"Paperfold 1"_s}));
  change(watchApps, std::vector{watched(3)});
  change(unwatchApps, std::vector{app(2)});
  EXPECT_EQ(names(), QStringList({u"Paperfold 1"_s, u"Paperfold 3"_s}));
  EXPECT_EQ(*source.reads, 1);
}

TEST_F(LibraryFeedTest, KeepsWhatItKnewLateUntilItKnowsBetter) {
  library.use(*store);
  feed->show(source.make());
  settle();
  EXPECT_EQ(asides(), QStringList({u"1"_s, u"1"_s}));
  QStringList seen;
  QObject::connect(&rows, &QAbstractItemModel::dataChanged, feed.get(), [&] { seen << asides(); });
  feed->refresh();
  settle();
  // Never without: rows would flicker.
  EXPECT_EQ(seen, QStringList({u"2"_s, u"2"_s}));
  // One that changed is read with it.
  change(editWatches, std::vector{WatchEdit{app(1), {.targetPrice = 3}}});
  EXPECT_EQ(asides(), QStringList({u"2"_s, u"3"_s}));
}

TEST_F(LibraryFeedTest, DropsWhatCameTooLate) {
  library.use(*store);
  feed->show(source.make());
  Source other;
  feed->show(other.make());
  settle();
  EXPECT_EQ(asides(), QStringList({u"1"_s, u"1"_s}));
  EXPECT_EQ(*source.lates, 0);
  feed->refresh();
  feed.reset();
  settle();
}

TEST_F(LibraryFeedTest, TellsWhatWentWrongAndKeepsTheRows) {
  library.use(*store);
  feed->show(source.make());
  settle();
  RowSource broken = source.make();
  broken.all = [](auto&) -> std::vector<AppRow> { throw DatabaseError("The library is locked."); };
  feed->renew(broken);
  settle();
  ASSERT_TRUE(std::holds_alternative<Failed>(feed->state()));
  EXPECT_EQ(std::get<Failed>(feed->state()).message, u"The library is locked."_s);
  EXPECT_EQ(rows.rowCount(), 2);
  feed->renew(source.make());
  settle();
  EXPECT_TRUE(std::holds_alternative<Ready>(feed->state()));
}

TEST_F(LibraryFeedTest, ReadsNothingWhileNobodyLooksAndThenWhatChanged) {
  library.use(*store);
  feed->show(source.make());
  settle();
  feed->rest();
  change(watchApps, std::vector{watched(3)});
  change(unwatchApps, std::vector{app(2)});
  EXPECT_EQ(names(), QStringList({u"Paperfold 2"_s, u"Paperfold 1"_s}));
  EXPECT_EQ(*source.lates, 1);
  feed->wake();
  settle();
  EXPECT_EQ(names(), QStringList({u"Paperfold 1"_s, u"Paperfold 3"_s}));
  EXPECT_EQ(*source.lates, 2);
  EXPECT_EQ(*source.reads, 1);
  // Of what another program did nobody knows whose rows it touched.
  feed->rest();
  Q_EMIT library.changedElsewhere();
  change(watchApps, std::vector{watched(4)});
  EXPECT_EQ(*source.reads, 1);
  feed->wake();
  waitFor([&] { return *source.reads == 2; });
  settle();
  EXPECT_EQ(rows.rowCount(), 3);
}

TEST_F(LibraryFeedTest, ReadsAllInPiecesWhereMoreThanAFewChanged) {
  library.use(*store);
  feed->show(source.make());
  settle();
  std::vector<WatchedApp> many;
  for (int id = 3; id < 1203; ++id) many.push_back(watched(id));
  change(watchApps, many);
  waitFor([&] { return rows.rowCount() == 1202; });
  waitFor([&] { return *source.lates == 1 + 3; });
  EXPECT_EQ(*source.reads, 2);
}

TEST_F(LibraryFeedTest, ReadsLinesOfSeenRowsAndAgainAsTheirPricesGrow) {
  const auto price = [](std::int64_t id, double amount, int day) {
    return PricePoint{.trackId = id,
                      .country = "us",
                      .price = amount,
                      .currency = "USD",
                      .date = dayAndSecond(day)};
  };
  change(addPricePoints,
         std::vector{price(1, 4.99, 1), price(1, 2.99, 10), price(2, 4.99, 1), price(2, 2.99, 9)});
  library.use(*store);
  feed->show(source.make());
  settle();
  const auto steps = [&](std::int64_t id) -> std::size_t {
    const RowExtras* extras = rows.extrasAt(rows.find({app(id)}));
    return extras == nullptr ? 0 : extras->line.size();
  };
  feed->showExtras({app(1)});
  settle();
  EXPECT_EQ(steps(1), 2);
  EXPECT_EQ(steps(2), 0);
  change(addPricePoints, std::vector{price(1, 1.99, 15)});
  EXPECT_EQ(steps(1), 3);
  feed->showExtras({app(2)});
  EXPECT_EQ(steps(1), 0);  // at once, for nobody sees it
  settle();
  EXPECT_EQ(steps(2), 2);
}

}  // namespace
}  // namespace quillet

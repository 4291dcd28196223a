// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <functional>

#include "desktop/models/row_filter_model.h"
#include "desktop/sections/alerts/alerts_rows.h"
#include "desktop/sections/collections/collection_rows.h"
#include "desktop/sections/history/history_rows.h"
#include "desktop/sections/my_apps/my_apps_rows.h"
#include "desktop/sections/watchlist/watchlist_rows.h"
#include "library/alerts.h"
#include "library/cached_apps.h"
#include "library/collections.h"
#include "library/library_folder.h"
#include "library/memory_library.h"
#include "library/owned_apps.h"
#include "library/recorded_history.h"
#include "library/watched_apps.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

const RowContext kContext{
    dayAndSecond(100, 12 * 3600), [](Instant) { return 0s; }, UserLocale{}, {}};

WatchedRow watchedAt(double added, double now) {
  WatchedRow row{watched(7), {}};
  row.app.name = "Paperfold";
  row.app.sellerName = "Hazelworks";
  row.app.currency = "USD";
  row.app.priceWhenAdded = added;
  row.app.currentPrice = now;
  return row;
}

struct WatchedCase {
  const char* situation;
  std::function<void(WatchedRow&, LateFacts&)> change;
  const char* sentence;
};

class WatchedRows : public testing::TestWithParam<WatchedCase> {};

TEST_P(WatchedRows, TellWhatChanged) {
  WatchedRow watched = watchedAt(9.99, 4.99);
  LateFacts facts;
  GetParam().change(watched, facts);
  AppRow row = watchedAppRow(watched, kContext, LocaleFormats(kContext.locale));
  takeWatchedFacts(row, facts);
  EXPECT_EQ(sentenceOf(row).toStdString(), GetParam().sentence) << GetParam().situation;
}

INSTANTIATE_TEST_SUITE_P(
    All, WatchedRows,
    testing::Values(
        WatchedCase{"fell", [](auto&, auto&) {}, "Paperfold, $4.99, −50 %, Hazelworks"},
        WatchedCase{"fell to its lowest, rated",
                    [](WatchedRow& row, LateFacts& facts) {
                      row.cached = CachedSummary{.rating = 4.26, .ratingCount = 12};
                      facts.lowest = RecordedPrice{{}, 4.99, "USD"};
                    },
                    "Paperfold, $4.99, −50 %, at its lowest, Hazelworks, 4.5 of 5 stars"},
        WatchedCase{
            "at the lowest amount of another currency",
            [](WatchedRow&, LateFacts& facts) { facts.lowest = RecordedPrice{{}, 4.99, "EUR"}; },
            "Paperfold, $4.99, −50 %, Hazelworks"},
        WatchedCase{"fell by less than a percent",
                    [](WatchedRow& row, LateFacts&) { row.app.priceWhenAdded = 5.00; },
                    "Paperfold, $4.99, −0.2 %, Hazelworks"},
        WatchedCase{"ratings of nobody are unknown",
                    [](WatchedRow& row, LateFacts&) {
                      row.cached = CachedSummary{.rating = 0, .ratingCount = 0};
                    },
                    "Paperfold, $4.99, −50 %, Hazelworks"},
        WatchedCase{"added in another currency: nothing is compared",
                    [](WatchedRow& row, LateFacts&) { row.app.addedCurrency = "EUR"; },
                    "Paperfold, $4.99, Hazelworks"},
        WatchedCase{"was free, in the store's own words",
                    [](WatchedRow& row, LateFacts&) {
                      row.app.priceWhenAdded = 0;
                      row.app.formattedPrice = "US$4.99";
                    },
                    "Paperfold, US$4.99, was free, Hazelworks"},
        WatchedCase{"unchanged, above its target",
                    [](WatchedRow& row, LateFacts&) {
                      row.app.priceWhenAdded = 4.99;
                      row.app.targetPrice = 2.99;
                    },
                    "Paperfold, $4.99, target $2.99, Hazelworks"},
        WatchedCase{"unchanged, at its target",
                    [](WatchedRow& row, LateFacts&) {
                      row.app.priceWhenAdded = row.app.currentPrice = 2.99;
                      row.app.targetPrice = 2.99;
                    },
                    "Paperfold, $2.99, target $2.99 hit, Hazelworks"},
        WatchedCase{"only what is sold inside changed",
                    [](WatchedRow& row, LateFacts& facts) {
                      row.app.priceWhenAdded = 4.99;
                      facts.purchasesChanged = 2;
                    },
                    "Paperfold, $4.99, 2 in-app prices, Hazelworks"},
        WatchedCase{"imported, and not looked up yet",
                    [](WatchedRow& row, LateFacts&) { row.app.currentPrice = 0; },
                    "Paperfold, Hazelworks"},
        WatchedCase{"gone",
                    [](WatchedRow& row, LateFacts& facts) {
                      row.app.isUnavailable = true;
                      facts.purchasesChanged = 1;
                    },
                    "Paperfold, $4.99, no longer sold, Hazelworks"},
        WatchedCase{"hostile texts",
                    [](WatchedRow& row, LateFacts&) {
                      row.app.name = "<b>Paper</b>\n\u202Efold\x01";
                      row.app.sellerName = "";
                    },
                    "<b>Paper</b> fold, $4.99, −50 %"},
        WatchedCase{"without a name", [](WatchedRow& row, LateFacts&) { row.app.name = " \n"; },
                    "Unnamed app, $4.99, −50 %, Hazelworks"}));

class SectionRows : public MemoryLibraryTest {
 protected:
  /// The rows as they are shown, those of late facts included, one to a line.
  static std::string shown(const RowTable& table, std::vector<AppRow> rows, RowView view = {}) {
    AppListModel model;
    RowFilterModel filter(model, table);
    filter.setView(view);
    model.reset(std::move(rows));
    std::string text;
    for (int row = 0; row < filter.rowCount(); ++row) {
      const QString heading = filter.data(filter.index(row, 0), HeadingRole).toString();
      if (!heading.isEmpty()) text += "[" + heading.toStdString() + "]\n";
      text += sentenceOf(filter.at(row)).toStdString() + '\n';
    }
    return text;
  }

  std::vector<AppRow> readAll(const RowSource& source) {
    std::vector<AppRow> rows = source.all(database_);
    if (!source.late) return rows;
    for (AppRow& row : rows) {
      for (const LateFacts& facts : source.late(database_, {{row.key.app, row.added}}))
        source.take(row, facts);
    }
    return rows;
  }
};

TEST_F(SectionRows, TheWatchlistOrdersAndPicks) {
  const auto app = [](std::int64_t id, const char* name, double added, double now) {
    WatchedApp watched = quillet::watched(id);
    watched.name = name;
    watched.currency = "USD";
    watched.priceWhenAdded = added;
    watched.currentPrice = now;
    return watched;
  };
  watchApps(transaction_, {app(1, "Anchor", 10, 5), app(2, "beacon", 4, 3), app(3, "Cove", 2, 2)});
  const std::vector<AppRow> rows = readAll(watchlistSource(kContext));
  const RowTable table = watchlistTable();
  // Those that were added at once stand as the command line prints them: the last row first.
  std::vector<AppRow> atOnce = rows;
  for (AppRow& row : atOnce) row.added = dayAndSecond(1);
  EXPECT_EQ(shown(table, atOnce), shown(table, rows));
  EXPECT_EQ(shown(table, rows), "Cove, $2.00\nbeacon, $3.00, −25 %\nAnchor, $5.00, −50 %\n");
  EXPECT_EQ(shown(table, rows, {{}, {}, "name"}),
            "Anchor, $5.00, −50 %\nbeacon, $3.00, −25 %\nCove, $2.00\n");
  EXPECT_EQ(shown(table, rows, {{}, {}, "change"}),
            "Anchor, $5.00, −50 %\nbeacon, $3.00, −25 %\nCove, $2.00\n");
  EXPECT_EQ(shown(table, rows, {QStringLiteral(" BEA"), {"dropped", "unheard-of"}, {}}),
            "beacon, $3.00, −25 %\n");
}

TEST_F(SectionRows, AlertsStandUnderTheirDays) {
  AlertRecord drop{.trackId = 7, .country = "us", .appName = "Paperfold", .kindRaw = "priceDrop"};
  drop.oldPriceText = "$9.99";
  drop.newPriceText = "$4.99";
  drop.date = dayAndSecond(100, 9 * 3600);
  AlertRecord version{.trackId = 7,
                      .country = "us",
                      .appName = "Paperfold",
                      .kindRaw = "newVersion",
                      .version = "4.2"};
  version.date = dayAndSecond(96);
  version.isRead = true;
  AlertRecord unheardOf = version;
  unheardOf.kindRaw = "somethingNew";
  unheardOf.date = dayAndSecond(40);
  addAlerts(transaction_, {drop, version, unheardOf});
  EXPECT_EQ(shown(alertsTable(), readAll(alertsSource(kContext))),
            "[Today]\nPaperfold dropped in price, unread, $9.99 → $4.99, Today, 09:00\n"
            "[This week]\nPaperfold was updated, Version 4.2 is now available., This week, Fri\n"
            "[April 2026]\nPaperfold, April 2026, 10 Apr\n");
}

TEST_F(SectionRows, HistoryTellsWhatAnAppCostWhenItWasLookedAt) {
  CachedApp app = cached(7, "Paperfold");
  app.price = 4.99;
  app.currency = "USD";
  recordView(transaction_, app, dayAndSecond(99));
  CachedApp steady = cached(8, "Inkwell");
  steady.price = 2;
  steady.currency = "USD";
  recordView(transaction_, steady, dayAndSecond(100));
  for (const auto& [day, price] : {std::pair{1, 9.99}, {99, 9.99}, {100, 4.99}}) {
    addPricePoints(transaction_, {{.trackId = 7,
                                   .country = "us",
                                   .price = price,
                                   .currency = "USD",
                                   .date = dayAndSecond(day)}});
  }
  EXPECT_EQ(shown(historyTable(), readAll(historySource(kContext))),
            "[Today]\nInkwell, $2.00, Today, 00:00\n[Yesterday]\nPaperfold, $4.99, was $9.99, "
            "Yesterday, 00:00\n");
}

TEST_F(SectionRows, MyAppsTellUpdatesAndUpkeep) {
  OwnedApp old = owned(1, "Anchor");
  old.installedVersion = "2.3";
  old.storeVersion = "2.4";
  old.priceWhenAdded = 29.99;
  old.currency = "USD";
  old.installedSizeBytes = 184'000'000;
  OwnedApp skipped = owned(2, "Beacon");
  skipped.installedVersion = "1";
  skipped.storeVersion = skipped.skippedVersion = "2";
  OwnedApp ancient = owned(3, "Cove");
  ancient.architectures = "i386";
  ancient.isUnavailable = true;
  // What is installed tells of itself, whatever the store has.
  OwnedApp universal = owned(4, "Dormouse");
  universal.architectures = "arm64 x86_64";
  addOwnedApps(transaction_, {old, skipped, ancient, universal});
  CachedApp record = cached(1);
  record.currentVersionReleaseDate = dayAndSecond(-800);
  record.needsRosetta = true;
  CachedApp intel = cached(4);
  intel.needsRosetta = true;
  refreshCachedApps(transaction_, {record, intel});
  const auto rows = readAll(myAppsSource(kContext));
  EXPECT_EQ(shown(myAppsTable(), rows),
            "Anchor, $29.99, 2.4 available, 184 MB, Version 2.3 · No update in over 2 years\n"
            "Beacon, Version 1\n"
            "Cove, No longer sold · 32-bit only\n"
            "Dormouse\n");
  EXPECT_EQ(rows.at(2).care->gone, QStringLiteral("not sold"));
  EXPECT_EQ(shown(myAppsTable(), rows, {{}, {"updates", "abandoned", "rosetta"}, {}}),
            "Anchor, $29.99, 2.4 available, 184 MB, Version 2.3 · No update in over 2 years\n");
}

TEST_F(SectionRows, CollectionsSumPerCurrency) {
  const RowId writing =
      addCollection(transaction_, {.name = "Writing", .symbolName = "nobody-knows"});
  addCollection(transaction_, {.name = "Kids", .symbolName = "gamecontroller"});
  addEntries(transaction_, writing, {entry(7, "ask\nabout iPad"), entry(8)});
  CachedApp app = cached(7, "Paperfold");
  app.price = 4.99;
  app.currency = "USD";
  recordView(transaction_, app, dayAndSecond(1));
  EXPECT_EQ(shown(overviewTable(), readAll(overviewSource(kContext.locale))),
            "Kids, 0 apps\nWriting, 2 apps · $4.99 · 1 unknown\n");
  const auto head = readCollectionHead(database_, writing, UserLocale{});
  ASSERT_TRUE(head);
  EXPECT_EQ(*head, (CollectionHead{QStringLiteral("Writing"), QStringLiteral("folder2"),
                                   QStringLiteral("2 apps · $4.99 · 1 unknown")}));
  EXPECT_FALSE(readCollectionHead(database_, writing + 9, UserLocale{}));
  EXPECT_EQ(shown(collectionTable(), readAll(collectionSource(kContext.locale, writing))),
            "Unnamed app\nUnnamed app, $4.99, ask about iPad\n");
}

}  // namespace
}  // namespace quillet

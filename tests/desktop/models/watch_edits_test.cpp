// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/watch_edits.h"

#include <gtest/gtest.h>

#include "desktop/models/price_entry.h"
#include "desktop/models/watch_words.h"
#include "library/cached_apps.h"
#include "library/library_folder.h"
#include "library/store_rows.h"
#include "library/storefront_check.h"
#include "net/run_task.h"

namespace quillet {
namespace {

struct PriceCase {
  const char* text;
  char16_t point;
  PriceEntry read;
};

TEST(PriceEntry, ReadsPricesAsPeopleWriteThem) {
  const PriceCase cases[] = {
      {"", u'.', NoPrice()},
      {"  ", u'.', NoPrice()},
      {"2.99", u'.', 2.99},
      {"2,99", u'.', 2.99},
      {"2.99", u',', 2.99},
      {"$2.99", u'.', 2.99},
      {"2,99 €", u',', 2.99},
      {"US$ 2.99", u'.', 2.99},
      {"kr.29,50", u',', 29.5},
      {"1.299,00 kr.", u',', 1299.0},
      {"1,299.00", u',', 1299.0},
      {"1,299", u'.', 1299.0},
      {"1,299", u',', 1.299},
      {"1.299", u',', 1299.0},
      {"1.299.000", u'.', 1299000.0},
      {"1 299,5", u',', 1299.5},
      {"\u0662\u066b\u0669", u'.', 2.9},
      {".99", u'.', 0.99},
      {"0", u'.', 0.0},
      {"-0", u'.', 0.0},
      {"¥500", u'.', 500.0},
      {"-1", u'.', NegativePrice()},
      {"\u22122,99 €", u',', NegativePrice()},
      {"free", u'.', UnreadablePrice()},
      {"2.99.", u'.', UnreadablePrice()},
      {"2/3", u'.', UnreadablePrice()},
      {"€", u'.', UnreadablePrice()},
  };
  for (const PriceCase& each : cases)
    EXPECT_EQ(readPrice(QString::fromUtf8(each.text), each.point), each.read) << each.text;
}

TEST(MutedUntil, IsNeverEarlierThanItSays) {
  const Instant now = std::chrono::sys_days(std::chrono::year(2027) / 1 / 31);
  EXPECT_EQ(formatDay(mutedUntil(MuteSpan::week, now)), "2027-02-07");
  EXPECT_EQ(formatDay(mutedUntil(MuteSpan::month, now)), "2027-02-28");
  EXPECT_EQ(formatDay(mutedUntil(MuteSpan::untilTurnedOn, now)), "9999-12-31");
}

class WatchEditsTest : public LibraryServiceTest {
 protected:
  /// Returns the step that undoes it.
  EditStep make(const EditStep& step) { return runTask(store_->change(step.run)); }

  WatchedApp watchedNow() {
    const auto apps = runTask(store_->read(watchedApps));
    return apps.empty() ? WatchedApp() : apps.front();
  }

  AppRow row() {
    AppRow row;
    row.key = {kApp, 0};
    row.name = QStringLiteral("Paperfold");
    row.price = {QStringLiteral("$7.99"), PriceMove::none, 7.99, "USD"};
    return row;
  }

  static ITunesApp record(const char* name, double price) {
    ITunesApp app;
    app.trackId = kApp.trackId;
    app.trackName = name;
    app.price = price;
    app.currency = "USD";
    app.kind = "mac-software";
    app.version = "2.1";
    return app;
  }

  static constexpr std::chrono::days kDay{1};
  static inline const AppKey kApp{7, "us"};
  static inline const Instant kNow = std::chrono::sys_days(std::chrono::year(2026) / 11 / 22);
  RecordShelf records_{clock_, {{}, 10}};
};

/// The newest of what is known of an app is what it cost when it was added.
TEST_F(WatchEditsTest, ANewWatchIsMadeOfTheNewestRecord) {
  const auto pricesWhenAdded = [this] {
    const EditStep undo =
        make(watchEdit({toWatch(row(), records_)}, watchDefaults(settings_), kNow).step);
    const WatchedApp made = watchedNow();
    make(undo);
    return std::pair(made.priceWhenAdded, made.name);
  };
  EXPECT_EQ(pricesWhenAdded(), std::pair(7.99, std::string("Paperfold"))) << "the list's row";
  records_.keep(kApp, {record("Shelved", 5.99), Platform::mac, kNow});
  EXPECT_EQ(pricesWhenAdded(), std::pair(5.99, std::string("Shelved")));
  const auto keep = [this](const char* name, double price, Instant when) {
    runTask(store_->change(recordView,
                           cachedAppOf(record(name, price), {"us", Platform::mac, when}), when));
  };
  keep("Kept", 3.99, kNow - std::chrono::hours(1));
  EXPECT_EQ(pricesWhenAdded(), std::pair(5.99, std::string("Shelved"))) << "the kept one is older";
  keep("Kept", 3.99, kNow + std::chrono::hours(1));
  EXPECT_EQ(pricesWhenAdded(), std::pair(3.99, std::string("Kept")));
}

/// A price that a list tells of a later day than the record is the price.
TEST_F(WatchEditsTest, ANewerPriceOfTheRowIsKept) {
  runTask(store_->change(
      recordView, cachedAppOf(record("Kept", 9.99), {"us", Platform::mac, kNow - kDay}), kNow));
  const auto pricesWhenAdded = [this](std::optional<Instant> asOf) {
    AppRow deal = row();
    deal.price = {QStringLiteral("$4.99"), PriceMove::down, 4.99, "USD", PriceKind::asked, asOf};
    const EditStep undo =
        make(targetEdit({toWatch(deal, records_)}, watchDefaults(settings_), kNow).step);
    const WatchedApp made = watchedNow();
    make(undo);
    EXPECT_EQ(made.targetPrice, 4.99);
    EXPECT_EQ(made.name, "Kept");
    EXPECT_EQ(made.priceWhenAdded, made.currentPrice);
    return std::pair(made.currentPrice, made.formattedPrice.value_or("-"));
  };
  EXPECT_EQ(pricesWhenAdded(kNow), std::pair(4.99, std::string("$4.99")));
  EXPECT_EQ(pricesWhenAdded(kNow - kDay).first, 9.99) << "as old";
  EXPECT_EQ(pricesWhenAdded(kNow - 2 * kDay).first, 9.99);
  EXPECT_EQ(pricesWhenAdded(std::nullopt).first, 9.99);
}

/// Of what nothing tells the price, the first check begins it: it was never free.
TEST_F(WatchEditsTest, AnAppWithoutAPriceBeginsAtItsFirst) {
  AppRow silent = row();
  silent.price = {};
  AppRow owned = row();
  owned.price.kind = PriceKind::paid;
  PageFacts page;
  page.app = kApp;
  ITunesApp untold = record("Untold", 0);
  untold.price.reset();
  untold.currency.reset();
  const std::pair<const char*, AppToWatch> cases[] = {
      {"a row without one", toWatch(silent, records_)},
      {"what the user paid", toWatch(owned, records_)},
      {"a page", toWatch(page, records_)},
      {"a record without one", {.row = {}, .pricedAt = {}, .record = {{untold, {}, kNow}}}},
  };
  std::int64_t id = 0;
  for (const auto& [name, app] : cases) {
    AppToWatch added = app;
    added.row.trackId = ++id;  // what was checked is known from then on
    added.row.country = kApp.country;
    const EditStep undo = make(watchEdit({added}, watchDefaults(settings_), kNow).step);
    EXPECT_TRUE(lacksPrice(watchedNow())) << name;
    StorefrontCheck check{.country = "us", .when = kNow + kDay, .asked = {id}};
    check.found = {record("Paperfold", 2.99)};
    check.found[0].trackId = id;
    EXPECT_TRUE(runTask(store_->change(recordStorefrontCheck, check)).empty()) << name;
    EXPECT_EQ(watchedNow().priceWhenAdded, 2.99) << name;
    make(undo);
  }
}

TEST_F(WatchEditsTest, AlertsAreThoseOfTheSettings) {
  settings_.set("watchAnyDrop", "false");
  settings_.set("watchNewVersion", "true");
  make(watchEdit({toWatch(row(), records_)}, watchDefaults(settings_), kNow).step);
  const WatchedApp made = watchedNow();
  EXPECT_EQ((std::array{made.alertOnAnyDrop, made.alertOnFree, made.alertOnNewVersion,
                        made.alertOnPurchasePrices}),
            (std::array{false, true, true, true}));
}

/// What the user did not touch is what the library has when the change is made.
TEST_F(WatchEditsTest, AChangeLeavesAllElseAsItIsByThen) {
  make(watchEdit({toWatch(row(), records_)}, watchDefaults(settings_), kNow).step);
  WatchChange target;
  target.target = WatchChange::Target{2.99};
  const LibraryEdit later = changeEdit({kApp}, {QStringLiteral("Paperfold"), 1}, target);
  WatchChange off;
  off.whenFree = false;
  make(changeEdit({kApp}, {QStringLiteral("Paperfold"), 1}, off).step);
  const WatchedApp before = watchedNow();

  const EditStep undo = make(later.step);
  EXPECT_EQ(watchedNow().targetPrice, 2.99);
  EXPECT_FALSE(watchedNow().alertOnFree);
  EXPECT_FALSE(make(later.step)) << "nothing is another";
  const EditStep redo = make(undo);
  EXPECT_EQ(watchedNow(), before);
  make(redo);
  EXPECT_EQ(watchedNow().targetPrice, 2.99);
}

/// A target of the currency that was is none; one that is set is of the currency that is.
TEST(ChangedWatch, ATargetIsInTheCurrencyOfThePrice) {
  WatchedApp app;
  app.currency = "EUR";
  app.targetCurrency = "HRK";
  app.targetPrice = 20;
  WatchChange change;
  change.anyDrop = true;
  EXPECT_EQ(changed(app, change).targetCurrency, "HRK");
  change.target = WatchChange::Target{20.0};
  EXPECT_EQ(changed(app, change).targetCurrency, std::nullopt);
  EXPECT_EQ(changed(app, change).targetPrice, 20);
}

}  // namespace
}  // namespace quillet

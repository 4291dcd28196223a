// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/watchlist.h"

#include <fmt/format.h>

#include <map>

#include "analysis/recorded_price.h"
#include "cli/local/local_statement.h"
#include "cli/local/recorded_purchases.h"

namespace quillet {

namespace {

constexpr const char* kQuery =
    "SELECT ZTRACKID, ZNAME, ZSELLERNAME, ZCOUNTRY, ZPLATFORMRAW, ZCURRENCY,\n"
    "       ZPRICEWHENADDED, ZCURRENTPRICE, ZFORMATTEDPRICE, ZTARGETPRICE,\n"
    "       ZALERTONANYDROP, ZALERTONFREE, ZALERTONNEWVERSION,\n"
    "       ZADDEDAT, ZLASTCHECKEDAT, ZISUNAVAILABLE\n"
    "FROM ZWATCHEDAPP ORDER BY ZADDEDAT DESC, Z_PK DESC";

CLIWatchedApp appOf(const LocalStatement& row, std::int64_t trackId, std::string name) {
  CLIWatchedApp app;
  app.trackId = trackId;
  app.name = std::move(name);
  app.seller = row.text(2);
  app.country = row.text(3).value_or("");
  app.platform = row.text(4);
  app.currency = row.text(5);
  app.priceWhenAdded = row.number(6);
  app.currentPrice = row.number(7);
  app.formattedPrice = row.text(8);
  if (app.formattedPrice == "") app.formattedPrice.reset();  // it was not told
  app.targetPrice = row.number(9);
  app.alertOnAnyDrop = row.flag(10);
  app.alertOnFree = row.flag(11);
  app.alertOnNewVersion = row.flag(12);
  app.addedAt = row.date(13);
  app.lastCheckedAt = row.date(14);
  app.unavailable = row.flag(15);
  return app;
}

CLIWatchlist readApps(const CLILocalStore& store, std::size_t limit) {
  CLIWatchlist watchlist;
  LocalStatement rows(store, kQuery);
  while (rows.next()) {
    const auto trackId = rows.integer(0);
    auto name = rows.text(1);
    if (!trackId || !name) continue;
    ++watchlist.total;
    if (watchlist.items.size() < limit) {
      watchlist.items.push_back(appOf(rows, *trackId, std::move(*name)));
    }
  }
  return watchlist;
}

/// In which currencies the prices of an app were said, where its storefront changed its own since.
struct SaidIn {
  std::optional<std::string> whenAdded;
  std::optional<std::string> target;
};

/// By track ID and storefront. Libraries of older builds hold none.
std::map<std::pair<std::int64_t, std::string>, SaidIn> readCurrencies(
    const CLILocalStore& store, const std::vector<std::int64_t>& trackIds) {
  std::map<std::pair<std::int64_t, std::string>, SaidIn> currencies;
  if (!hasColumn(store, "ZWATCHEDAPP", "ZADDEDCURRENCY")) return currencies;
  LocalStatement rows(store,
                      fmt::format("SELECT ZTRACKID, ZCOUNTRY, ZADDEDCURRENCY, ZTARGETCURRENCY\n"
                                  "FROM ZWATCHEDAPP WHERE ZTRACKID IN ({}) AND\n"
                                  "(ZADDEDCURRENCY IS NOT NULL OR ZTARGETCURRENCY IS NOT NULL)",
                                  fmt::join(trackIds, ",")));
  while (rows.next()) {
    const auto trackId = rows.integer(0);
    if (trackId) currencies[{*trackId, rows.text(1).value_or("")}] = {rows.text(2), rows.text(3)};
  }
  return currencies;
}

std::vector<std::int64_t> trackIdsOf(const std::vector<CLIWatchedApp>& apps) {
  std::vector<std::int64_t> trackIds;
  for (const CLIWatchedApp& app : apps) trackIds.push_back(app.trackId);
  return trackIds;
}

/// Leaves out what was said in another currency than the app's price is in.
void compare(const CLILocalStore& store, std::vector<CLIWatchedApp>& apps) {
  const auto currencies = readCurrencies(store, trackIdsOf(apps));
  for (CLIWatchedApp& app : apps) {
    if (const auto said = currencies.find({app.trackId, app.country}); said != currencies.end()) {
      if (!areComparable(said->second.whenAdded, app.currency)) app.priceWhenAdded.reset();
      if (!areComparable(said->second.target, app.currency)) app.targetPrice.reset();
    }
    app.changeSinceAdded = changeSince(app.currentPrice, app.priceWhenAdded);
  }
}

/// Of the shown apps alone: nobody sees the others.
void addPurchaseCounts(const CLILocalStore& store, std::vector<CLIWatchedApp>& apps) {
  const auto recorded = readPurchaseSeries(store, trackIdsOf(apps));
  if (!recorded) return;
  std::map<std::pair<std::int64_t, std::string>, PurchaseCounts> counts;
  for (const PurchaseSeries& series : *recorded)
    addTo(counts[{series.trackId, series.country}], series);
  for (CLIWatchedApp& app : apps) {
    const PurchaseCounts& ofApp = counts[{app.trackId, app.country}];
    app.purchasesTracked = ofApp.tracked;
    app.purchasesChanged = ofApp.changed;
  }
}

void writeApp(JsonWriter& writer, const CLIWatchedApp& app) {
  writer.beginObject();
  writer.member("addedAt", app.addedAt);
  writer.member("alertOnAnyDrop", app.alertOnAnyDrop);
  writer.member("alertOnFree", app.alertOnFree);
  writer.member("alertOnNewVersion", app.alertOnNewVersion);
  writer.member("changeSinceAdded", app.changeSinceAdded);
  writer.member("country", app.country);
  writer.member("currency", app.currency);
  writer.member("currentPrice", app.currentPrice);
  writer.member("formattedPrice", app.formattedPrice);
  writer.member("lastCheckedAt", app.lastCheckedAt);
  writer.member("name", app.name);
  writer.member("platform", app.platform);
  writer.member("priceWhenAdded", app.priceWhenAdded);
  writer.member("purchasesChanged", app.purchasesChanged);
  writer.member("purchasesTracked", app.purchasesTracked);
  writer.member("seller", app.seller);
  writer.member("targetPrice", app.targetPrice);
  writer.member("trackId", app.trackId);
  writer.member("unavailable", app.unavailable);
  writer.endObject();
}

}  // namespace

CLIWatchlist readWatchlist(const LocalCall& call) {
  refuseOperands("watchlist", call.options);
  const CLILocalStore store = CLILocalStore::open(call.environment, call.queryLog);
  CLIWatchlist watchlist = readApps(store, call.options.limit);
  compare(store, watchlist.items);
  addPurchaseCounts(store, watchlist.items);
  if (watchlist.items.size() < watchlist.total) tellCut(call);
  return watchlist;
}

std::string renderWatchlistJson(const CLIWatchlist& watchlist) {
  return renderListJson(watchlist, writeApp);
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/watched_apps.h"

#include "analysis/recorded_price.h"
#include "library/row_sets.h"

namespace quillet {

namespace {

/// As optionsOf(), but for later: the storefront may have another currency by then.
WatchOptions lastingOptionsOf(const WatchedApp& app) {
  WatchOptions options = optionsOf(app);
  if (options.targetPrice && !options.targetCurrency) options.targetCurrency = app.currency;
  return options;
}

}  // namespace

void setOptions(WatchedApp& app, const WatchOptions& options) {
  const bool isOfPrice = options.targetCurrency == app.currency;
  app.alertOnAnyDrop = options.alertOnAnyDrop;
  app.alertOnFree = options.alertOnFree;
  app.alertOnNewVersion = options.alertOnNewVersion;
  app.alertOnPurchasePrices = options.alertOnPurchasePrices;
  app.targetPrice = options.targetPrice;
  app.mutedUntil = options.mutedUntil;
  app.targetCurrency = isOfPrice ? std::nullopt : options.targetCurrency;
}

WatchOptions optionsOf(const WatchedApp& app) {
  return {app.alertOnAnyDrop, app.alertOnFree, app.alertOnNewVersion, app.alertOnPurchasePrices,
          app.targetPrice,    app.mutedUntil,  app.targetCurrency};
}

bool lacksPrice(const WatchedApp& app) {
  return app.currentPrice == 0 && app.formattedPrice.value_or("").empty();
}

std::optional<double> knownPriceWhenAdded(const WatchedApp& app) {
  const bool isKnown = areComparable(app.addedCurrency, app.currency);
  return isKnown ? std::optional(app.priceWhenAdded) : std::nullopt;
}

std::optional<double> knownTargetPrice(const WatchedApp& app) {
  return areComparable(app.targetCurrency, app.currency) ? app.targetPrice : std::nullopt;
}

std::vector<WatchedApp> watchedApps(SQLite::Database& database) {
  return selectRows<WatchedApp>(database, "ORDER BY ZADDEDAT DESC, Z_PK DESC");
}

std::vector<WatchedApp> watchedAppsOf(SQLite::Database& database, const std::vector<AppKey>& apps) {
  return rowsOfApps<WatchedApp>(database, apps);
}

std::vector<WatchedApp> unsoldApps(SQLite::Database& database) {
  return selectRows<WatchedApp>(database, "WHERE ZISUNAVAILABLE = 1");
}

std::vector<AppKey> watchedAmong(SQLite::Database& database, const std::vector<AppKey>& apps) {
  SQLite::Statement isWatched(database,
                              "SELECT 1 FROM ZWATCHEDAPP WHERE ZTRACKID = ?1 AND ZCOUNTRY = ?2");
  std::vector<AppKey> watched;
  for (const AppKey& app : apps) {
    if (hasRow(isWatched, app.trackId, app.country)) watched.push_back(app);
  }
  return watched;
}

std::vector<AppKey> watchApps(WriteTransaction& transaction, const std::vector<WatchedApp>& apps) {
  return addRowsOfApps(transaction, apps);
}

std::vector<WatchEdit> editWatches(WriteTransaction& transaction,
                                   const std::vector<WatchEdit>& edits) {
  std::vector<WatchEdit> before;
  editRowsOfApps<WatchedApp>(transaction, edits, [&](WatchedApp& row, const WatchEdit& edit) {
    before.push_back({edit.app, lastingOptionsOf(row)});
    setOptions(row, edit.options);
  });
  return before;
}

RemovedRows unwatchApps(WriteTransaction& transaction, const std::vector<AppKey>& apps) {
  return removeRows(transaction, &RemovedRows::watchedApps,
                    watchedAppsOf(transaction.database, apps));
}

}  // namespace quillet

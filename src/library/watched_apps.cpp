// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/watched_apps.h"

#include "library/row_sets.h"

namespace quillet {
namespace {

WatchOptions optionsOf(const WatchedApp& app) {
  return {app.alertOnAnyDrop,        app.alertOnFree, app.alertOnNewVersion,
          app.alertOnPurchasePrices, app.targetPrice, app.mutedUntil};
}

void apply(WatchedApp& app, const WatchOptions& options) {
  app.alertOnAnyDrop = options.alertOnAnyDrop;
  app.alertOnFree = options.alertOnFree;
  app.alertOnNewVersion = options.alertOnNewVersion;
  app.alertOnPurchasePrices = options.alertOnPurchasePrices;
  app.targetPrice = options.targetPrice;
  app.mutedUntil = options.mutedUntil;
}

}  // namespace

std::vector<WatchedApp> watchedApps(SQLite::Database& database) {
  return selectRows<WatchedApp>(database, "ORDER BY ZADDEDAT DESC");
}

std::vector<WatchedApp> watchedAppsOf(SQLite::Database& database, const std::vector<AppKey>& apps) {
  return rowsOfApps<WatchedApp>(database, apps);
}

std::vector<AppKey> watchApps(WriteTransaction& transaction, const std::vector<WatchedApp>& apps) {
  RowInserter<WatchedApp> inserter(transaction.database, OnConflict::skip);
  std::vector<AppKey> added;
  for (const WatchedApp& app : apps) {
    if (inserter.insert(app)) added.push_back(keyOf(app));
  }
  transaction.changes.watchedApps.insert(added.begin(), added.end());
  return added;
}

std::vector<WatchEdit> editWatches(WriteTransaction& transaction,
                                   const std::vector<WatchEdit>& edits) {
  std::vector<WatchEdit> before;
  editRowsOfApps<WatchedApp>(transaction.database, edits,
                             [&](WatchedApp& row, const WatchEdit& edit) {
                               before.push_back({edit.app, optionsOf(row)});
                               apply(row, edit.options);
                               transaction.changes.watchedApps.insert(edit.app);
                             });
  return before;
}

RemovedRows unwatchApps(WriteTransaction& transaction, const std::vector<AppKey>& apps) {
  RemovedRows removed;
  removed.watchedApps = rowsOfApps<WatchedApp>(transaction.database, apps);
  deleteRows(transaction.database, removed.watchedApps);
  for (const WatchedApp& row : removed.watchedApps) {
    transaction.changes.watchedApps.insert(keyOf(row));
  }
  return removed;
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/owned_apps.h"

#include "library/row_sets.h"

namespace quillet {
namespace {

OwnedDetails detailsOf(const OwnedApp& app) {
  return {app.priceWhenAdded, app.currency, app.trackViewUrl, app.skippedVersion};
}

void apply(OwnedApp& app, const OwnedDetails& details) {
  app.priceWhenAdded = details.priceWhenAdded;
  app.currency = details.currency;
  app.trackViewUrl = details.trackViewUrl;
  app.skippedVersion = details.skippedVersion;
}

void apply(OwnedApp& app, const StoreVersion& offered) {
  if (offered.version) app.storeVersion = offered.version;
  if (offered.primaryGenreName) app.primaryGenreName = offered.primaryGenreName;
}

void applyInstalled(OwnedApp& app, const OwnedApp& found) {
  app.bundleId = found.bundleId;
  app.installedVersion = found.installedVersion;
  app.installedPath = found.installedPath;
  app.installedSizeBytes = found.installedSizeBytes;
  app.lastScannedAt = found.lastScannedAt;
}

}  // namespace

std::vector<OwnedApp> ownedApps(SQLite::Database& database) {
  return selectRows<OwnedApp>(database, "ORDER BY ZNAME COLLATE NOCASE");
}

std::vector<OwnedApp> ownedAppsOf(SQLite::Database& database, const std::vector<AppKey>& apps) {
  return rowsOfApps<OwnedApp>(database, apps);
}

TrackIds ownedTrackIds(SQLite::Database& database) {
  SQLite::Statement query(database, "SELECT DISTINCT ZTRACKID FROM ZOWNEDAPP");
  TrackIds ids;
  while (query.executeStep()) ids.insert(query.getColumn(0).getInt64());
  return ids;
}

std::vector<AppKey> addOwnedApps(WriteTransaction& transaction, const std::vector<OwnedApp>& apps) {
  return addRowsOfApps(transaction, apps);
}

std::vector<AppKey> recordScan(WriteTransaction& transaction, const std::vector<OwnedApp>& found) {
  RowQuery<OwnedApp> query(transaction.database, kOfApp);
  RowUpdater<OwnedApp> updater(transaction.database);
  std::vector<OwnedApp> unknown;
  for (const OwnedApp& app : found) {
    auto row = query.first(app.trackId, app.country);
    if (!row) {
      unknown.push_back(app);
      continue;
    }
    if (row->sourceRaw == textOf(kOwnedSourceTexts, OwnedSource::manual)) continue;
    applyInstalled(*row, app);
    updater.update(*row);
    noteChange(transaction.changes, *row);
  }
  return addOwnedApps(transaction, unknown);
}

std::vector<OwnedEdit> editOwnedApps(WriteTransaction& transaction,
                                     const std::vector<OwnedEdit>& edits) {
  std::vector<OwnedEdit> before;
  editRowsOfApps<OwnedApp>(transaction, edits, [&](OwnedApp& row, const OwnedEdit& edit) {
    before.push_back({edit.app, detailsOf(row)});
    apply(row, edit.details);
  });
  return before;
}

std::vector<OwnedEdit> skipUpdates(WriteTransaction& transaction, const std::vector<AppKey>& apps,
                                   SkipUpdates what) {
  std::vector<OwnedEdit> edits;
  for (const OwnedApp& app : ownedAppsOf(transaction.database, apps)) {
    OwnedEdit edit{keyOf(app), detailsOf(app)};
    if (what == SkipUpdates::heed) edit.details.skippedVersion.reset();
    if (what == SkipUpdates::skip && app.storeVersion)
      edit.details.skippedVersion = app.storeVersion;
    if (edit.details != detailsOf(app)) edits.push_back(std::move(edit));
  }
  return editOwnedApps(transaction, edits);
}

void recordStoreVersions(WriteTransaction& transaction, const std::vector<StoreVersion>& versions) {
  editRowsOfApps<OwnedApp>(transaction, versions,
                           [](OwnedApp& row, const StoreVersion& offered) { apply(row, offered); });
}

RemovedRows removeOwnedApps(WriteTransaction& transaction, const std::vector<AppKey>& apps) {
  return removeRows(transaction, &RemovedRows::ownedApps, ownedAppsOf(transaction.database, apps));
}

}  // namespace quillet

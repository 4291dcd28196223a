// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/owned_apps.h"

#include <map>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "library/row_sets.h"
#include "library/store_rows.h"
#include "store/records/platform.h"

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
  if (offered.isUnavailable) app.isUnavailable = offered.isUnavailable;
  app.lastCheckedAt = offered.askedAt;
}

void applyInstalled(OwnedApp& app, const OwnedApp& found) {
  app.bundleId = found.bundleId;
  app.installedVersion = found.installedVersion;
  app.installedPath = found.installedPath;
  if (found.installedSizeBytes) app.installedSizeBytes = found.installedSizeBytes;
  app.architectures = found.architectures;
  app.lastScannedAt = found.lastScannedAt;
}

void applyInstalled(OwnedApp& app, const InstalledCopy& copy) {
  app.installedVersion = copy.version;
  app.installedPath = copy.path;
  if (copy.sizeBytes) app.installedSizeBytes = copy.sizeBytes;
  app.architectures = wordsOf(copy.architectures);
  app.lastScannedAt = copy.scannedAt;
}

/// Iphone and iPad have one build in common.
bool isMacBuild(std::string_view platformRaw) {
  return platformRaw == textOf(kPlatformWords, Platform::mac);
}

/// The rows of My Apps by what a bundle says of itself.
class OwnedByIdentity {
 public:
  explicit OwnedByIdentity(SQLite::Database& database) {
    SQLite::Statement query(
        database, "SELECT Z_PK, ZTRACKID, ZBUNDLEID, ZPLATFORMRAW FROM ZOWNEDAPP ORDER BY Z_PK");
    while (query.executeStep()) {
      const RowId row = query.getColumn(0).getInt64();
      const bool isMac = isMacBuild(query.getColumn(3).getString());
      byTrackId_[{query.getColumn(1).getInt64(), isMac}].push_back(row);
      if (!query.getColumn(2).isNull())
        byBundleId_[{lowerAscii(query.getColumn(2).getString()), isMac}].push_back(row);
    }
  }

  [[nodiscard]] std::vector<RowId> rowsOf(const InstalledCopy& copy) const {
    const bool isMac = copy.platform == Platform::mac;
    if (copy.trackId) return found(byTrackId_, {*copy.trackId, isMac});
    if (copy.bundleId) return found(byBundleId_, {lowerAscii(*copy.bundleId), isMac});
    return {};
  }

 private:
  template <typename Rows>
  static std::vector<RowId> found(const Rows& rows, const typename Rows::key_type& key) {
    const auto place = rows.find(key);
    return place == rows.end() ? std::vector<RowId>() : place->second;
  }

  std::map<std::pair<std::int64_t, bool>, std::vector<RowId>> byTrackId_;
  std::map<std::pair<std::string, bool>, std::vector<RowId>> byBundleId_;
};

/// A copy whose lists cannot be read any more is there none the less.
void noteThere(WriteTransaction& transaction, RowUpdater<OwnedApp>& updater,
               const InstalledCopy& copy) {
  if (copy.trackId || copy.bundleId || !copy.path) return;
  for (OwnedApp& row :
       selectRows<OwnedApp>(transaction.database, "WHERE ZINSTALLEDPATH = ?1", *copy.path)) {
    row.lastScannedAt = copy.scannedAt;
    updater.update(row);
    noteChange(transaction.changes, row);
  }
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

std::vector<std::vector<AppKey>> recordCopies(WriteTransaction& transaction,
                                              const std::vector<InstalledCopy>& copies) {
  const OwnedByIdentity owned(transaction.database);
  RowUpdater<OwnedApp> updater(transaction.database);
  std::vector<std::vector<AppKey>> keys;
  for (const InstalledCopy& copy : copies) {
    noteThere(transaction, updater, copy);
    std::vector<AppKey>& known = keys.emplace_back();
    for (OwnedApp& row : rowsOfKeys<OwnedApp>(transaction.database, owned.rowsOf(copy))) {
      known.push_back(keyOf(row));
      if (row.sourceRaw == textOf(kOwnedSourceTexts, OwnedSource::manual)) continue;
      applyInstalled(row, copy);
      updater.update(row);
      noteChange(transaction.changes, row);
    }
  }
  return keys;
}

std::vector<std::vector<AppKey>> keysOfCopies(SQLite::Database& database,
                                              const std::vector<InstalledCopy>& copies) {
  const OwnedByIdentity owned(database);
  std::vector<std::vector<AppKey>> keys;
  for (const InstalledCopy& copy : copies) {
    std::vector<AppKey>& known = keys.emplace_back();
    for (const OwnedApp& row : rowsOfKeys<OwnedApp>(database, owned.rowsOf(copy)))
      known.push_back(keyOf(row));
  }
  return keys;
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

void recordStoreAnswer(WriteTransaction& transaction, const std::vector<AppKey>& asked,
                       const std::vector<ITunesApp>& found, Instant when) {
  std::map<std::int64_t, const ITunesApp*> records;
  for (const ITunesApp& each : found) records.emplace(each.trackId, &each);
  std::vector<StoreVersion> told;
  for (const OwnedApp& app : ownedAppsOf(transaction.database, asked)) {
    const auto record = records.find(app.trackId);
    if (record == records.end()) {
      told.push_back({keyOf(app), {}, {}, true, when});
    } else if (const auto version = versionOf(*record->second, app.platformRaw)) {
      told.push_back({keyOf(app), version, record->second->primaryGenreName, false, when});
    }
  }
  recordStoreVersions(transaction, told);
}

std::vector<OwnedApp> ownedAppsToCheck(SQLite::Database& database, Instant then, Instant now) {
  return selectRows<OwnedApp>(
      database,
      "WHERE ZLASTCHECKEDAT IS NULL OR ZLASTCHECKEDAT <= ?1 OR ZLASTCHECKEDAT > ?2 "
      "ORDER BY ZLASTCHECKEDAT, Z_PK",
      then, now);
}

RemovedRows removeOwnedApps(WriteTransaction& transaction, const std::vector<AppKey>& apps) {
  return removeRows(transaction, &RemovedRows::ownedApps, ownedAppsOf(transaction.database, apps));
}

}  // namespace quillet

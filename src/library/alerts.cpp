// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/alerts.h"

#include "library/row_sets.h"

namespace quillet {

std::vector<AlertRecord> alerts(SQLite::Database& database) {
  return selectRows<AlertRecord>(database, "ORDER BY ZDATE DESC, Z_PK DESC");
}

std::vector<AlertRecord> newestAlerts(SQLite::Database& database, std::int64_t limit) {
  return selectRows<AlertRecord>(database, "ORDER BY ZDATE DESC, Z_PK DESC LIMIT ?1", limit);
}

std::optional<AlertRecord> newestAlertOf(SQLite::Database& database, std::int64_t trackId) {
  return selectRow<AlertRecord>(
      database, "WHERE ZTRACKID = ?1 ORDER BY ZDATE DESC, Z_PK DESC LIMIT 1", trackId);
}

std::vector<AlertRecord> unreadAlerts(SQLite::Database& database) {
  return selectRows<AlertRecord>(database, "WHERE ZISREAD = 0");
}

std::vector<AlertRecord> newestUnreadAlerts(SQLite::Database& database, std::int64_t limit) {
  return selectRows<AlertRecord>(
      database, "WHERE ZISREAD = 0 ORDER BY ZDATE DESC, Z_PK DESC LIMIT ?1", limit);
}

std::int64_t unreadAlertCount(SQLite::Database& database) {
  return database.execAndGet("SELECT count(*) FROM ZALERTRECORD WHERE ZISREAD = 0").getInt64();
}

std::vector<RowId> addAlerts(WriteTransaction& transaction,
                             const std::vector<AlertRecord>& alerts) {
  RowInserter<AlertRecord> inserter(transaction.database, OnConflict::fail);
  std::vector<RowId> added;
  for (const AlertRecord& alert : alerts) added.push_back(*inserter.insert(alert));
  transaction.changes.alerts.insert(added.begin(), added.end());
  return added;
}

std::vector<RowId> setAlertsRead(WriteTransaction& transaction, const std::vector<RowId>& keys,
                                 ReadState state) {
  SQLite::Statement statement(
      transaction.database,
      "UPDATE ZALERTRECORD SET ZISREAD = ?2 WHERE Z_PK = ?1 AND (ZISREAD <> 0) <> ?2");
  std::vector<RowId> changed;
  for (const RowId key : keys) {
    if (runOnce(statement, key, state == ReadState::read) > 0) changed.push_back(key);
  }
  transaction.changes.alerts.insert(changed.begin(), changed.end());
  return changed;
}

std::vector<RowId> markAllAlertsRead(WriteTransaction& transaction) {
  std::vector<RowId> keys;
  for (const AlertRecord& row : unreadAlerts(transaction.database)) keys.push_back(row.id);
  return setAlertsRead(transaction, keys, ReadState::read);
}

RemovedRows removeAlerts(WriteTransaction& transaction, const std::vector<RowId>& keys) {
  return removeRows(transaction, &RemovedRows::alerts,
                    rowsOfKeys<AlertRecord>(transaction.database, keys));
}

RemovedRows removeAlertsBefore(WriteTransaction& transaction, Instant when) {
  return removeRows(transaction, &RemovedRows::alerts,
                    selectRows<AlertRecord>(transaction.database, "WHERE ZDATE < ?1", when));
}

RemovedRows clearAlerts(WriteTransaction& transaction) {
  return removeRows(transaction, &RemovedRows::alerts, alerts(transaction.database));
}

}  // namespace quillet

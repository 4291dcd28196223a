// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "library/removed_rows.h"

namespace quillet {

enum class ReadState { unread, read };

/// Newest first.
[[nodiscard]] std::vector<AlertRecord> alerts(SQLite::Database& database);
[[nodiscard]] std::vector<AlertRecord> newestAlerts(SQLite::Database& database, std::int64_t limit);
/// The newest one of an app, in whatever storefront.
[[nodiscard]] std::optional<AlertRecord> newestAlertOf(SQLite::Database& database,
                                                       std::int64_t trackId);
[[nodiscard]] std::vector<AlertRecord> unreadAlerts(SQLite::Database& database);
[[nodiscard]] std::vector<AlertRecord> newestUnreadAlerts(SQLite::Database& database,
                                                          std::int64_t limit);
[[nodiscard]] std::int64_t unreadAlertCount(SQLite::Database& database);

std::vector<RowId> addAlerts(WriteTransaction& transaction, const std::vector<AlertRecord>& alerts);

/// Returns the keys of the alerts that were in the other state, for the call that undoes it.
std::vector<RowId> setAlertsRead(WriteTransaction& transaction, const std::vector<RowId>& keys,
                                 ReadState state);
std::vector<RowId> markAllAlertsRead(WriteTransaction& transaction);

RemovedRows removeAlerts(WriteTransaction& transaction, const std::vector<RowId>& keys);
RemovedRows removeAlertsBefore(WriteTransaction& transaction, Instant when);
RemovedRows clearAlerts(WriteTransaction& transaction);

}  // namespace quillet

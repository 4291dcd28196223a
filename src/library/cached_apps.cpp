// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/cached_apps.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <limits>

#include "base/text.h"
#include "library/row_sets.h"

namespace quillet {
namespace {

/// What a lookup leaves as it is where it says nothing of it: what only pages bring, and the
/// ratings, which lookups do not tell of Mac apps.
constexpr std::array<std::string_view, 10> kPageAttributes{"rating",
                                                           "ratingCount",
                                                           "ratingHistogram",
                                                           "ratingsUpdatedAt",
                                                           "hasInAppPurchases",
                                                           "hasSubscription",
                                                           "hasUnlockPurchase",
                                                           "editorialBadge",
                                                           "tagline",
                                                           "needsRosetta"};

/// What no lookup changes. (A column that is set, to the same value too, is written to its
/// indexes.)
constexpr std::array<std::string_view, 3> kFixedAttributes{"trackId", "country", "lastViewedAt"};

template <std::size_t N>
bool isAmong(const std::array<std::string_view, N>& attributes, const std::string& column) {
  return std::ranges::any_of(attributes, [&](auto name) { return storedName(name) == column; });
}

/// Takes a record in over the stored one; the parameters are those of a whole row.
std::string refreshSql() {
  std::vector<std::string> assignments;
  std::string condition;
  int parameter = 1;  // the key
  for (const ColumnShape& column : shapeOf<CachedApp>().columns) {
    ++parameter;
    if (column.name == storedName("trackId") || column.name == storedName("country"))
      condition +=
          fmt::format("{}{} = ?{}", condition.empty() ? "" : " AND ", column.name, parameter);
    if (isAmong(kFixedAttributes, column.name)) continue;
    assignments.push_back(isAmong(kPageAttributes, column.name)
                              ? fmt::format("{0} = coalesce(?{1}, {0})", column.name, parameter)
                              : fmt::format("{} = ?{}", column.name, parameter));
  }
  return fmt::format("UPDATE {} SET {} WHERE {}", shapeOf<CachedApp>().name,
                     join(assignments, ", "), condition);
}

/// Writes records over those that are stored.
class Refresher {
 public:
  explicit Refresher(SQLite::Database& database) : statement_(database, refreshSql()) {}

  /// Whether there was one.
  bool refresh(const CachedApp& app) {
    bindRow(statement_, app);
    const int changed = statement_.exec();
    statement_.reset();
    return changed > 0;
  }

 private:
  SQLite::Statement statement_;
};

RemovedRows forget(WriteTransaction& transaction, std::vector<CachedApp> rows) {
  RemovedRows removed;
  RowUpdater<CachedApp> updater(transaction.database);
  for (CachedApp& row : rows) {
    if (!row.lastViewedAt) continue;
    removed.views.push_back({keyOf(row), *row.lastViewedAt});
    row.lastViewedAt.reset();
    updater.update(row);
    transaction.changes.cachedApps.insert(keyOf(row));
  }
  return removed;
}

}  // namespace

std::vector<CachedApp> cachedAppsOf(SQLite::Database& database, const std::vector<AppKey>& apps) {
  return rowsOfApps<CachedApp>(database, apps);
}

std::vector<CachedApp> viewedApps(SQLite::Database& database, std::int64_t limit) {
  return selectRows<CachedApp>(
      database, "WHERE ZLASTVIEWEDAT IS NOT NULL ORDER BY ZLASTVIEWEDAT DESC LIMIT ?1", limit);
}

void refreshCachedApps(WriteTransaction& transaction, const std::vector<CachedApp>& apps) {
  Refresher refresher(transaction.database);
  RowInserter<CachedApp> inserter(transaction.database, OnConflict::fail);
  SQLite::Statement isListed(
      transaction.database,
      "SELECT 1 FROM ZWATCHEDAPP WHERE ZTRACKID = ?1 AND ZCOUNTRY = ?2 UNION ALL "
      "SELECT 1 FROM ZOWNEDAPP WHERE ZTRACKID = ?1 AND ZCOUNTRY = ?2");
  for (const CachedApp& app : apps) {
    if (!refresher.refresh(app)) {
      if (!hasRow(isListed, app.trackId, app.country)) continue;
      inserter.insert(app);
    }
    transaction.changes.cachedApps.insert(keyOf(app));
  }
}

void recordView(WriteTransaction& transaction, const CachedApp& app, Instant viewedAt) {
  if (!Refresher(transaction.database).refresh(app)) insertRow(transaction.database, app);
  SQLite::Statement view(
      transaction.database,
      "UPDATE ZCACHEDAPP SET ZLASTVIEWEDAT = ?3 WHERE ZTRACKID = ?1 AND ZCOUNTRY = ?2");
  runOnce(view, app.trackId, app.country, viewedAt);
  transaction.changes.cachedApps.insert(keyOf(app));
}

RemovedRows forgetViews(WriteTransaction& transaction, const std::vector<AppKey>& apps) {
  return forget(transaction, cachedAppsOf(transaction.database, apps));
}

RemovedRows forgetAllViews(WriteTransaction& transaction) {
  return forget(transaction,
                viewedApps(transaction.database, std::numeric_limits<std::int64_t>::max()));
}

}  // namespace quillet

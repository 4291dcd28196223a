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
constexpr std::array<std::string_view, 11> kPageAttributes{"rating",
                                                           "ratingCount",
                                                           "ratingHistogram",
                                                           "ratingsUpdatedAt",
                                                           "hasInAppPurchases",
                                                           "hasSubscription",
                                                           "hasUnlockPurchase",
                                                           "editorialBadge",
                                                           "tagline",
                                                           "needsRosetta",
                                                           "deviceFamilies"};

/// What no lookup changes. (A column that is set, to the same value too, is written to its
/// indexes.)
constexpr std::array<std::string_view, 3> kFixedAttributes{"trackId", "country", "lastViewedAt"};

template <std::size_t N>
bool isAmong(const std::array<std::string_view, N>& attributes, const std::string& column) {
  return std::ranges::any_of(attributes, [&](auto name) { return storedName(name) == column; });
}

/// Takes a record in over the stored one; the parameters are those of a whole row, and last an
/// empty array.
std::string refreshSql() {
  std::vector<std::string> assignments;
  std::string condition;
  int parameter = 1;  // the key
  const TableShape table = shapeOf<CachedApp>();
  const std::size_t none = table.columns.size() + 2;
  for (const ColumnShape& column : table.columns) {
    ++parameter;
    if (column.name == storedName("trackId") || column.name == storedName("country"))
      condition +=
          fmt::format("{}{} = ?{}", condition.empty() ? "" : " AND ", column.name, parameter);
    if (isAmong(kFixedAttributes, column.name)) continue;
    assignments.push_back(
        isAmong(kPageAttributes, column.name)
            ? fmt::format("{0} = coalesce(nullif(?{1}, ?{2}), {0})", column.name, parameter, none)
            : fmt::format("{} = ?{}", column.name, parameter));
  }
  return fmt::format("UPDATE {} SET {} WHERE {}", table.name, join(assignments, ", "), condition);
}

/// Writes records over those that are stored.
class Refresher {
 public:
  explicit Refresher(SQLite::Database& database) : statement_(database, refreshSql()) {
    bindValue(statement_, statement_.getBindParameterCount(), std::vector<std::string>());
  }

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

/// Refreshes those that are there, and adds those others that are wanted.
template <typename IsWanted>
void takeIn(WriteTransaction& transaction, const std::vector<CachedApp>& apps, IsWanted isWanted) {
  Refresher refresher(transaction.database);
  RowInserter<CachedApp> inserter(transaction.database, OnConflict::fail);
  for (const CachedApp& app : apps) {
    if (!refresher.refresh(app)) {
      if (!isWanted(app)) continue;
      inserter.insert(app);
    }
    transaction.changes.cachedApps.insert(keyOf(app));
  }
}

RemovedRows forget(WriteTransaction& transaction, const std::vector<CachedSummary>& rows) {
  RemovedRows removed;
  SQLite::Statement statement(transaction.database,
                              "UPDATE ZCACHEDAPP SET ZLASTVIEWEDAT = NULL WHERE Z_PK = ?1");
  for (const CachedSummary& row : rows) {
    if (!row.lastViewedAt) continue;
    removed.views.push_back({keyOf(row), *row.lastViewedAt});
    runOnce(statement, row.id);
    transaction.changes.cachedApps.insert(keyOf(row));
  }
  return removed;
}

}  // namespace

std::vector<CachedApp> cachedAppsOf(SQLite::Database& database, const std::vector<AppKey>& apps) {
  return rowsOfApps<CachedApp>(database, apps);
}

std::vector<CachedSummary> viewedApps(SQLite::Database& database, std::int64_t limit) {
  return selectRows<CachedSummary>(
      database, "WHERE ZLASTVIEWEDAT IS NOT NULL ORDER BY ZLASTVIEWEDAT DESC LIMIT ?1", limit);
}

void refreshCachedApps(WriteTransaction& transaction, const std::vector<CachedApp>& apps) {
  SQLite::Statement isListed(
      transaction.database,
      "SELECT 1 FROM ZWATCHEDAPP WHERE ZTRACKID = ?1 AND ZCOUNTRY = ?2 UNION ALL "
      "SELECT 1 FROM ZOWNEDAPP WHERE ZTRACKID = ?1 AND ZCOUNTRY = ?2");
  takeIn(transaction, apps,
         [&](const CachedApp& app) { return hasRow(isListed, app.trackId, app.country); });
}

void keepCachedApps(WriteTransaction& transaction, const std::vector<CachedApp>& apps) {
  takeIn(transaction, apps, [](const CachedApp&) { return true; });
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
  return forget(transaction, summariesOf(transaction.database, apps));
}

RemovedRows forgetAllViews(WriteTransaction& transaction) {
  return forget(transaction,
                viewedApps(transaction.database, std::numeric_limits<std::int64_t>::max()));
}

}  // namespace quillet

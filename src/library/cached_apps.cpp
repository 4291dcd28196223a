// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/cached_apps.h"

#include <limits>

#include "library/row_sets.h"

namespace quillet {
namespace {

/// The fields that lookups never bring, and the ratings, which they do not tell of Mac apps.
constexpr std::tuple kPageFields{&CachedApp::rating,
                                 &CachedApp::ratingCount,
                                 &CachedApp::ratingHistogram,
                                 &CachedApp::ratingsUpdatedAt,
                                 &CachedApp::hasInAppPurchases,
                                 &CachedApp::hasSubscription,
                                 &CachedApp::hasUnlockPurchase,
                                 &CachedApp::lastViewedAt,
                                 &CachedApp::editorialBadge,
                                 &CachedApp::tagline,
                                 &CachedApp::needsRosetta};

CachedApp refreshed(const CachedApp& stored, CachedApp fresh) {
  fresh.id = stored.id;
  const auto keep = [&](auto field) {
    if (!(fresh.*field)) fresh.*field = stored.*field;
  };
  std::apply([&](auto... field) { (keep(field), ...); }, kPageFields);
  return fresh;
}

template <typename Entity>
bool holds(SQLite::Database& database, const AppKey& app) {
  return selectRow<Entity>(database, kOfApp, app.trackId, app.country).has_value();
}

bool isListed(SQLite::Database& database, const AppKey& app) {
  return holds<WatchedApp>(database, app) || holds<OwnedApp>(database, app);
}

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
  RowQuery<CachedApp> query(transaction.database, kOfApp);
  RowUpdater<CachedApp> updater(transaction.database);
  for (const CachedApp& app : apps) {
    if (const auto stored = query.first(app.trackId, app.country)) {
      updater.update(refreshed(*stored, app));
    } else if (isListed(transaction.database, keyOf(app))) {
      insertRow(transaction.database, app);
    } else {
      continue;
    }
    transaction.changes.cachedApps.insert(keyOf(app));
  }
}

void recordView(WriteTransaction& transaction, const CachedApp& app, Instant viewedAt) {
  const auto stored = selectRow<CachedApp>(transaction.database, kOfApp, app.trackId, app.country);
  CachedApp row = stored ? refreshed(*stored, app) : app;
  row.lastViewedAt = viewedAt;
  if (stored) {
    updateRow(transaction.database, row);
  } else {
    insertRow(transaction.database, row);
  }
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

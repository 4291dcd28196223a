// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/enum_index.h"
#include "library/alerts.h"
#include "library/cached_apps.h"
#include "library/recorded_history.h"
#include "library/watched_apps.h"
#include "sandbox/library/recent_alerts.h"
#include "sandbox/library/sample_lists.h"
#include "sandbox/library/sample_watch.h"
#include "sandbox/price_history.h"

namespace quillet::sandbox {

namespace {

bool isPaid(const AppSketch& app) { return app.usCents > 0 && !app.hidesPrice; }

bool sellsInside(const AppSketch& app) { return !isPaid(app) && app.purchases.size() > 1; }

std::vector<MetApp> watchedOnes(const SampleStore& store) {
  const auto moved = [&](const AppSketch& app) {
    return !priceHistory(app, store.today()).empty();
  };
  const auto isElsewhere = [](const AppSketch& app) {
    return !app.storefronts.test(indexOf(Storefront::fr));
  };
  std::vector<MetApp> all = bestMet(store, Storefront::us, Shelf::mac, 14, moved);
  const auto add = [&](std::vector<MetApp> more) {
    std::ranges::move(more, std::back_inserter(all));
  };
  add(bestMet(store, Storefront::us, Shelf::mac, 7, sellsInside));
  add(bestMet(store, Storefront::us, Shelf::iphone, 9, [&](const AppSketch& app) {
    return !app.machines.mac && (moved(app) || sellsInside(app));
  }));
  add(bestMet(store, Storefront::de, Shelf::mac, 5, isPaid));
  add(bestMet(store, Storefront::jp, Shelf::ipad, 3, sellsInside));
  // Two that were sold in France when their watch began, and are no more.
  add(bestMet(store, Storefront::us, Shelf::mac, 2, isElsewhere));
  for (std::size_t i = all.size() - 2; i < all.size(); ++i) all[i].storefront = Storefront::fr;
  return all;
}

}  // namespace

void writeWatchlist(WriteTransaction& library, const SampleStore& store, Instant now) {
  for (MetApp& app : watchedOnes(store)) {
    Watch watch = watched(std::move(app), store.today(), now);
    tellOfRecentOnes(watch, now);
    watchApps(library, {watch.row});
    addPricePoints(library, watch.points);
    addPurchasePoints(library, watch.purchases);
    addAlerts(library, watch.alerts);
    if (watch.row.isUnavailable) continue;
    refreshCachedApps(
        library, {cachedAppOf(watch.app.described, sourceOf(watch.app, *watch.row.lastCheckedAt))});
  }
}

}  // namespace quillet::sandbox

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/library/sample_watch.h"

#include <algorithm>

#include "base/enum_index.h"
#include "library/price_alerts.h"
#include "sandbox/price_history.h"

namespace quillet::sandbox {

namespace {

using namespace std::chrono_literals;
using std::chrono::days;

constexpr int kLongestWatch = 360;  // days
constexpr auto kCheckTime = 6h;     // when the day's check found what changed

double amountIn(Storefront storefront, int usCents) {
  return static_cast<double>(priceIn(storefront, usCents)) / 100;
}

std::string textIn(Storefront storefront, int usCents) {
  return formatPrice(storefront, priceIn(storefront, usCents));
}

}  // namespace

void raiseAlert(Watch& watch, AlertKind kind, Instant when, std::pair<int, int> usCents) {
  const Storefront storefront = watch.app.storefront;
  AlertRecord record;
  record.trackId = watch.row.trackId;
  record.country = watch.row.country;
  record.platformRaw = watch.row.platformRaw;
  record.appName = watch.row.name;
  record.artworkUrl = watch.row.artworkUrl;
  record.kindRaw = textOf(kAlertKindTexts, kind);
  record.oldPriceText = textIn(storefront, usCents.first);
  record.newPriceText = textIn(storefront, usCents.second);
  record.date = when;
  record.isRead = true;
  watch.alerts.push_back(std::move(record));
}

namespace {

void observe(Watch& watch, Instant when, int before, int now) {
  WatchedApp& row = watch.row;
  const double price = amountIn(watch.app.storefront, now);
  watch.points.push_back({0, row.trackId, row.country, price, row.currency, when, false});
  if (const auto kind = alertOfDrop(row, price)) {
    raiseAlert(watch, *kind, when, {before, now});
    row.lastNotifiedPrice = price;
  }
  row.currentPrice = price;
}

/// The price when the watch began, and each change since.
void followPrice(Watch& watch, std::chrono::sys_days today) {
  const Instant since = watch.row.addedAt;
  const auto history = priceHistory(watch.app.sketch, today);
  int price = history.empty() ? watch.app.sketch.usCents : history.front().usCents;
  const auto isBefore = [&](const PriceChange& change) { return change.day + kCheckTime <= since; };
  const auto first = std::ranges::find_if_not(history, isBefore);
  if (first != history.begin()) price = std::prev(first)->usCents;
  watch.row.priceWhenAdded = watch.row.currentPrice = amountIn(watch.app.storefront, price);
  observe(watch, since, price, price);
  for (auto change = first; change != history.end(); ++change) {
    observe(watch, change->day + kCheckTime, price, change->usCents);
    price = change->usCents;
  }
  watch.row.formattedPrice = textIn(watch.app.storefront, price);
}

/// Every third purchase changed its price once while it was watched.
void followPurchases(Watch& watch, std::chrono::sys_days today) {
  if (!watch.row.alertOnPurchasePrices) return;
  for (const SamplePurchase& purchase : watch.app.sketch.purchases) {
    const auto note = [&](Instant when, int usCents) {
      watch.purchases.push_back(
          {0, watch.row.trackId, watch.row.country, purchase.productId, purchase.name,
           purchase.isSubscription() ? std::optional(purchase.period) : std::nullopt,
           amountIn(watch.app.storefront, usCents), watch.row.currency, when});
    };
    const int before = pricePointUpTo(purchase.usCents * (watch.random.oneIn(2) ? 70 : 140) / 100);
    if (before == purchase.usCents || !watch.random.oneIn(3)) {
      note(watch.row.addedAt, purchase.usCents);
      continue;
    }
    const Instant changed = today - days(watch.random.between(1, 19)) + kCheckTime;
    note(watch.row.addedAt, before);
    note(changed, purchase.usCents);
    raiseAlert(watch, before < purchase.usCents ? AlertKind::purchaseRise : AlertKind::purchaseDrop,
               changed, {before, purchase.usCents});
    watch.alerts.back().purchaseName = purchase.name;
  }
}

void followVersion(Watch& watch) {
  const auto released = watch.app.record.currentVersionReleaseDate;
  if (!watch.row.alertOnNewVersion || !released || *released < watch.row.addedAt) return;
  raiseAlert(watch, AlertKind::newVersion, *released + kCheckTime, {});
  watch.alerts.back().version = watch.row.lastKnownVersion;
  watch.alerts.back().oldPriceText = watch.alerts.back().newPriceText = "";
}

void chooseOptions(WatchedApp& row, Random& random) {
  row.alertOnAnyDrop = !random.oneIn(4);
  row.alertOnFree = random.oneIn(2);
  row.alertOnNewVersion = random.oneIn(3);
  row.alertOnPurchasePrices = !random.oneIn(3);
  if (row.currentPrice > 0 && random.oneIn(3)) row.targetPrice = row.currentPrice * 0.8;
}

Watch begun(MetApp app, std::chrono::sys_days today, Instant now) {
  const auto key = static_cast<std::uint64_t>(app.sketch.id);
  Random random(mixed(key, 41 + 1000 * indexOf(app.storefront)));
  // Nothing is watched before it is there.
  const int longest = std::clamp(app.sketch.first - 1, 21, kLongestWatch);
  const Instant since = today - days(random.between(20, longest)) +
                        std::chrono::minutes(random.between(7 * 60, 22 * 60));
  WatchedApp row = watchedAppOf(app.record, sourceOf(app, since));
  row.lastCheckedAt = now - std::chrono::minutes(random.between(10, 14));
  chooseOptions(row, random);
  return {std::move(app), std::move(row), random, {}, {}, {}};
}

}  // namespace

Watch watched(MetApp app, std::chrono::sys_days today, Instant now) {
  Watch watch = begun(std::move(app), today, now);
  watch.row.currency = currencyOf(watch.app.storefront);
  watch.row.isUnavailable = !watch.app.sketch.storefronts.test(indexOf(watch.app.storefront));
  followPrice(watch, today);
  followPurchases(watch, today);
  followVersion(watch);
  return watch;
}

}  // namespace quillet::sandbox

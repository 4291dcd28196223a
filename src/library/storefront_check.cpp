// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/storefront_check.h"

#include <unordered_map>

#include "analysis/purchase_key.h"
#include "analysis/recorded_price.h"
#include "base/text.h"
#include "base/versions.h"
#include "library/alerts.h"
#include "library/cached_apps.h"
#include "library/deals.h"
#include "library/observed_deal.h"
#include "library/owned_apps.h"
#include "library/recorded_history.h"
#include "library/row_sets.h"
#include "library/store_rows.h"

namespace quillet {

namespace {

/// One app's part of a check.
class AppCheck {
 public:
  AppCheck(WatchedApp& row, const StorefrontCheck& check) : row_(row), check_(check) {}

  void takeIn(const ITunesApp& record) {
    row_.isUnavailable = false;
    completeImported(row_, record);
    if (record.price) takePrice(record);
    if (const auto version = versionOf(record, row_.platformRaw)) takeVersion(*version);
  }

  /// `recorded`: the app's points so far, by their dates.
  void takeIn(const std::vector<InAppPurchase>& purchases,
              const std::vector<PurchasePricePoint>& recorded) {
    const auto last = lastPrices(recorded);
    std::vector<PriceAlertEvent> changed;
    for (const InAppPurchase& purchase : purchases) {
      if (purchase.price) takePurchase(purchase, last, changed);
    }
    raisePurchases(std::move(changed));
  }

  std::vector<PricePoint> points;
  std::optional<ObservedChange> drop;  ///< of the app's price, in one currency
  bool endsDeal = false;               ///< whatever deal there was, it is none any more
  std::vector<PurchasePricePoint> purchasePoints;
  std::vector<PriceAlertEvent> events;

 private:
  /// By their keys.
  using LastPrices = std::unordered_map<std::string_view, RecordedPrice>;

  static LastPrices lastPrices(const std::vector<PurchasePricePoint>& recorded) {
    LastPrices last;
    for (const PurchasePricePoint& point : recorded) {
      RecordedPrice& price = last[point.key];
      price = {point.date, point.price, knownCurrency(point.currency, price.currency)};
    }
    return last;
  }

  void takePurchase(const InAppPurchase& purchase, const LastPrices& last,
                    std::vector<PriceAlertEvent>& changed) {
    std::string key = purchaseKey(purchase);
    const auto found = last.find(key);
    if (found == last.end())
      return note(purchase, std::move(key), knownCurrency(purchase.currency, {}));
    const RecordedPrice& before = found->second;
    const auto currency = knownCurrency(purchase.currency, before.currency);
    const bool isOther = !isSamePrice(before.amount, *purchase.price);
    if (isOther || before.currency != currency) note(purchase, std::move(key), currency);
    if (isOther && areComparable(before.currency, currency)) {
      changed.push_back(purchaseEvent(before, purchase, currency));
    }
  }

  void takePrice(const ITunesApp& record) {
    const double price = *record.price;
    const auto currency = knownCurrency(record.currency, row_.currency);
    const bool isComparable = areComparable(row_.currency, currency);
    const bool isFirst = wasAddedWithoutPrice();
    if (!isComparable) leaveCurrency();
    if (isFirst) beginAt(price);
    const bool isOther = !isComparable || !isSamePrice(price, row_.currentPrice);
    if (isOther || isFirst || !row_.lastCheckedAt) {
      points.push_back({0, row_.trackId, row_.country, price, currency, check_.when, false});
    }
    if (isComparable) raiseDrop(record, currency);
    if (isComparable && isOther && price < row_.currentPrice) {
      drop = ObservedChange{row_.country, row_.currentPrice, price, currency, check_.when};
    } else {
      endsDeal = isOther;
    }
    if (isOther) row_.currentPrice = price;
    row_.formattedPrice = priceTextOf(record);
    row_.currency = currency;
  }

  void beginAt(double price) {
    row_.priceWhenAdded = row_.currentPrice = price;
    row_.addedCurrency.reset();
  }

  /// What was said in the row's currency is not in the one that comes, and says so.
  void leaveCurrency() {
    if (!row_.addedCurrency) row_.addedCurrency = row_.currency;
    if (row_.targetPrice && !row_.targetCurrency) row_.targetCurrency = row_.currency;
    row_.lastNotifiedPrice.reset();
  }

  /// Of other programs' rows, only one of a record has a currency and no text of its price; an
  /// imported row has neither.
  [[nodiscard]] bool wasAddedWithoutPrice() const {
    const bool isUntold =
        row_.formattedPrice ? *row_.formattedPrice == kPriceUntold : row_.currency.has_value();
    return isUntold && row_.currentPrice == 0 && row_.priceWhenAdded == 0;
  }

  void raiseDrop(const ITunesApp& record, const std::optional<std::string>& currency) {
    const auto kind = alertOfDrop(row_, *record.price);
    if (!kind || isMuted()) return;
    const auto text = priceTextOf(record);
    // The store's own texts or ours: never one of each, which may write an amount differently. What
    // is free has no amount.
    const bool hasTexts = row_.formattedPrice && text;
    const bool hasNewText = hasTexts || *record.price == 0;
    events.push_back(
        {row_.trackId,
         row_.name,
         *kind,
         hasTexts ? *row_.formattedPrice : check_.priceText(row_.currentPrice, currency),
         hasNewText ? text.value_or("") : check_.priceText(*record.price, currency),
         {},
         {}});
    row_.lastNotifiedPrice = record.price;
  }

  void takeVersion(const std::string& version) {
    const bool isNewer =
        row_.lastKnownVersion && compareVersions(version, *row_.lastKnownVersion) > 0;
    if (isNewer && row_.alertOnNewVersion && !isMuted())
      events.push_back({row_.trackId, row_.name, AlertKind::newVersion, "", "", version, {}});
    if (isNewer || !row_.lastKnownVersion) row_.lastKnownVersion = version;
  }

  void note(const InAppPurchase& purchase, std::string key,
            const std::optional<std::string>& currency) {
    purchasePoints.push_back({0, row_.trackId, row_.country, std::move(key), purchase.name,
                              purchase.recurringSubscriptionPeriod, *purchase.price, currency,
                              check_.when});
  }

  [[nodiscard]] PriceAlertEvent purchaseEvent(const RecordedPrice& before, const InAppPurchase& now,
                                              const std::optional<std::string>& currency) const {
    const bool hasName = !trimmed(now.name).empty();
    return {row_.trackId,
            row_.name,
            *now.price < before.amount ? AlertKind::purchaseDrop : AlertKind::purchaseRise,
            check_.priceText(before.amount, currency),
            check_.priceText(*now.price, currency),
            {},
            hasName ? std::optional(now.name) : std::nullopt};
  }

  void raisePurchases(std::vector<PriceAlertEvent> changed) {
    if (changed.empty() || isMuted()) return;
    if (changed.size() > 1) {
      PriceAlertEvent& summary = changed.front();
      summary.oldPriceText.clear();
      summary.newPriceText.clear();
      summary.purchaseName.reset();
      changed.resize(1);
    }
    events.push_back(std::move(changed.front()));
  }

  [[nodiscard]] bool isMuted() const { return row_.mutedUntil && check_.when < *row_.mutedUntil; }

  WatchedApp& row_;
  const StorefrontCheck& check_;
};

AlertRecord recordOf(const PriceAlertEvent& event, const WatchedApp& app, Instant when) {
  AlertRecord record;
  record.trackId = app.trackId;
  record.country = app.country;
  record.platformRaw = app.platformRaw;
  record.appName = app.name;
  record.artworkUrl = app.artworkUrl;
  record.kindRaw = textOf(kAlertKindTexts, event.kind);
  record.oldPriceText = event.oldPriceText;
  record.newPriceText = event.newPriceText;
  record.version = event.version;
  record.purchaseName = event.purchaseName;
  record.date = when;
  return record;
}

/// Writes a check, with statements prepared once.
class CheckWriter {
 public:
  CheckWriter(WriteTransaction& transaction, const StorefrontCheck& check)
      : transaction_(transaction),
        check_(check),
        query_(transaction.database, kOfApp),
        updater_(transaction.database),
        purchases_(transaction.database, std::string(kOfApp).append(kByDate)),
        prices_(transaction.database, std::string(kOfApp).append(kByDate)) {
    for (const ITunesApp& app : check.found) found_.try_emplace(app.trackId, &app);
  }

  std::vector<PriceAlertEvent> write() {
    for (const std::int64_t trackId : check_.asked) {
      if (auto row = query_.first(trackId, check_.country)) writeApp(*row);
    }
    addPricePoints(transaction_, points_);
    addPurchasePoints(transaction_, purchasePoints_);
    addAlerts(transaction_, alerts_);
    writeDeals();
    writeOwned();
    return std::move(events_);
  }

 private:
  struct CheaperApp {
    const ITunesApp* record;
    ObservedChange drop;
  };

  void writeApp(WatchedApp& row) {
    AppCheck app(row, check_);
    const auto record = found_.find(row.trackId);
    if (record == found_.end()) {
      row.isUnavailable = app.endsDeal = true;
    } else {
      app.takeIn(*record->second);
    }
    if (const auto told = check_.purchases.find(row.trackId); told != check_.purchases.end())
      app.takeIn(told->second, purchases_.all(row.trackId, row.country));
    row.lastCheckedAt = check_.when;
    updater_.update(row);
    transaction_.changes.watchedApps.insert(keyOf(row));
    keep(app, row);
    if (app.drop) cheaper_.push_back({record->second, *app.drop});
    if (app.endsDeal) noDeals_.push_back(keyOf(row));
  }

  void keep(const AppCheck& app, const WatchedApp& row) {
    points_.insert(points_.end(), app.points.begin(), app.points.end());
    purchasePoints_.insert(purchasePoints_.end(), app.purchasePoints.begin(),
                           app.purchasePoints.end());
    for (const PriceAlertEvent& event : app.events) {
      alerts_.push_back(recordOf(event, row, check_.when));
      events_.push_back(event);
    }
  }

  /// What is watched may be owned as well.
  void writeOwned() {
    std::vector<AppKey> asked;
    for (const std::int64_t trackId : check_.asked) asked.push_back({trackId, check_.country});
    recordStoreAnswer(transaction_, asked, check_.found, check_.when);
  }

  void writeDeals() {
    std::vector<Deal> deals;
    for (const auto& [record, drop] : cheaper_)
      deals.push_back(observedDeal(*record, drop, prices_.all(record->trackId, drop.country)));
    keepDeals(transaction_, deals);
    forgetDeals(transaction_, noDeals_);
  }

  WriteTransaction& transaction_;
  const StorefrontCheck& check_;
  RowQuery<WatchedApp> query_;
  RowUpdater<WatchedApp> updater_;
  RowQuery<PurchasePricePoint> purchases_;
  RowQuery<PricePoint> prices_;
  std::unordered_map<std::int64_t, const ITunesApp*> found_;

  std::vector<PricePoint> points_;
  std::vector<PurchasePricePoint> purchasePoints_;
  std::vector<AlertRecord> alerts_;
  std::vector<CheaperApp> cheaper_;
  std::vector<AppKey> noDeals_;
  std::vector<PriceAlertEvent> events_;
};

std::vector<CachedApp> cachedRows(const StorefrontCheck& check) {
  std::vector<CachedApp> rows;
  for (const ITunesApp& app : check.found)
    rows.push_back(cachedAppOf(app, {check.country, Platform::mac, check.when}));
  return rows;
}

}  // namespace

std::vector<PriceAlertEvent> recordStorefrontCheck(WriteTransaction& transaction,
                                                   const StorefrontCheck& check) {
  auto events = CheckWriter(transaction, check).write();
  refreshCachedApps(transaction, cachedRows(check));
  return events;
}

}  // namespace quillet

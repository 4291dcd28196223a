// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "library/data_store.h"
#include "library/price_alerts.h"
#include "library/storefront_check.h"
#include "store/catalog_client.h"
#include "store/itunes_client.h"
#include "system/settings.h"

namespace quillet {

/// The intervals that the settings offer. Stored; never change.
enum class PriceCheckInterval {
  hourly = 1,
  twoHours = 2,
  fourHours = 4,
  sixHours = 6,
  twelveHours = 12,
  daily = 24,
};

/// How long to wait between two passes; a setting that is none of those offered counts as well.
[[nodiscard]] std::chrono::hours priceCheckInterval(const Settings& settings);

/// Keeps the watchlist current: looks watched apps up, storefront by storefront, takes in what
/// changed, and tells of what the user asked to hear. Each storefront is one transaction, so an
/// alert is kept before it is told, and told once.
///
/// An object of the event-loop thread; its collaborators outlive it and all passes.
class WatchlistMonitor : public QObject {
  Q_OBJECT

 public:
  WatchlistMonitor(ITunesClient& client, CatalogClient& catalog, DataStore& store, Clock& clock,
                   const Settings& settings, PriceText priceText);

  /// Waits for the interval of the settings, then runs a pass, again and again; throws NetworkError
  /// `cancelled` at the stop. The wait is on the monotonic clock: after a long sleep of the machine
  /// there is one pass, not many.
  Task<> run(StopToken stop);

  /// One pass; none while another one runs. Never throws: what went wrong is in lastError().
  Task<> refresh(StopToken stop);

  [[nodiscard]] bool isRefreshing() const { return isRefreshing_; }
  /// When the last pass finished; one that the store's rate limit or a stop ended did not.
  [[nodiscard]] const std::optional<Instant>& lastRefresh() const { return lastRefresh_; }
  /// Why the last pass left a storefront as it was; absent when it did not.
  [[nodiscard]] const std::optional<std::string>& lastError() const { return lastError_; }
  /// The newest first, at most twenty.
  [[nodiscard]] const std::deque<PriceAlertEvent>& recentEvents() const { return recentEvents_; }

 Q_SIGNALS:
  /// A pass began or ended.
  void stateChanged();
  /// After the pass that found them, when they are kept already. In order.
  void eventsRaised(const std::vector<quillet::PriceAlertEvent>& events);

 private:
  /// What a pass has brought so far.
  struct Pass {
    std::vector<PriceAlertEvent> events;
    std::optional<std::string> error;
    bool isCutShort = false;  ///< by the rate limit or a stop: nothing more is asked, nothing said
    bool skipsPurchases = false;  ///< the catalog limits us: the other prices are still read
  };

  Task<> check(Pass* pass, StopToken stop);
  Task<> checkStorefront(Pass* pass, std::vector<WatchedApp> apps, StopToken stop);
  Task<> readPurchases(Pass* pass, StorefrontCheck* check, std::vector<WatchedApp> apps,
                       StopToken stop);
  void finish(Pass pass);

  ITunesClient& client_;
  CatalogClient& catalog_;
  DataStore& store_;
  Clock& clock_;
  const Settings& settings_;
  PriceText priceText_;

  bool isRefreshing_ = false;
  std::optional<Instant> lastRefresh_;
  std::optional<std::string> lastError_;
  std::deque<PriceAlertEvent> recentEvents_;
};

}  // namespace quillet

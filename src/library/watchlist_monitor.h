// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <deque>
#include <functional>
#include <optional>
#include <set>
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

/// How far a pass has come, in apps.
struct PassProgress {
  std::size_t checked = 0;
  std::size_t all = 0;

  friend bool operator==(const PassProgress&, const PassProgress&) = default;
};

/// How a pass ended.
enum class PassEnd {
  complete,     ///< each storefront with watched apps has answered
  partial,      ///< one has not; lastError() says why
  rateLimited,  ///< the store asked for fewer requests
  stopped,
  failed,  ///< the library could not be read or written
};

/// Keeps the watchlist current: looks watched apps up, takes in what changed, and tells of what the
/// user asked to hear. Each lookup is of one storefront and one transaction, so an alert is kept
/// before it is told, and told once. Apps that were not checked for longest come first: a pass that
/// was cut short goes on in the next one.
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

  /// The interval of the settings is another one: the wait is as long as that, counted from when it
  /// began.
  void takeInterval();

  /// One pass; none while another one runs. Never throws: what went wrong is in lastError().
  Task<> refresh(StopToken stop);

  [[nodiscard]] bool isRefreshing() const { return progress_.has_value(); }
  /// Of the pass that runs.
  [[nodiscard]] const std::optional<PassProgress>& progress() const { return progress_; }
  /// When run() begins the next pass; absent before run().
  [[nodiscard]] const std::optional<Instant>& nextCheck() const { return nextCheck_; }
  /// When the last complete pass ended.
  [[nodiscard]] const std::optional<Instant>& lastRefresh() const { return lastRefresh_; }
  /// Of the last pass.
  [[nodiscard]] const std::optional<PassEnd>& lastEnd() const { return lastEnd_; }
  /// Why the last pass did not learn all that it asked for; absent when it did. To be cut short is
  /// no error.
  [[nodiscard]] const std::optional<std::string>& lastError() const { return lastError_; }
  /// Whether the last pass found no network at all.
  [[nodiscard]] bool wasOffline() const { return wasOffline_; }
  /// The newest first, at most twenty.
  [[nodiscard]] const std::deque<PriceAlertEvent>& recentEvents() const { return recentEvents_; }

 Q_SIGNALS:
  /// A pass began, went on or ended, or the time of the next one was set.
  void stateChanged();
  /// After the pass that found them, when they are kept already. In order.
  void eventsRaised(const std::vector<quillet::PriceAlertEvent>& events);

 private:
  /// What a pass has brought so far.
  struct Pass {
    std::vector<PriceAlertEvent> events;
    std::optional<std::string> error;
    PassEnd end = PassEnd::complete;
    std::optional<std::string> missed;  ///< why a storefront did not answer
    bool isOffline = false;
    bool skipsPurchases = false;  ///< the catalog limits us: the other prices are still read
    std::set<std::string>
        unreached;  ///< storefronts without an answer: each further try would wait
  };

  Task<> waitForNext(StopToken stop);
  Task<> check(Pass* pass, StopToken stop);
  Task<> tryBatch(Pass* pass, std::vector<WatchedApp> apps, StopToken stop);
  Task<> checkBatch(Pass* pass, std::vector<WatchedApp> apps, StopToken stop);
  Task<> readPurchases(Pass* pass, StorefrontCheck* check, std::vector<WatchedApp> apps,
                       StopToken stop);
  void finish(Pass pass);

  ITunesClient& client_;
  CatalogClient& catalog_;
  DataStore& store_;
  Clock& clock_;
  const Settings& settings_;
  PriceText priceText_;

  StopSource wait_;  ///< ends the wait for the next pass, which looks at the interval again
  std::optional<PassProgress> progress_;
  std::optional<Instant> nextCheck_;
  std::optional<Instant> lastRefresh_;
  std::optional<PassEnd> lastEnd_;
  std::optional<std::string> lastError_;
  bool wasOffline_ = false;
  std::deque<PriceAlertEvent> recentEvents_;
};

}  // namespace quillet

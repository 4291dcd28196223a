// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <string>

#include "base/log_sink.h"
#include "desktop/services/owned_lookup.h"
#include "desktop/services/price_imports.h"
#include "library/chart_history_recorder.h"
#include "library/data_store.h"
#include "library/price_seed_service.h"
#include "library/watchlist_monitor.h"
#include "notifications/notifier.h"
#include "queries/query_call.h"
#include "store/catalog_client.h"
#include "store/charts_page_scraper.h"
#include "store/charts_service.h"
#include "store/itunes_client.h"
#include "store/price_seed_client.h"
#include "store/store_scraper.h"
#include "system/endpoints.h"
#include "system/locale_formats.h"
#include "system/time_zone.h"
#include "system/user_locale.h"

namespace quillet {

/// What the desktop's services reach the outside through. All of it outlives the host.
struct HostWorld {
  std::filesystem::path library;  ///< the database; its folder is made where there is none
  Endpoints endpoints;
  UserLocale locale;
  UtcOffsetAt timeZone;
  HttpClient& http;
  Clock& clock;
  WritableSettings& settings;
  NotificationCenter& notifications;
  std::function<double()> random;           ///< from 0 to below 1
  std::function<std::string()> storefront;  ///< the user's, two letters in lower case
  LogSink log;                              ///< of what failed
  LogSink queryLog = {};                    ///< of each query; empty where nobody asked for it
  std::function<bool()> isMetered = {};     ///< the network that is in use; empty where none is
};

/// Owns the services behind the windows, and lets run what goes on by itself: price checks at the
/// interval of the settings, and at the start and each hour the lookup of the apps in My Apps, the
/// record of the charts and the import of published prices. No window knows of it more than these
/// services.
class ServiceHost : public QObject {
  Q_OBJECT

 public:
  /// Opens the library and builds the services; nothing runs yet. Throws DatabaseError.
  static Task<std::unique_ptr<ServiceHost>> open(HostWorld world);

  /// Called once. `pause`: how long My Apps, the charts and the published prices wait at first, for
  /// whoever has better to do meanwhile.
  void start(std::chrono::milliseconds pause = {});

  /// Checks prices now; nothing while a check runs.
  void checkPrices();

  /// Looks for published prices now, whatever the settings say: the user wants it.
  void checkPriceData();
  /// Somebody looks at this storefront: its prices are kept up as those of the user's are.
  void followPriceData(const std::string& country);

  /// The user wants to be notified.
  void enableNotifications();

  /// Tells of the application itself, where the user allows it.
  void notify(NotificationRequest request);

  /// The settings or the network are others: what waits looks anew whether and when it may go on.
  void reconsider() { monitor_.reconsider(); }

  /// The machine has slept: what is overdue begins when the network has had time to come back.
  void noteWake();

  /// Another program wrote to the library: what it marked as read is shown no longer.
  void noteForeignChange();

  /// Finds out anew whether they may be.
  void refreshNotifications();
  /// Shows a notification that is about nothing, and calls `failed` with a clause where it cannot.
  void showTestNotification(std::function<void(const std::string& why)> failed);

  /// The values of these keys are others: what they are about follows.
  void takeSettings(const std::set<std::string>& keys);

  /// Stops what runs and waits until it has ended. To be awaited before the host goes.
  Task<> shutDown();

  [[nodiscard]] DataStore& store() { return *store_; }
  [[nodiscard]] ITunesClient& itunes() { return itunes_; }
  [[nodiscard]] CatalogClient& catalog() { return catalog_; }
  [[nodiscard]] ChartsService& charts() { return charts_; }
  /// Reads the pages of single apps.
  [[nodiscard]] StoreScraper& pages() { return pages_; }
  [[nodiscard]] PriceImports& imports() { return imports_; }
  /// For the event-loop thread; work on another thread makes its own.
  [[nodiscard]] const LocaleFormats& formats() const { return formats_; }
  /// What questions to the store take.
  [[nodiscard]] QueryServices queries();
  /// What is asked for on behalf of this host ends with it.
  [[nodiscard]] StopToken stop() const { return stop_.token(); }
  [[nodiscard]] WatchlistMonitor& monitor() { return monitor_; }
  [[nodiscard]] ChartHistoryRecorder& recorder() { return recorder_; }
  [[nodiscard]] Notifier& notifier() { return notifier_; }

 private:
  ServiceHost(HostWorld world, std::unique_ptr<DataStore> store);

  Task<> removeOldAlerts();
  Task<> removeOldAlertsSoon();
  Task<> removeOldAlertsOnce();
  Task<> tryNotification(std::function<void(const std::string&)> failed);
  Task<> lookUpOwned(std::chrono::milliseconds pause);
  Task<> lookUpOwnedOnce();
  Task<> recordCharts(std::chrono::milliseconds pause);
  Task<> recordChartsOnce();
  Task<> importPrices(std::chrono::milliseconds pause);
  Task<> importPricesOnce();
  void tellNextImport(std::chrono::milliseconds pause);
  [[nodiscard]] bool mayImport() const;
  [[nodiscard]] bool mayUseNetwork() const;
  Task<> reconsiderLater();
  Task<> withdrawRead();
  Task<> follow(Task<> work, std::string what);
  void begin(Task<> work, std::string what);
  void log(const std::string& what, const std::exception& error) const;

  HostWorld world_;
  std::unique_ptr<DataStore> store_;
  ITunesClient itunes_;
  CatalogClient catalog_;
  PriceSeedClient seedClient_;
  ChartsPageScraper chartPages_;
  ChartsService charts_;
  StoreScraper pages_;
  LocaleFormats formats_;
  WatchlistMonitor monitor_;
  OwnedLookup owned_;
  ChartHistoryRecorder recorder_;
  PriceSeedService prices_;
  PriceImports imports_;
  Notifier notifier_;

  StopSource stop_;
  bool isStarted_ = false;
  bool hasImported_ = false;  ///< the first look of this run has begun
  int running_ = 0;
  Completion ended_;  ///< when the last of what runs ends after the stop
};

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/service_host.h"

#include <utility>

#include "base/errors.h"
#include "desktop/services/metered_choice.h"
#include "library/alerts.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

// A page opened again the same morning needs no request; an app's page is some ten kilobytes.
constexpr AnswerCacheLimits kCatalogAnswers{.age = 6h, .bound = 500};

constexpr AnswerCacheLimits kPages{.age = 6h, .bound = 100};

constexpr auto kBetweenRounds = 1h;  // of what looks by itself whether there is anything to do

constexpr auto kBetweenRemovals = 24h;

// Who chooses by the arrow keys passes shorter times, and what is deleted then is gone.
constexpr auto kAfterChoosing = 1min;

// A machine that wakes is not on its network yet.
constexpr auto kAfterWaking = 30s;

/// Amounts in the user's locale. The formats are used on the data store's thread alone.
PriceText priceTextIn(const UserLocale& locale) {
  return [formats = std::make_shared<LocaleFormats>(locale)](
             double price, const std::optional<std::string>& currency) {
    return formats->currency(price, currency.value_or(""));
  };
}

}  // namespace

Task<std::unique_ptr<ServiceHost>> ServiceHost::open(HostWorld world) {
  std::unique_ptr<DataStore> store = co_await DataStore::open(world.library, world.queryLog);
  co_return std::unique_ptr<ServiceHost>(new ServiceHost(std::move(world), std::move(store)));
}

ServiceHost::ServiceHost(HostWorld world, std::unique_ptr<DataStore> store)
    : world_(std::move(world)),
      store_(std::move(store)),
      itunes_(world_.http, world_.clock, world_.endpoints.itunes),
      catalog_(world_.http, world_.clock, world_.endpoints.appStore, world_.random,
               kCatalogAnswers),
      seedClient_(world_.http, world_.endpoints.priceData),
      chartPages_(world_.http, world_.endpoints.appStore),
      charts_(itunes_, chartPages_, world_.endpoints.itunes),
      pages_(world_.http, world_.clock, world_.endpoints.appStore, kPages),
      formats_(world_.locale),
      monitor_(itunes_, catalog_, *store_, world_.clock, world_.settings,
               priceTextIn(world_.locale)),
      owned_(*store_, queries()),
      recorder_(chartPages_, *store_, world_.clock, world_.timeZone),
      prices_(*store_, seedClient_, world_.settings, world_.clock),
      imports_(prices_, world_.clock, world_.storefront, world_.log),
      notifier_(world_.notifications, world_.log) {
  connect(&monitor_, &WatchlistMonitor::eventsRaised, this,
          [this](const std::vector<PriceAlertEvent>& events) {
            begin(notifier_.post(events, stop_.token()), "Notifications");
          });
  connect(store_.get(), &DataStore::changed, this, [this](const LibraryChanges& changes) {
    if (!changes.alerts.empty()) begin(withdrawRead(), "Notifications");
  });
  monitor_.setGate([this] { return mayUseNetwork(); });
}

bool ServiceHost::mayUseNetwork() const {
  return mayAskUnbidden(world_.isMetered, world_.settings);
}

void ServiceHost::start(std::chrono::milliseconds pause) {
  isStarted_ = true;
  refreshNotifications();
  begin(removeOldAlerts(), "Alerts");
  begin(monitor_.run(stop_.token()), "Price checks");
  begin(lookUpOwned(pause), "My Apps");
  begin(recordCharts(pause), "Charts");
  begin(importPrices(pause), "Price data");
}

void ServiceHost::enableNotifications() {
  begin(notifier_.requestAuthorization(stop_.token()), "Notifications");
}

void ServiceHost::notify(NotificationRequest request) {
  begin(notifier_.tell(std::move(request), stop_.token()), "Notifications");
}

void ServiceHost::noteWake() { begin(reconsiderLater(), "Price checks"); }

Task<> ServiceHost::reconsiderLater() {
  co_await world_.clock.sleepFor(kAfterWaking, stop_.token());
  monitor_.reconsider();
}

void ServiceHost::noteForeignChange() { begin(withdrawRead(), "Notifications"); }

/// What was shown before the alerts were read: one that is shown meanwhile is newer than they.
Task<> ServiceHost::withdrawRead() {
  const std::vector<std::string> shown = notifier_.shown();
  if (!shown.empty()) notifier_.withdrawRead(shown, co_await store_->read(unreadAlerts));
}

void ServiceHost::refreshNotifications() {
  begin(notifier_.refreshAuthorization(stop_.token()), "Notifications");
}

void ServiceHost::showTestNotification(std::function<void(const std::string& why)> failed) {
  begin(tryNotification(std::move(failed)), "Notifications");
}

Task<> ServiceHost::tryNotification(std::function<void(const std::string&)> failed) {
  try {
    co_await notifier_.postTest(stop_.token());
  } catch (const NotificationError& error) {
    failed(error.what());
  }
}

void ServiceHost::checkPrices() { begin(monitor_.refresh(stop_.token()), "Price checks"); }

QueryServices ServiceHost::queries() {
  return {.itunes = itunes_,
          .catalog = catalog_,
          .charts = charts_,
          .pages = pages_,
          .clock = world_.clock};
}

Task<> ServiceHost::shutDown() {
  stop_.requestStop();
  if (running_ > 0) co_await ended_;
}

void ServiceHost::takeSettings(const std::set<std::string>& keys) {
  const auto concerns = [&](std::string_view key) { return keys.contains(std::string(key)); };
  if (!isStarted_) return;
  if (concerns(kPriceCheckIntervalHours.key) || concerns(kCheckOnMetered.key))
    monitor_.reconsider();
  if (concerns(kNotificationsEnabled.key)) refreshNotifications();
  if (concerns(kKeepAlertsDays.key)) begin(removeOldAlertsSoon(), "Alerts");
  if (concerns(kRecordCharts.key)) begin(recordChartsOnce(), "Charts");
  if (concerns(kImportPriceData.key)) begin(importPricesOnce(), "Price data");
}

Task<> ServiceHost::removeOldAlerts() {
  for (;;) {
    try {
      co_await removeOldAlertsOnce();
    } catch (const DatabaseError& error) {
      log("Alerts", error);
    }
    co_await world_.clock.sleepFor(kBetweenRemovals, stop_.token());
  }
}

Task<> ServiceHost::removeOldAlertsSoon() {
  co_await world_.clock.sleepFor(kAfterChoosing, stop_.token());
  co_await removeOldAlertsOnce();
}

/// Those that the user keeps no longer.
Task<> ServiceHost::removeOldAlertsOnce() {
  const std::int64_t days = readSetting(world_.settings, kKeepAlertsDays);
  if (days <= 0) co_return;
  const Instant before = world_.clock.now() - std::chrono::days(days);
  co_await store_->change(removeAlertsBefore, before);
}

Task<> ServiceHost::lookUpOwned(std::chrono::milliseconds pause) {
  if (pause > 0ms) co_await world_.clock.sleepFor(pause, stop_.token());
  for (;;) {
    co_await lookUpOwnedOnce();
    co_await world_.clock.sleepFor(kBetweenRounds, stop_.token());
  }
}

/// Where the store cannot be reached the next round tries again.
Task<> ServiceHost::lookUpOwnedOnce() {
  if (!mayUseNetwork()) co_return;
  try {
    co_await owned_.look(stop_.token());
  } catch (const NetworkError&) {
    if (stop_.token().stopRequested()) throw;
  } catch (const std::exception& error) {
    log("My Apps", error);
  }
}

Task<> ServiceHost::recordCharts(std::chrono::milliseconds pause) {
  if (pause > 0ms) co_await world_.clock.sleepFor(pause, stop_.token());
  for (;;) {
    co_await recordChartsOnce();
    co_await world_.clock.sleepFor(kBetweenRounds, stop_.token());
  }
}

Task<> ServiceHost::recordChartsOnce() {
  if (!readSetting(world_.settings, kRecordCharts) || !mayUseNetwork()) co_return;
  try {
    co_await recorder_.record(world_.storefront(), stop_.token());
  } catch (const DatabaseError& error) {
    log("Charts", error);
  }
}

Task<> ServiceHost::importPrices(std::chrono::milliseconds pause) {
  tellNextImport(pause);
  if (pause > 0ms) co_await world_.clock.sleepFor(pause, stop_.token());
  for (;;) {
    hasImported_ = true;
    co_await importPricesOnce();
    tellNextImport(kBetweenRounds);
    co_await world_.clock.sleepFor(kBetweenRounds, stop_.token());
  }
}

void ServiceHost::tellNextImport(std::chrono::milliseconds pause) {
  imports_.setNextRound(mayImport() ? std::optional(world_.clock.now() + pause) : std::nullopt);
}

bool ServiceHost::mayImport() const {
  return readSetting(world_.settings, kImportPriceData) && mayUseNetwork();
}

Task<> ServiceHost::importPricesOnce() {
  if (mayImport()) co_await imports_.look(SeedCheck::whenDue, stop_.token());
}

void ServiceHost::checkPriceData() {
  begin(imports_.look(SeedCheck::now, stop_.token()), "Price data");
}

void ServiceHost::followPriceData(const std::string& country) {
  imports_.follow(country);
  if (hasImported_) begin(importPricesOnce(), "Price data");
}

/// Ends as `work` does, but for its errors, which are logged: a stop is none.
Task<> ServiceHost::follow(Task<> work, std::string what) {
  ++running_;
  try {
    co_await work;
  } catch (const std::exception& error) {
    if (!stop_.token().stopRequested()) log(what, error);
  }
  if (--running_ == 0 && stop_.token().stopRequested()) ended_.set();
}

void ServiceHost::begin(Task<> work, std::string what) {
  detach(follow(std::move(work), what), what);
}

void ServiceHost::log(const std::string& what, const std::exception& error) const {
  world_.log(what + ": " + error.what());
}

}  // namespace quillet

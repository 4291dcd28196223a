// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/watchlist_monitor.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "base/errors.h"
#include "library/watched_apps.h"
#include "store/records/itunes_error.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

constexpr std::size_t kRecentEvents = 20;

using Apps = std::vector<WatchedApp>;

/// Those that were never checked, then those that were checked longest ago. Among equals those with
/// watched purchases stand together, to be few requests of the catalog, and the newest come first.
void sortByNeed(Apps& apps) {
  std::ranges::sort(apps, {}, [](const WatchedApp& app) {
    return std::tuple(app.lastCheckedAt, !app.alertOnPurchasePrices, -app.id);
  });
}

/// What one lookup asks for, each: apps of one storefront. In the order of each one's first app.
std::vector<Apps> lookupsOf(Apps apps) {
  sortByNeed(apps);
  std::vector<Apps> lookups;
  std::map<std::string, std::size_t> latest;  // of each storefront, its lookup with room
  for (WatchedApp& app : apps) {
    const auto [entry, isNew] = latest.try_emplace(app.country, lookups.size());
    if (!isNew && lookups[entry->second].size() == kLookupBatch) entry->second = lookups.size();
    if (entry->second == lookups.size()) lookups.emplace_back();
    lookups[entry->second].push_back(std::move(app));
  }
  return lookups;
}

std::vector<std::int64_t> trackIdsOf(const Apps& apps) {
  std::vector<std::int64_t> ids;
  for (const WatchedApp& app : apps) ids.push_back(app.trackId);
  return ids;
}

/// The apps whose purchases are to be read, among those that the storefront still sells.
std::map<Platform, std::vector<std::int64_t>> withWatchedPurchases(
    const Apps& apps, const std::vector<ITunesApp>& found) {
  std::set<std::int64_t> sold;
  for (const ITunesApp& app : found) sold.insert(app.trackId);
  std::map<Platform, std::vector<std::int64_t>> ids;
  for (const WatchedApp& app : apps) {
    const auto platform = valueOf(kPlatformWords, app.platformRaw);
    if (platform && app.alertOnPurchasePrices && sold.contains(app.trackId))
      ids[*platform].push_back(app.trackId);
  }
  return ids;
}

bool isStop(const NetworkError& error) { return error.kind() == NetworkError::Kind::cancelled; }

bool isUnreached(const NetworkError& error) {
  return error.kind() == NetworkError::Kind::notConnected ||
         error.kind() == NetworkError::Kind::cannotReach;
}

}  // namespace

std::chrono::hours priceCheckInterval(const Settings& settings) {
  return std::chrono::hours(readSetting(settings, kPriceCheckIntervalHours));
}

WatchlistMonitor::WatchlistMonitor(ITunesClient& client, CatalogClient& catalog, DataStore& store,
                                   Clock& clock, const Settings& settings, PriceText priceText)
    : client_(client),
      catalog_(catalog),
      store_(store),
      clock_(clock),
      settings_(settings),
      priceText_(std::move(priceText)) {}

Task<> WatchlistMonitor::run(StopToken stop) {
  for (;;) {
    co_await waitForNext(stop);
    co_await refresh(stop);
  }
}

Task<> WatchlistMonitor::waitForNext(StopToken stop) {
  const Clock::Monotonic begun = clock_.monotonic();
  for (;;) {
    const auto left = begun + priceCheckInterval(settings_) - clock_.monotonic();
    if (left <= left.zero()) co_return;
    nextCheck_ = clock_.now() + left;
    Q_EMIT stateChanged();
    wait_ = StopSource();
    const StopCallback onStop(stop, [wait = wait_]() mutable { wait.requestStop(); });
    try {
      co_await clock_.sleepFor(left, wait_.token());
      co_return;
    } catch (const NetworkError&) {
      if (stop.stopRequested()) throw;
    }
  }
}

void WatchlistMonitor::takeInterval() { wait_.requestStop(); }

Task<> WatchlistMonitor::refresh(StopToken stop) {
  if (isRefreshing()) co_return;
  progress_.emplace();
  Q_EMIT stateChanged();
  Pass pass;
  try {
    co_await check(&pass, std::move(stop));
  } catch (const std::exception& error) {
    pass.end = PassEnd::failed;
    pass.error = error.what();
  }
  finish(std::move(pass));
}

Task<> WatchlistMonitor::check(Pass* pass, StopToken stop) {
  Apps apps = co_await store_.read(watchedApps);
  progress_->all = apps.size();
  for (Apps& lookup : lookupsOf(std::move(apps))) {
    if (pass->unreached.contains(lookup.front().country)) continue;
    Q_EMIT stateChanged();
    const std::size_t count = lookup.size();
    co_await tryBatch(pass, std::move(lookup), stop);
    if (pass->end != PassEnd::complete) co_return;
    progress_->checked += count;
  }
}

Task<> WatchlistMonitor::tryBatch(Pass* pass, Apps apps, StopToken stop) {
  const std::string country = apps.front().country;
  try {
    co_await checkBatch(pass, std::move(apps), std::move(stop));
  } catch (const ITunesError& error) {
    if (error.isRateLimit()) {
      pass->end = PassEnd::rateLimited;
    } else {
      pass->missed = error.what();
    }
  } catch (const NetworkError& error) {
    if (isStop(error)) {
      pass->end = PassEnd::stopped;
    } else {
      pass->missed = error.what();
      pass->isOffline = error.kind() == NetworkError::Kind::notConnected;
      if (isUnreached(error)) pass->unreached.insert(country);
    }
  } catch (const DecodingError& error) {
    pass->missed = error.what();
  }
}

Task<> WatchlistMonitor::checkBatch(Pass* pass, Apps apps, StopToken stop) {
  StorefrontCheck check;
  check.country = apps.front().country;
  check.asked = trackIdsOf(apps);
  check.priceText = priceText_;
  const RequestContext context{RequestClass::background, stop};
  check.found = co_await client_.lookup(check.asked, check.country, context);
  co_await readPurchases(pass, &check, std::move(apps), std::move(stop));
  check.when = clock_.now();
  const auto events = co_await store_.change(recordStorefrontCheck, std::move(check));
  pass->events.insert(pass->events.end(), events.begin(), events.end());
}

Task<> WatchlistMonitor::readPurchases(Pass* pass, StorefrontCheck* check, Apps apps,
                                       StopToken stop) {
  const RequestContext context{RequestClass::background, std::move(stop)};
  for (const auto& [platform, ids] : withWatchedPurchases(apps, check->found)) {
    for (std::size_t first = 0; first < ids.size() && !pass->skipsPurchases;
         first += kCatalogBatch) {
      const std::size_t end = std::min(ids.size(), first + kCatalogBatch);
      const std::vector<std::int64_t> batch(ids.begin() + static_cast<std::ptrdiff_t>(first),
                                            ids.begin() + static_cast<std::ptrdiff_t>(end));
      try {
        check->purchases.merge(
            co_await catalog_.purchases(batch, check->country, platform, context));
      } catch (const ITunesError& error) {
        pass->skipsPurchases = error.isRefusal();
        if (!pass->skipsPurchases) pass->error = error.what();
      } catch (const NetworkError& error) {
        if (isStop(error)) throw;
        pass->error = error.what();
      } catch (const DecodingError& error) {
        pass->error = error.what();
      }
    }
  }
}

void WatchlistMonitor::finish(Pass pass) {
  progress_.reset();
  if (pass.end == PassEnd::complete && pass.missed) pass.end = PassEnd::partial;
  lastEnd_ = pass.end;
  wasOffline_ = pass.isOffline;
  if (pass.end == PassEnd::complete) lastRefresh_ = clock_.now();
  const bool hasMissed = pass.missed && pass.end != PassEnd::failed;
  lastError_ = std::move(hasMissed ? pass.missed : pass.error);
  for (const PriceAlertEvent& event : pass.events) recentEvents_.push_front(event);
  if (recentEvents_.size() > kRecentEvents) recentEvents_.resize(kRecentEvents);
  if (!pass.events.empty()) Q_EMIT eventsRaised(pass.events);
  Q_EMIT stateChanged();
}

}  // namespace quillet

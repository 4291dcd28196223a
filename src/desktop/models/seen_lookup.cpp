// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/seen_lookup.h"

#include <utility>

#include "analysis/app_build.h"
#include "library/cached_apps.h"
#include "library/store_rows.h"
#include "net/network_errors.h"
#include "store/itunes_client.h"
#include "store/records/itunes_error.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kPace = 10s;
constexpr auto kAfterRefusal = 65s;  // when others have tried again twice
constexpr auto kAfterFailure = 60s;
constexpr auto kBetweenLookups = 24h;

std::vector<CachedApp> rowsFor(const std::vector<ITunesApp>& found, const std::string& country,
                               Instant now) {
  std::vector<CachedApp> rows;
  for (const ITunesApp& app : found)
    rows.push_back(cachedAppOf(app, {country, ownPlatform(app), now}));
  return rows;
}

/// Of an app that is for the Mac and for iPhones, a lookup has the record of one build: what is
/// known of the other one stays.
void keepSeen(WriteTransaction& transaction, std::vector<CachedApp> rows) {
  std::vector<AppKey> apps;
  for (const CachedApp& row : rows) apps.push_back(keyOf(row));
  std::map<AppKey, bool> isForMac;
  for (const CachedSummary& known : summariesOf(transaction.database, apps)) {
    if (known.kind) isForMac[keyOf(known)] = known.kind == kMacSoftwareKind;
  }
  std::erase_if(rows, [&isForMac](const CachedApp& row) {
    const auto known = isForMac.find(keyOf(row));
    return known != isForMac.end() && known->second != (row.kind == kMacSoftwareKind);
  });
  keepCachedApps(transaction, rows);
}

}  // namespace

void SeenLookup::want(std::vector<AppKey> apps) {
  const Instant now = world_.clock.now();
  std::erase_if(asked_, [now](const auto& each) { return now - each.second >= kBetweenLookups; });
  std::erase_if(apps, [this](const AppKey& app) { return asked_.contains(app); });
  wanted_ = std::move(apps);
  if (isRunning_ || wanted_.empty()) return;
  isRunning_ = true;
  detach(run(this, stop_.token()), "Apps that are seen");
}

SeenLookup::Batch SeenLookup::takeBatch() {
  Batch batch;
  const Instant now = world_.clock.now();
  for (const AppKey& app : wanted_) {
    if (batch.apps.empty()) batch.country = app.country;
    if (app.country != batch.country || batch.apps.size() == kLookupBatch) continue;
    batch.apps.push_back(app.trackId);
    asked_.emplace(app, now);
  }
  std::erase_if(wanted_, [this](const AppKey& app) { return asked_.contains(app); });
  return batch;
}

/// Until nobody sees one that is to be asked for.
Task<> SeenLookup::run(QPointer<SeenLookup> lookup, StopToken stop) {
  while (lookup) {
    Batch batch = lookup->takeBatch();
    if (batch.apps.empty()) {
      lookup->isRunning_ = false;
      co_return;
    }
    const std::chrono::milliseconds pause = co_await ask(lookup, std::move(batch), stop);
    if (!lookup) co_return;
    Clock& clock = lookup->world_.clock;
    try {
      co_await clock.sleepFor(pause, stop);
    } catch (const NetworkError&) {
      co_return;
    }
  }
}

/// How long the next request waits. What the store did not answer is asked for again when it is
/// seen then.
Task<std::chrono::milliseconds> SeenLookup::ask(QPointer<SeenLookup> lookup, Batch batch,
                                                StopToken stop) {
  const ViewWorld world = lookup->world_;
  std::chrono::milliseconds pause = kPace;
  try {
    const auto found = co_await world.store.ask(
        [batch](QueryServices services, QueryCall call) {
          call.context.requestClass = RequestClass::background;
          return services.itunes.lookup(batch.apps, batch.country, std::move(call.context));
        },
        stop);
    co_await world.library.change(keepSeen, rowsFor(found, batch.country, world.clock.now()));
    co_return pause;
  } catch (const ITunesError& error) {
    pause = error.isRefusal() ? kAfterRefusal : kAfterFailure;
  } catch (const NetworkError&) {
    pause = kAfterFailure;
  } catch (const std::exception&) {
    co_return kAfterFailure;
  }
  if (!lookup) co_return pause;
  for (const std::int64_t app : batch.apps) lookup->asked_.erase({app, batch.country});
  co_return pause;
}

}  // namespace quillet

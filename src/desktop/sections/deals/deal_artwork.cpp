// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/deals/deal_artwork.h"

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

std::vector<CachedApp> rowsFor(const std::vector<ITunesApp>& found, const std::string& country,
                               Instant now) {
  std::vector<CachedApp> rows;
  for (const ITunesApp& app : found)
    rows.push_back(cachedAppOf(app, {country, ownPlatform(app), now}));
  return rows;
}

}  // namespace

void DealArtwork::want(std::vector<AppKey> apps) {
  std::erase_if(apps, [this](const AppKey& app) { return asked_.contains(app); });
  wanted_ = std::move(apps);
  if (isRunning_ || wanted_.empty()) return;
  isRunning_ = true;
  detach(run(this, stop_.token()), "Pictures of deals");
}

DealArtwork::Batch DealArtwork::takeBatch() {
  Batch batch;
  for (const AppKey& app : wanted_) {
    if (batch.apps.empty()) batch.country = app.country;
    if (app.country != batch.country || batch.apps.size() == kLookupBatch) continue;
    batch.apps.push_back(app.trackId);
    asked_.insert(app);
  }
  std::erase_if(wanted_, [this](const AppKey& app) { return asked_.contains(app); });
  return batch;
}

/// Until nobody sees any more without a picture.
Task<> DealArtwork::run(QPointer<DealArtwork> artwork, StopToken stop) {
  while (artwork) {
    Batch batch = artwork->takeBatch();
    if (batch.apps.empty()) {
      artwork->isRunning_ = false;
      co_return;
    }
    const std::chrono::milliseconds pause = co_await ask(artwork, std::move(batch), stop);
    if (!artwork) co_return;
    Clock& clock = artwork->world_.clock;
    try {
      co_await clock.sleepFor(pause, stop);
    } catch (const NetworkError&) {
      co_return;
    }
  }
}

/// How long the next request waits. What the store did not answer is asked for again when it is
/// seen then.
Task<std::chrono::milliseconds> DealArtwork::ask(QPointer<DealArtwork> artwork, Batch batch,
                                                 StopToken stop) {
  const ViewWorld world = artwork->world_;
  std::chrono::milliseconds pause = kPace;
  try {
    const auto found = co_await world.store.ask(
        [batch](QueryServices services, QueryCall call) {
          call.context.requestClass = RequestClass::background;
          return services.itunes.lookup(batch.apps, batch.country, std::move(call.context));
        },
        stop);
    co_await world.library.change(keepCachedApps, rowsFor(found, batch.country, world.clock.now()));
    co_return pause;
  } catch (const ITunesError& error) {
    pause = error.isRefusal() ? kAfterRefusal : kAfterFailure;
  } catch (const NetworkError&) {
    pause = kAfterFailure;
  } catch (const std::exception&) {
    co_return kAfterFailure;
  }
  if (!artwork) co_return pause;
  for (const std::int64_t app : batch.apps) artwork->asked_.erase({app, batch.country});
  co_return pause;
}

}  // namespace quillet

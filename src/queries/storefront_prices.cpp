// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "queries/storefront_prices.h"

#include "net/all_of.h"
#include "store/records/storefronts.h"

namespace quillet {

namespace {

/// What all lookups of one question share.
struct Round {
  std::int64_t trackId = 0;
  QueryServices services;
  QueryCall call;
  std::size_t done = 0;

  void storefrontRead() {
    ++done;
    call.report({QueryStage::storefronts, done, kTrackedStorefronts.size()});
  }
};

/// `round` and `storefront` live until the task has ended.
Task<> lookUp(Round* round, StorefrontPrice* storefront) {
  const std::vector<std::int64_t> ids{round->trackId};
  std::vector<ITunesApp> apps =
      co_await round->services.itunes.lookup(ids, storefront->country, round->call.context);
  if (!apps.empty()) storefront->app = std::move(apps.front());
  round->storefrontRead();
}

}  // namespace

Task<std::vector<StorefrontPrice>> readStorefrontPrices(std::int64_t trackId,
                                                        QueryServices services, QueryCall call) {
  Round round{trackId, services, std::move(call)};
  round.call.report({QueryStage::storefronts, 0, kTrackedStorefronts.size()});
  std::vector<StorefrontPrice> prices;
  for (const std::string_view country : kTrackedStorefronts) {
    prices.push_back({std::string(country), {}});
  }
  std::vector<Task<>> lookups;
  for (StorefrontPrice& storefront : prices) lookups.push_back(lookUp(&round, &storefront));
  co_await allOf(std::move(lookups));
  co_return prices;
}

}  // namespace quillet

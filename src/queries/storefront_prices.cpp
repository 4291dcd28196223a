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
  StorefrontAnswers answered;

  void report() const {
    call.report({QueryStage::storefronts, answered->size(), kTrackedStorefronts.size()});
  }
};

/// `round` lives until the task has ended.
Task<> lookUp(Round* round, std::string country) {
  const std::vector<std::int64_t> ids{round->trackId};
  std::vector<ITunesApp> apps =
      co_await round->services.itunes.lookup(ids, country, round->call.context);
  std::optional<ITunesApp>& app = (*round->answered)[country];
  if (!apps.empty()) app = std::move(apps.front());
  round->report();
}

}  // namespace

StorefrontAnswers noStorefrontAnswers() {
  return std::make_shared<StorefrontAnswers::element_type>();
}

Task<std::vector<StorefrontPrice>> readStorefrontPrices(std::int64_t trackId,
                                                        QueryServices services, QueryCall call,
                                                        StorefrontAnswers answered) {
  Round round{trackId, services, std::move(call), std::move(answered)};
  round.report();
  std::vector<Task<>> lookups;
  for (const std::string_view country : kTrackedStorefronts) {
    std::string code(country);
    if (!round.answered->contains(code)) lookups.push_back(lookUp(&round, std::move(code)));
  }
  co_await allOf(std::move(lookups));
  std::vector<StorefrontPrice> prices;
  for (const std::string_view country : kTrackedStorefronts) {
    std::string code(country);
    prices.push_back({code, round.answered->at(code)});
  }
  co_return prices;
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/observed_deal.h"

#include "analysis/price_record.h"
#include "library/price_series.h"

namespace quillet {

namespace {

/// What the app has cost in the currency of the change.
std::vector<RecordedPrice> comparable(const std::vector<PricePoint>& points,
                                      const ObservedChange& change) {
  std::vector<RecordedPrice> prices = recordedPrices(points);
  prices.push_back({change.when, change.now, change.currency});
  return inLatestCurrency(std::move(prices));
}

}  // namespace

Deal observedDeal(const ITunesApp& app, const ObservedChange& change,
                  const std::vector<PricePoint>& points) {
  Deal deal;
  deal.trackId = app.trackId;
  deal.country = change.country;
  deal.name = app.trackName;
  deal.seller = app.sellerName;
  deal.kind = app.kind;
  deal.currency = change.currency;
  deal.wasPrice = change.was;
  deal.nowPrice = change.now;
  deal.percentOff = shownPercent((change.was - change.now) / change.was * 100);
  deal.changedOn = change.when;
  const PriceLow low = lowOf(comparable(points, change));
  deal.lowestPrice = low.amount;
  deal.lowestOn = low.lastSeen.value_or(change.when);
  return deal;
}

}  // namespace quillet

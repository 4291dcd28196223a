// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/observed_deal.h"

#include "analysis/price_record.h"

namespace quillet {

Deal observedDeal(const ITunesApp& app, const ObservedChange& change,
                  const std::vector<PricePoint>& points) {
  Deal deal;
  deal.trackId = app.trackId;
  deal.country = change.country;
  deal.name = app.trackName;
  deal.seller = app.sellerName;
  deal.kind = app.kind;
  deal.currency = app.currency;
  deal.wasPrice = change.was;
  deal.nowPrice = deal.lowestPrice = change.now;
  deal.percentOff = shownPercent((change.was - change.now) / change.was * 100);
  deal.changedOn = deal.lowestOn = change.when;
  for (const PricePoint& point : points) {
    const bool isComparable = point.currency == app.currency;
    if (!isComparable || point.price > deal.lowestPrice) continue;
    deal.lowestPrice = point.price;
    deal.lowestOn = point.date;
  }
  return deal;
}

}  // namespace quillet

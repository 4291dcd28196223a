// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/storefront_seed.h"

#include <algorithm>
#include <span>

#include "analysis/price_record.h"

namespace quillet {
namespace {

using Points = std::span<const PriceSeed::Point>;

std::optional<Deal> dealOf(const PriceSeed::Entry& entry, Points points,
                           const StorefrontSeed& seed) {
  const auto step = lastStep(points);
  if (entry.goneSince || !step || !isDrop(*step, 0)) return {};
  const PriceExtreme lowest = lowestOf(points);
  Deal deal;
  deal.trackId = entry.trackId;
  deal.country = seed.country;
  deal.name = entry.name.text();
  deal.seller = entry.seller.text();
  deal.kind = entry.kind.text();
  deal.currency = entry.currency.text();
  deal.wasPrice = step->was;
  deal.nowPrice = step->now;
  deal.percentOff = shownPercent(-percentOf(*step).value_or(0));
  deal.changedOn = step->changedOn;
  deal.lowestPrice = lowest.price;
  deal.lowestOn = lowest.on;
  deal.edition = seed.stamp;
  return deal;
}

}  // namespace

StorefrontSeed collectSeed(PriceSeedReader reader, std::string country) {
  StorefrontSeed seed{std::move(country), reader.stamp(), {}, {}};
  while (reader.next()) {
    const Points points = reader.points();
    const PriceSeed::Entry& entry = reader.entry();
    seed.apps.push_back({entry.trackId, entry.currency.text(), seed.points.size(), points.size(),
                         dealOf(entry, points, seed)});
    seed.points.insert(seed.points.end(), points.begin(), points.end());
  }
  std::sort(seed.apps.begin(), seed.apps.end(),
            [](const auto& left, const auto& right) { return left.trackId < right.trackId; });
  return seed;
}

}  // namespace quillet

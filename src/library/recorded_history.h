// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <vector>

#include "library/schema/entities.h"
#include "library/write_transaction.h"

namespace quillet {

// What is recorded over time. "Of apps" gives the rows of all these apps, app by app in their
// order, each app's in the order of their dates.

[[nodiscard]] std::vector<PricePoint> pricePointsOf(SQLite::Database& database,
                                                    const std::vector<AppKey>& apps);
[[nodiscard]] std::vector<PurchasePricePoint> purchasePointsOf(SQLite::Database& database,
                                                               const std::vector<AppKey>& apps);
[[nodiscard]] std::vector<RankPoint> rankPointsOf(SQLite::Database& database,
                                                  const std::vector<AppKey>& apps);

void addPricePoints(WriteTransaction& transaction, const std::vector<PricePoint>& points);
void addPurchasePoints(WriteTransaction& transaction,
                       const std::vector<PurchasePricePoint>& points);
void addRankPoints(WriteTransaction& transaction, const std::vector<RankPoint>& points);

/// Adds points from elsewhere but for those of a UTC day on which the app has one in that
/// storefront, and returns how many. Quickest when an app's points follow one another.
std::size_t importPricePoints(WriteTransaction& transaction, const std::vector<PricePoint>& points);

}  // namespace quillet

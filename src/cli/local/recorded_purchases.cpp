// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/recorded_purchases.h"

#include <fmt/format.h>

#include "cli/local/local_statement.h"

namespace quillet {

namespace {

bool hasPurchases(const CLILocalStore& store) {
  return LocalStatement(store,
                        "SELECT name FROM sqlite_master WHERE type = 'table' AND name = "
                        "'ZPURCHASEPRICEPOINT'")
      .next();
}

std::string queryFor(std::span<const std::int64_t> trackIds) {
  return fmt::format(
      "SELECT ZTRACKID, ZCOUNTRY, ZKEY, ZNAME, ZRECURRINGPERIOD, ZPRICE, ZCURRENCY, ZDATE\n"
      "FROM ZPURCHASEPRICEPOINT WHERE ZTRACKID IN ({}) ORDER BY ZDATE",
      fmt::join(trackIds, ","));
}

/// Absent where a required column is.
std::optional<RecordedPurchase> purchaseOf(const LocalStatement& row) {
  const auto trackId = row.integer(0);
  auto country = row.text(1);
  auto key = row.text(2);
  const auto price = row.number(5);
  if (!trackId || !country || !key || !price) return {};
  return RecordedPurchase{*trackId,    *std::move(country), *std::move(key),
                          row.text(3), row.text(4),         {row.date(7), *price, row.text(6)}};
}

}  // namespace

std::optional<std::vector<PurchaseSeries>> readPurchaseSeries(
    const CLILocalStore& store, std::span<const std::int64_t> trackIds) {
  if (!hasPurchases(store)) return {};
  LocalStatement rows(store, queryFor(trackIds));
  std::vector<RecordedPurchase> records;
  while (rows.next()) {
    if (auto record = purchaseOf(rows)) records.push_back(*std::move(record));
  }
  return purchaseSeries(std::move(records));
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/purchase_series.h"

#include <fmt/format.h>

#include <map>
#include <tuple>

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

/// Rows become series by app, storefront and key.
class SeriesBuilder {
 public:
  void add(const LocalStatement& row) {
    const auto trackId = row.integer(0);
    const auto country = row.text(1);
    const auto key = row.text(2);
    const auto price = row.number(5);
    if (!trackId || !country || !key || !price) return;
    PurchaseSeries& series = seriesOf(*trackId, *country, *key);
    if (auto name = row.text(3)) series.name = std::move(*name);
    if (auto period = row.text(4); period && !period->empty()) series.period = std::move(period);
    series.currency = row.text(6);
    series.history.push_back({row.date(7), *price});
  }

  [[nodiscard]] std::vector<PurchaseSeries> take() { return std::move(all_); }

 private:
  PurchaseSeries& seriesOf(std::int64_t trackId, const std::string& country,
                           const std::string& key) {
    const auto [place, isNew] = places_.try_emplace({trackId, country, key}, all_.size());
    if (isNew) {
      PurchaseSeries& series = all_.emplace_back();
      series.trackId = trackId;
      series.country = country;
      series.key = series.name = key;
    }
    return all_[place->second];
  }

  std::map<std::tuple<std::int64_t, std::string, std::string>, std::size_t> places_;
  std::vector<PurchaseSeries> all_;
};

}  // namespace

PriceChanges changesOf(const PurchaseSeries& series) {
  PriceChanges changes;
  for (std::size_t i = 1; i < series.history.size(); ++i) {
    if (series.history[i].price == series.history[i - 1].price) continue;
    ++changes.count;
    changes.last = i;
  }
  return changes;
}

std::optional<std::vector<PurchaseSeries>> readPurchaseSeries(
    const CLILocalStore& store, std::span<const std::int64_t> trackIds) {
  if (!hasPurchases(store)) return {};
  LocalStatement rows(store, queryFor(trackIds));
  SeriesBuilder builder;
  while (rows.next()) builder.add(rows);
  return builder.take();
}

}  // namespace quillet

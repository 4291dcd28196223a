// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/purchase_series.h"

#include <map>
#include <tuple>
#include <utility>

#include "analysis/price_series.h"

namespace quillet {

namespace {

/// Puts each record where it belongs.
class SeriesBuilder {
 public:
  void add(RecordedPurchase record) {
    PurchaseSeries& series = seriesOf(record);
    if (record.name) series.name = *std::move(record.name);
    if (record.period && !record.period->empty()) series.period = std::move(record.period);
    series.history.push_back(std::move(record.price));
  }

  [[nodiscard]] std::vector<PurchaseSeries> take() {
    for (PurchaseSeries& series : all_) {
      series.history = inLatestCurrency(std::move(series.history));
    }
    return std::move(all_);
  }

 private:
  PurchaseSeries& seriesOf(const RecordedPurchase& record) {
    const auto [place, isNew] =
        places_.try_emplace({record.trackId, record.country, record.key}, all_.size());
    if (isNew) {
      PurchaseSeries& series = all_.emplace_back();
      series.trackId = record.trackId;
      series.country = record.country;
      series.key = series.name = record.key;
    }
    return all_[place->second];
  }

  std::map<std::tuple<std::int64_t, std::string, std::string>, std::size_t> places_;
  std::vector<PurchaseSeries> all_;
};

}  // namespace

std::vector<PurchaseSeries> purchaseSeries(std::vector<RecordedPurchase> records) {
  SeriesBuilder builder;
  for (RecordedPurchase& record : records) builder.add(std::move(record));
  return builder.take();
}

void addTo(PurchaseCounts& counts, const PurchaseSeries& series) {
  ++counts.tracked;
  if (changesOf(series.history).count > 0) ++counts.changed;
}

}  // namespace quillet

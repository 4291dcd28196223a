// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/purchase_series.h"
#include "cli/local/local_call.h"

namespace quillet {

/// One in-app purchase and what it has cost.
struct CLIPurchaseRecord {
  std::string name;
  std::optional<std::string> productId;
  bool subscription = false;
  std::optional<std::string> period;       ///< as recorded: "P1M"
  std::optional<std::int64_t> periodDays;  ///< to whole days
  std::optional<std::string> currency;
  double price = 0;
  std::optional<Instant> since;         ///< when the latest price was first recorded
  std::optional<double> previousPrice;  ///< absent where the price never changed
  std::optional<double> changePercent;  ///< absent too where it was free before
  std::size_t changes = 0;
  std::vector<RecordedPrice> history;  ///< in `currency`; never empty
};

struct CLIPurchaseStorefront {
  std::string country;
  std::vector<CLIPurchaseRecord> purchases;
};

struct CLIPurchaseHistoryPayload {
  std::int64_t trackId = 0;
  std::string name;
  bool watched = false;
  std::vector<CLIPurchaseStorefront> storefronts;
};

/// `quillet purchase-history`: of one app, in the storefront that was named, else in all.
[[nodiscard]] CLIPurchaseHistoryPayload readPurchaseHistory(const LocalCall& call);

[[nodiscard]] std::string renderPurchaseHistoryJson(const CLIPurchaseHistoryPayload& payload);

}  // namespace quillet

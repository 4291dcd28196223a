// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/dates.h"
#include "cli/local/list_payload.h"
#include "cli/local/local_call.h"

namespace quillet {

/// One watched app, in one storefront.
struct CLIWatchedApp {
  std::int64_t trackId = 0;
  std::string name;
  std::optional<std::string> seller;
  std::string country;
  std::optional<std::string> platform;
  std::optional<std::string> currency;
  std::optional<double> priceWhenAdded;  ///< in `currency`, as the target; absent where in another
  std::optional<double> currentPrice;
  std::optional<std::string> formattedPrice;
  std::optional<double> targetPrice;
  std::optional<bool> alertOnAnyDrop;
  std::optional<bool> alertOnFree;
  std::optional<bool> alertOnNewVersion;
  std::optional<Instant> addedAt;
  std::optional<Instant> lastCheckedAt;
  std::optional<bool> unavailable;
  std::optional<double> changeSinceAdded;        ///< in `currency`; negative: cheaper now
  std::optional<std::int64_t> purchasesTracked;  ///< absent before purchases were recorded at all
  std::optional<std::int64_t> purchasesChanged;
};

using CLIWatchlist = CLIListPayload<CLIWatchedApp>;

/// `quillet watchlist`: the newest apps first, as many as the limit.
[[nodiscard]] CLIWatchlist readWatchlist(const LocalCall& call);

[[nodiscard]] std::string renderWatchlistJson(const CLIWatchlist& watchlist);

}  // namespace quillet

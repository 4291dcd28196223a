// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>

#include "desktop/models/place.h"
#include "desktop/store_lists/found_apps.h"
#include "queries/query_call.h"

namespace quillet {

/// What the store is asked, whatever of the answer is shown then: two are the same question where
/// they are equal.
struct StoreAsk {
  std::string term;
  Platform platform = Platform::mac;
  std::string country;
  std::int64_t developer = 0;           ///< whose apps; 0 for a search
  std::optional<ChartType> chart = {};  ///< which one; absent for a search
  std::optional<int> genreId = {};      ///< of its category; absent: of the whole store

  friend auto operator<=>(const StoreAsk&, const StoreAsk&) = default;
};

/// `storefront`: where the query names none.
[[nodiscard]] StoreAsk askOf(const StoreQuery& query, const std::string& storefront);
/// The chart that is asked for; there must be one.
[[nodiscard]] ChartQuery chartOf(const StoreAsk& ask);
/// Whether there is anything to ask.
[[nodiscard]] bool isAsked(const StoreQuery& query);

/// As much of a chart as is read.
inline constexpr int kWholeChart = 200;

/// Asks for a chart or a developer's apps, or searches. A term that is a store link, a track ID or
/// a bundle ID means that app, which is the whole answer; where the store has none of that ID, the
/// term is searched for after all. Throws what the search service and the charts throw.
Task<FoundApps> askStore(StoreAsk ask, QueryServices services, QueryCall call);

}  // namespace quillet

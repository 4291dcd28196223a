// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <unordered_set>

#include "analysis/filters.h"
#include "base/dates.h"
#include "store/records/itunes_app.h"
#include "system/time_zone.h"

namespace quillet {

using TrackIds = std::unordered_set<std::int64_t>;

/// Whether the app passes every filter that is set. `now` is taken once per search, so that all
/// records are judged by the same clock; years and months are those of `zone`. An unknown fact
/// counts against the app, but for a price (free) and a minimum system version (installs anywhere).
[[nodiscard]] bool matches(const ITunesApp& app, const AppFilters& filters,
                           const TrackIds& ownedTrackIds, Instant now, const UtcOffsetAt& zone);

/// How many filters are set; 0 matches every app.
[[nodiscard]] int activeCount(const AppFilters& filters);

/// Whether matching reads the flags that tell what is sold inside an app, and the one that tells
/// how its Mac build is compiled. The store's own records leave both unknown.
[[nodiscard]] bool readsPurchases(const AppFilters& filters);
[[nodiscard]] bool readsArchitecture(const AppFilters& filters);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include "analysis/described_app.h"
#include "library/app_key.h"
#include "library/schema/cached_app.h"
#include "library/schema/chart_records.h"
#include "library/write_transaction.h"

namespace quillet {

/// What the library keeps of somebody's looking at an app's page.
struct Visit {
  enum class Step {
    view,     ///< the page was opened, with facts that are young
    renewal,  ///< the page that is open tells more
    unnoted,  ///< either, where the user wants no history
  };

  Step step = Step::view;
  CachedApp app;
  Instant when{};
  std::optional<RankPoint> rank;  ///< absent where the page read none
};

/// The chart position that the catalog told; absent where it told none, or of no named chart.
[[nodiscard]] std::optional<RankPoint> rankPointOf(const DescribedApp& app, const AppKey& key,
                                                   Instant when);

/// Runs on the library's thread. Without a history nothing tells that there was a visit.
void keepVisit(WriteTransaction& transaction, const Visit& visit);

}  // namespace quillet

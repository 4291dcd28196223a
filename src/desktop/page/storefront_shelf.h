// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <vector>

#include "desktop/page/storefront_rows.h"
#include "store/answer_cache.h"

namespace quillet {

/// What the storefronts asked for an app, and when they were compared.
struct StorefrontComparison {
  std::vector<ComparedStorefront> storefronts;
  Instant asOf{};
};

/// By track ID, for a day: ten requests are not made twice.
using StorefrontShelf = AnswerCache<std::int64_t, StorefrontComparison>;

inline constexpr AnswerCacheLimits kStorefrontShelfLimits{std::chrono::hours(24), 50};

}  // namespace quillet

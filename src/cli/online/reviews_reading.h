// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include "cli/online/command_call.h"
#include "cli/online/reviews_result.h"

namespace quillet {

/// Which reviews are wanted of each storefront.
struct ReviewsQuestion {
  std::int64_t trackId = 0;
  Platform platform = Platform::mac;
  std::size_t limit = 1;  ///< at least 1
  std::optional<int> stars;
  bool recentFirst = false;  ///< from the feed of recent reviews, where it holds any
};

/// Storefronts in the order given, and those that failed.
struct ReviewsRead {
  std::vector<CLIStorefrontReviews> storefronts;
  std::vector<std::string> unavailable;
};

/// Reads all storefronts at the same time, each page by page until enough reviews pass or the store
/// has no more. Throws the first one's failure where all of them fail.
Task<ReviewsRead> readReviews(ReviewsQuestion question, std::vector<std::string> countries,
                              CommandServices services);

}  // namespace quillet

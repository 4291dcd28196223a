// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "queries/review_reading.h"
#include "store/records/platform.h"

namespace quillet {

/// An app's reviews, storefront by storefront.
struct CLIReviewsPayload {
  std::int64_t trackId = 0;
  Platform platform = Platform::mac;
  std::optional<std::string> name;             ///< for people; not in JSON
  std::optional<int> stars;                    ///< the filter; not in JSON
  bool recentFirst = false;                    ///< whether the feed of recent reviews was asked for
  std::vector<std::string> countries;          ///< all that were asked for, in their order
  std::vector<std::string> unavailable;        ///< those of them that could not be read
  std::vector<StorefrontReviews> storefronts;  ///< the others

  [[nodiscard]] bool isGrouped() const { return countries.size() > 1; }
  [[nodiscard]] std::size_t count() const;
  [[nodiscard]] std::size_t fetched() const;
  /// Whether a storefront's feed of recent reviews was empty.
  [[nodiscard]] bool feedEmpty() const;
};

[[nodiscard]] std::string renderReviewsJson(const CLIReviewsPayload& payload);

}  // namespace quillet

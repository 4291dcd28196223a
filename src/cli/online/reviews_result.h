// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "store/records/platform.h"
#include "store/records/review_feed_json.h"

namespace quillet {

/// What was read in one storefront.
struct CLIStorefrontReviews {
  std::string country;
  std::size_t fetched = 0;               ///< reviews read, before any filter
  std::vector<VersionedReview> reviews;  ///< those that passed, in the source's order
  bool feedEmpty = false;  ///< whether the feed of recent reviews held none, and these are others
};

/// An app's reviews, storefront by storefront.
struct CLIReviewsPayload {
  std::int64_t trackId = 0;
  Platform platform = Platform::mac;
  std::optional<std::string> name;       ///< for people; not in JSON
  std::optional<int> stars;              ///< the filter; not in JSON
  bool recentFirst = false;              ///< whether the feed of recent reviews was asked for
  std::vector<std::string> countries;    ///< all that were asked for, in their order
  std::vector<std::string> unavailable;  ///< those of them that could not be read
  std::vector<CLIStorefrontReviews> storefronts;  ///< the others

  [[nodiscard]] bool isGrouped() const { return countries.size() > 1; }
  [[nodiscard]] std::size_t count() const;
  [[nodiscard]] std::size_t fetched() const;
  /// Whether a storefront's feed of recent reviews was empty.
  [[nodiscard]] bool feedEmpty() const;
};

[[nodiscard]] std::string renderReviewsJson(const CLIReviewsPayload& payload);

}  // namespace quillet

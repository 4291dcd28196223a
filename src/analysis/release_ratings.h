// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <span>
#include <string>

#include "store/records/app_enrichment.h"

namespace quillet {

/// What an app's reviews give it on average since a release, and what they gave it before.
struct ReleaseRatings {
  std::string version;
  double since = 0;
  double before = 0;

  friend bool operator==(const ReleaseRatings&, const ReleaseRatings&) = default;
};

/// Reviews that a mean takes at least.
inline constexpr std::size_t kLeastReviewsOfMean = 3;

/// Compares at the newest release with enough reviews on both sides; absent where there is none.
/// Reviews count by their day, those without a day or stars do not. A guess: a review may be of an
/// older version than the newest of its day.
[[nodiscard]] std::optional<ReleaseRatings> releaseRatings(std::span<const AppReview> reviews,
                                                           std::span<const VersionEntry> releases);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/records/app_review.h"

namespace quillet {

/// A review as the feed of recent reviews tells it; the feed holds no replies of developers.
struct VersionedReview {
  AppReview review;
  std::string version;  ///< of the app it was written for; empty where the feed did not say

  friend bool operator==(const VersionedReview&, const VersionedReview&) = default;
};

/// One page of the feed, newest first.
struct ReviewFeedPage {
  std::vector<VersionedReview> reviews;
  bool hasMore = false;  ///< whether the feed has a page behind this one

  friend bool operator==(const ReviewFeedPage&, const ReviewFeedPage&) = default;
};

/// Page `page` (from 1) of a feed. Entries that are no reviews, as the app itself, are left out.
/// Throws DecodingError when `body` is no feed.
[[nodiscard]] ReviewFeedPage decodeReviewFeed(const std::string& body, int page);

}  // namespace quillet

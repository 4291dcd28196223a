// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <exception>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "queries/query_call.h"
#include "store/records/app_enrichment.h"
#include "store/records/platform.h"
#include "store/records/review_feed_json.h"

namespace quillet {

enum class ReviewOrder {
  asTheStoreHasThem,
  mostRecent,  ///< the feed of recent reviews, which names versions; it holds a few hundred
};

/// Pages that are read of a storefront at most. Whoever filters may have to read on for long; 500
/// reviews are enough of a sample.
inline constexpr int kMostReviewPages = 25;

/// How far the reviews of one storefront have been read. Made of the first four, it stands before
/// the first page.
struct ReviewPlace {
  std::int64_t trackId = 0;
  Platform platform = Platform::mac;  ///< whatever it is, the feed of recent reviews holds all
  std::string country;
  ReviewOrder order = ReviewOrder::asTheStoreHasThem;

  int page = 0;            ///< the next one in this order, from 0
  bool feedEmpty = false;  ///< whether the feed was asked for, held none, and this order stands in
};

struct ReviewBatch {
  std::vector<VersionedReview> reviews;
  std::optional<ReviewPlace> next;  ///< absent behind the last page
};

/// Reads one page of reviews, in one request. It holds none and still names a next place where the
/// store's order has to stand in for an empty feed. Throws what the clients throw.
Task<ReviewBatch> readReviewPage(ReviewPlace place, QueryServices services, QueryCall call);

/// What to read of an app's reviews in several storefronts.
struct ReviewQuestion {
  std::int64_t trackId = 0;
  Platform platform = Platform::mac;
  std::vector<std::string> countries;  ///< at least one
  ReviewOrder order = ReviewOrder::asTheStoreHasThem;
  std::optional<int> stars;  ///< keeps those with this rating alone
  std::size_t limit = 1;     ///< reviews to keep of each storefront, at least 1
};

/// What was read in one storefront.
struct StorefrontReviews {
  std::string country;
  std::size_t fetched = 0;               ///< reviews read, before any filter
  std::vector<VersionedReview> reviews;  ///< those that passed, in the source's order
  bool feedEmpty = false;  ///< whether the feed of recent reviews held none, and these are others
  std::exception_ptr failure;  ///< why it could not be read; null where it was
};

/// Reads all storefronts at the same time, each page by page until enough reviews pass, the store
/// has no more, or a sample of 500 is read; answers in their order. Throws the first failure
/// where all of them fail, or the question was stopped.
Task<std::vector<StorefrontReviews>> readReviews(ReviewQuestion question, QueryServices services,
                                                 QueryCall call);

/// The requests that readReviews() sends at most.
[[nodiscard]] std::size_t mostRequests(const ReviewQuestion& question);

/// Names the version that each dated review was probably written for.
void addVersions(std::span<VersionedReview> reviews, std::span<const VersionEntry> history);

/// The app's releases, for addVersions(): they are the same in every storefront that sells it.
Task<std::vector<VersionEntry>> readReleases(std::int64_t trackId, Platform platform,
                                             std::string country, QueryServices services,
                                             QueryCall call);

}  // namespace quillet

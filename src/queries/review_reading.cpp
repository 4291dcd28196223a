// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "queries/review_reading.h"

#include <algorithm>

#include "analysis/version_at.h"
#include "net/all_of.h"
#include "store/records/itunes_error.h"

namespace quillet {

namespace {

constexpr int kNotFound = 404;

Task<ReviewBatch> readCatalog(ReviewPlace place, QueryServices services, QueryCall call) {
  ReviewsPage page;
  try {
    page = co_await services.catalog.reviewsPage(place.trackId, place.country, place.platform,
                                                 kCatalogReviewsPage,
                                                 place.page * kCatalogReviewsPage, call.context);
  } catch (const ITunesError& error) {
    // The catalog gives no empty page: it answers so where an app has no reviews, or no more.
    if (error.status() != kNotFound) throw;
  }
  ReviewBatch result;
  for (AppReview& review : page.reviews) result.reviews.push_back({std::move(review), {}});
  if (page.hasMore && !result.reviews.empty()) {
    ++place.page;
    result.next = std::move(place);
  }
  co_return result;
}

/// Where to read on after a page of the feed.
std::optional<ReviewPlace> placeAfter(ReviewPlace place, const ReviewFeedPage& page) {
  if (place.page == 0 && page.reviews.empty()) {
    place.order = ReviewOrder::asTheStoreHasThem;
    place.feedEmpty = true;
    return place;
  }
  ++place.page;
  if (!page.hasMore || place.page == kReviewFeedPages) return {};
  return place;
}

Task<ReviewBatch> readFeed(ReviewPlace place, QueryServices services, QueryCall call) {
  ReviewFeedPage page = co_await services.itunes.recentReviews(place.trackId, place.country,
                                                               place.page + 1, call.context);
  ReviewBatch result;
  result.next = placeAfter(std::move(place), page);
  result.reviews = std::move(page.reviews);
  co_return result;
}

/// What all storefronts of one question share. It lives in the frame of readReviews(), which awaits
/// all.
struct Round {
  ReviewQuestion question;
  QueryServices services;
  QueryCall call;
  std::size_t pages = 0;
  std::size_t done = 0;

  void report() const {
    const std::size_t storefronts = question.countries.size();
    call.report({QueryStage::reviews, done, storefronts > 1 ? storefronts : 0, pages});
  }
  void pageRead() {
    ++pages;
    report();
  }
  void storefrontDone() {
    ++done;
    report();
  }
  [[nodiscard]] bool isFull(const StorefrontReviews& result) const {
    return result.reviews.size() >= question.limit;
  }
  void keep(StorefrontReviews& result, VersionedReview review) const {
    ++result.fetched;
    const bool passes = !question.stars || review.review.rating == question.stars;
    if (passes && !isFull(result)) result.reviews.push_back(std::move(review));
  }
};

/// `round` and `result` live until the task has ended.
Task<> readPages(Round* round, StorefrontReviews* result) {
  const ReviewQuestion& asked = round->question;
  const ReviewPlace start{asked.trackId, asked.platform, result->country, asked.order};
  std::optional<ReviewPlace> place = start;
  while (place && place->page < kMostReviewPages && !round->isFull(*result)) {
    ReviewBatch page = co_await readReviewPage(*place, round->services, round->call);
    for (VersionedReview& review : page.reviews) round->keep(*result, std::move(review));
    place = std::move(page.next);
    if (place) result->feedEmpty = place->feedEmpty;
    round->pageRead();
  }
}

Task<> readStorefront(Round* round, StorefrontReviews* result) {
  try {
    co_await readPages(round, result);
  } catch (...) {
    result->failure = std::current_exception();
  }
  round->storefrontDone();
}

bool isRead(const StorefrontReviews& result) { return result.failure == nullptr; }

}  // namespace

Task<ReviewBatch> readReviewPage(ReviewPlace place, QueryServices services, QueryCall call) {
  if (place.order == ReviewOrder::mostRecent) {
    return readFeed(std::move(place), services, std::move(call));
  }
  return readCatalog(std::move(place), services, std::move(call));
}

Task<std::vector<StorefrontReviews>> readReviews(ReviewQuestion question, QueryServices services,
                                                 QueryCall call) {
  Round round{std::move(question), services, std::move(call)};
  round.report();
  std::vector<StorefrontReviews> results;
  for (const std::string& country : round.question.countries) {
    results.emplace_back().country = country;
  }
  std::vector<Task<>> tasks;
  for (StorefrontReviews& result : results) tasks.push_back(readStorefront(&round, &result));
  co_await allOf(std::move(tasks));
  const auto unread = std::ranges::find_if_not(results, isRead);
  const bool isStopped = round.call.context.stop.stopRequested();
  if (unread != results.end() && (isStopped || std::ranges::none_of(results, isRead))) {
    std::rethrow_exception(unread->failure);
  }
  co_return results;
}

std::size_t mostRequests(const ReviewQuestion& question) {
  // An empty feed takes a request before the store's order stands in.
  const int feed = question.order == ReviewOrder::mostRecent ? 1 : 0;
  static_assert(kReviewFeedPages <= kMostReviewPages);
  return static_cast<std::size_t>(feed + kMostReviewPages) * question.countries.size();
}

void addVersions(std::span<VersionedReview> reviews, std::span<const VersionEntry> history) {
  for (VersionedReview& each : reviews) {
    if (each.review.date) each.version = versionAt(history, *each.review.date);
  }
}

Task<std::vector<VersionEntry>> readReleases(std::int64_t trackId, Platform platform,
                                             std::string country, QueryServices services,
                                             QueryCall call) {
  call.report({QueryStage::releases});
  AppEnrichment enrichment =
      co_await services.catalog.enrichment(trackId, std::move(country), platform, call.context);
  co_return std::move(enrichment.versions);
}

}  // namespace quillet

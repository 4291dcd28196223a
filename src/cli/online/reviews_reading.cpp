// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/reviews_reading.h"

#include <fmt/format.h>

#include "net/all_of.h"
#include "store/records/itunes_error.h"

namespace quillet {

namespace {

// Whoever filters may have to read on for long; 500 reviews of a storefront are enough of a sample.
constexpr int kMostPages = 25;

constexpr int kNotFound = 404;

/// One storefront on its way.
struct Reading {
  CLIStorefrontReviews result;
  std::exception_ptr failure;
};

/// What all storefronts have in common. It lives in the frame of readReviews(), which awaits all.
struct Round {
  const CLIReviewsPayload& asked;
  std::size_t limit;
  CommandServices services;
  std::size_t done = 0;
  int pages = 0;

  void report() const {
    std::string text = fmt::format("Reading reviews: {} page{}", pages, pages == 1 ? "" : "s");
    if (asked.isGrouped()) {
      text += fmt::format(", {} of {} storefronts", done, asked.countries.size());
    }
    services.progress.report(std::move(text));
  }
  void pageRead() {
    ++pages;
    report();
  }
  void storefrontDone() {
    ++done;
    report();
  }
};

bool isFull(const CLIStorefrontReviews& result, const Round& round) {
  return result.reviews.size() >= round.limit;
}

void keep(CLIStorefrontReviews& result, VersionedReview review, const Round& round) {
  ++result.fetched;
  const bool passes = !round.asked.stars || review.review.rating == round.asked.stars;
  if (passes && !isFull(result, round)) result.reviews.push_back(std::move(review));
}

/// The catalog gives no empty page: it answers 404 where an app has no reviews, or no more.
Task<ReviewsPage> readPage(Round* round, std::string country, int offset) {
  const CLIReviewsPayload& asked = round->asked;
  ReviewsPage page;
  try {
    page = co_await round->services.catalog.reviewsPage(
        asked.trackId, country, asked.platform, kCatalogReviewsPage, offset, RequestContext{});
  } catch (const ITunesError& error) {
    if (error.status() != kNotFound) throw;
  }
  round->pageRead();
  co_return page;
}

Task<> readCatalog(Round* round, CLIStorefrontReviews* result) {
  for (int number = 0; number < kMostPages && !isFull(*result, *round); ++number) {
    ReviewsPage page = co_await readPage(round, result->country, number * kCatalogReviewsPage);
    for (AppReview& review : page.reviews) keep(*result, {std::move(review), {}}, *round);
    if (!page.hasMore || page.reviews.empty()) break;
  }
}

Task<> readFeed(Round* round, CLIStorefrontReviews* result) {
  for (int number = 1; number <= kReviewFeedPages && !isFull(*result, *round); ++number) {
    ReviewFeedPage page = co_await round->services.itunes.recentReviews(
        round->asked.trackId, result->country, number, RequestContext{});
    round->pageRead();
    for (VersionedReview& review : page.reviews) keep(*result, std::move(review), *round);
    if (!page.hasMore) break;
  }
  result->feedEmpty = result->fetched == 0;
}

Task<> readStorefront(Round* round, Reading* reading) {
  try {
    if (round->asked.recentFirst) co_await readFeed(round, &reading->result);
    if (!round->asked.recentFirst || reading->result.feedEmpty) {
      co_await readCatalog(round, &reading->result);
    }
  } catch (...) {
    reading->failure = std::current_exception();
  }
  round->storefrontDone();
}

void addTo(CLIReviewsPayload& payload, std::vector<Reading> readings) {
  for (Reading& reading : readings) {
    if (reading.failure) {
      payload.unavailable.push_back(std::move(reading.result.country));
    } else {
      payload.storefronts.push_back(std::move(reading.result));
    }
  }
  if (payload.storefronts.empty()) std::rethrow_exception(readings.front().failure);
}

}  // namespace

Task<> readReviews(CLIReviewsPayload* payload, std::size_t limit, CommandServices services) {
  Round round{*payload, limit, services};
  round.report();
  std::vector<Reading> readings(payload->countries.size());
  std::vector<Task<>> tasks;
  for (std::size_t i = 0; i < readings.size(); ++i) {
    readings[i].result.country = payload->countries[i];
    tasks.push_back(readStorefront(&round, &readings[i]));
  }
  co_await allOf(std::move(tasks));
  addTo(*payload, std::move(readings));
}

}  // namespace quillet

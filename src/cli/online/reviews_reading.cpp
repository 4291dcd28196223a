// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/reviews_reading.h"

#include <fmt/format.h>

#include "net/all_of.h"

namespace quillet {

namespace {

// Whoever filters may have to read on for long; 500 reviews of a storefront are enough of a sample.
constexpr int kMostPages = 25;

/// One storefront on its way.
struct Reading {
  CLIStorefrontReviews result;
  std::exception_ptr failure;
};

/// What all storefronts have in common. It lives in the frame of readReviews(), which awaits all.
struct Round {
  ReviewsQuestion question;
  CommandServices services;
  std::size_t storefronts = 0;
  std::size_t done = 0;
  int pages = 0;

  void report() const {
    std::string text = fmt::format("Reading reviews: {} page{}", pages, pages == 1 ? "" : "s");
    if (storefronts > 1) text += fmt::format(", {} of {} storefronts", done, storefronts);
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

bool isFull(const CLIStorefrontReviews& result, const ReviewsQuestion& question) {
  return result.reviews.size() >= question.limit;
}

void keep(CLIStorefrontReviews& result, VersionedReview review, const ReviewsQuestion& question) {
  ++result.fetched;
  const bool passes = !question.stars || review.review.rating == question.stars;
  if (passes && !isFull(result, question)) result.reviews.push_back(std::move(review));
}

Task<> readCatalog(Round* round, CLIStorefrontReviews* result) {
  const ReviewsQuestion& question = round->question;
  for (int number = 0; number < kMostPages && !isFull(*result, question); ++number) {
    ReviewsPage page = co_await round->services.catalog.reviewsPage(
        question.trackId, result->country, question.platform, kCatalogReviewsPage,
        number * kCatalogReviewsPage, StopToken{});
    round->pageRead();
    for (AppReview& review : page.reviews) keep(*result, {std::move(review), {}}, question);
    if (!page.hasMore || page.reviews.empty()) break;
  }
}

Task<> readFeed(Round* round, CLIStorefrontReviews* result) {
  const ReviewsQuestion& question = round->question;
  for (int number = 1; number <= kReviewFeedPages && !isFull(*result, question); ++number) {
    ReviewFeedPage page = co_await round->services.itunes.recentReviews(
        question.trackId, result->country, number, RequestContext{});
    round->pageRead();
    for (VersionedReview& review : page.reviews) keep(*result, std::move(review), question);
    if (!page.hasMore) break;
  }
  result->feedEmpty = result->fetched == 0;
}

Task<> readStorefront(Round* round, Reading* reading) {
  try {
    if (round->question.recentFirst) co_await readFeed(round, &reading->result);
    if (!round->question.recentFirst || reading->result.feedEmpty) {
      co_await readCatalog(round, &reading->result);
    }
  } catch (...) {
    reading->failure = std::current_exception();
  }
  round->storefrontDone();
}

ReviewsRead resultOf(std::vector<Reading> readings) {
  ReviewsRead read;
  for (Reading& reading : readings) {
    if (reading.failure) {
      read.unavailable.push_back(std::move(reading.result.country));
    } else {
      read.storefronts.push_back(std::move(reading.result));
    }
  }
  if (read.storefronts.empty()) std::rethrow_exception(readings.front().failure);
  return read;
}

}  // namespace

Task<ReviewsRead> readReviews(ReviewsQuestion question, std::vector<std::string> countries,
                              CommandServices services) {
  Round round{question, services, countries.size()};
  round.report();
  std::vector<Reading> readings(countries.size());
  std::vector<Task<>> tasks;
  for (std::size_t i = 0; i < countries.size(); ++i) {
    readings[i].result.country = countries[i];
    tasks.push_back(readStorefront(&round, &readings[i]));
  }
  co_await allOf(std::move(tasks));
  co_return resultOf(std::move(readings));
}

}  // namespace quillet

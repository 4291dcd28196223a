// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "queries/review_reading.h"

#include <optional>

#include "base/errors.h"
#include "query_test.h"
#include "store/records/itunes_error.h"
#include "support/store_requests.h"

namespace quillet {
namespace {

constexpr std::string_view kReview =
    R"({"attributes":{"title":"Good","rating":4,"date":"2026-10-20T09:00:00Z"}})";
constexpr std::string_view kOther = R"({"attributes":{"title":"Bad","rating":1}})";
constexpr std::string_view kFeedEntry =
    R"({"im:rating":{"label":"5"},"im:version":{"label":"2.1"},"title":{"label":"New"}})";

class ReviewReadingTest : public QueryTest, protected ReviewRequests {
 protected:
  /// `next`: what the catalog says of a page behind it.
  void answerPage(int offset, const std::vector<std::string_view>& items,
                  std::string_view next = "", std::string_view country = "us") {
    http.answer(page(offset, country), 200,
                fmt::format(R"({{"data":[{}]{}}})", fmt::join(items, ","), next));
  }
  void answerFullPage(int offset, std::string_view country = "us") {
    std::vector<std::string_view> items(19, kOther);
    items.push_back(kReview);
    answerPage(offset, items, R"(,"next":"/more")", country);
  }
  void answerFeed(int number, std::size_t count, std::string_view country = "us") {
    const std::vector<std::string_view> entries(count, kFeedEntry);
    http.answer(feed(number, country), 200,
                fmt::format(R"({{"feed":{{"entry":[{}]}}}})", fmt::join(entries, ",")));
  }

  /// How many reviews each page of a storefront holds, read on to the end.
  std::vector<std::size_t> pagesOf(ReviewOrder order) {
    std::vector<std::size_t> sizes;
    std::optional<ReviewPlace> place = ReviewPlace{11, Platform::mac, "us", order};
    while (place) {
      ReviewBatch batch = runVirtual(clock, readReviewPage(*place, services(), call()));
      sizes.push_back(batch.reviews.size());
      place = batch.next;
    }
    return sizes;
  }
  std::vector<StorefrontReviews> read(ReviewQuestion question) {
    question.trackId = 11;
    return runVirtual(clock, readReviews(std::move(question), services(), call()));
  }
};

TEST_F(ReviewReadingTest, HandsOverPageAfterPageUntilTheStoreHasNoMore) {
  using Sizes = std::vector<std::size_t>;
  answerFullPage(0);
  answerFullPage(20);
  http.answer(page(40), 404, "");  // so the catalog says that there are no more
  EXPECT_EQ(pagesOf(ReviewOrder::asTheStoreHasThem), (Sizes{20, 20, 0}));
  answerFullPage(0);
  answerPage(20, {kReview});
  EXPECT_EQ(pagesOf(ReviewOrder::asTheStoreHasThem), (Sizes{20, 1}));

  for (int number = 1; number <= kReviewFeedPages; ++number) answerFeed(number, 50);
  EXPECT_EQ(pagesOf(ReviewOrder::mostRecent), Sizes(kReviewFeedPages, 50)) << "the feed's limit";
  answerFeed(1, 50);
  answerFeed(2, 0);
  EXPECT_EQ(pagesOf(ReviewOrder::mostRecent), (Sizes{50, 0}));
  answerFeed(1, 0);
  answerPage(0, {kReview, kOther});
  EXPECT_EQ(pagesOf(ReviewOrder::mostRecent), (Sizes{0, 2})) << "the store's order stands in";
}

TEST_F(ReviewReadingTest, StopsReadingWhereEnoughPassOrTheSampleIsLargeEnough) {
  struct Row {
    std::optional<int> stars;
    std::size_t limit;
    int pages;
    std::size_t kept;
  };
  const Row rows[] = {{{}, 45, 3, 45}, {{}, 40, 2, 40}, {4, 2, 2, 2}, {3, 25, 25, 0}};
  for (const auto& [stars, limit, pages, kept] : rows) {
    for (int i = 0; i < pages; ++i) answerFullPage(20 * i);
    const auto results = read({.countries = {"us"}, .stars = stars, .limit = limit});
    EXPECT_EQ(results[0].reviews.size(), kept);
    EXPECT_EQ(results[0].fetched, static_cast<std::size_t>(20 * pages));
  }
}

TEST_F(ReviewReadingTest, KeepsStorefrontsInOrderAndTellsHowFarItHasCome) {
  answerPage(0, {kReview}, "", "gb");
  http.answer(page(0, "jp"), 403, "");
  answerPage(0, {}, "", "de");
  const auto results = read({.countries = {"gb", "jp", "de"}});
  EXPECT_EQ(results[0].reviews.size(), 1U);
  EXPECT_NE(results[1].failure, nullptr);
  EXPECT_EQ(results[2].country, "de");
  EXPECT_EQ(progress.front(), "0/3");
  EXPECT_EQ(progress.back(), "3/3 2 pages");

  http.answer(page(0, "gb"), 403, "");
  http.answer(page(0, "de"), 400, "");
  EXPECT_THROW(read({.countries = {"gb", "de"}}), ITunesError) << "where none can be read";
}

TEST_F(ReviewReadingTest, SendsNoMoreRequestsThanItSays) {
  for (const ReviewOrder order : {ReviewOrder::asTheStoreHasThem, ReviewOrder::mostRecent}) {
    ReviewQuestion question{.countries = {"us", "gb"}, .order = order, .stars = 3};
    for (const std::string& country : question.countries) {
      if (order == ReviewOrder::mostRecent) answerFeed(1, 0, country);
      for (int i = 0; i < 25; ++i) answerFullPage(20 * i, country);
    }
    const std::size_t before = http.requests().size();
    read(question);
    EXPECT_EQ(http.requests().size() - before, mostRequests(question));
  }
}

TEST_F(ReviewReadingTest, NamesTheVersionOfTheDay) {
  http.answer(
      "https://web.example/api/apps/v1/catalog/gb/apps/11?platform=mac&extend=versionHistory"
      "&include=reviews,top-in-apps,related-editorial-items&limit%5Breviews%5D=10&l=en-US",
      200, R"({"data":[{"attributes":{"versionHistory":[
    {"versionDisplay":"3.0","releaseDate":"2026-10-20T09:00:01Z"},
    {"versionDisplay":"2.0","releaseDate":"2026-10-20T09:00:00Z"}]}}]})");
  const auto releases =
      runVirtual(clock, readReleases(11, Platform::mac, "gb", services(), call()));
  std::vector<VersionedReview> reviews(2);
  reviews[0].review.date = parseInternetDate("2026-10-20T09:00:00Z");
  addVersions(reviews, releases);
  EXPECT_EQ(reviews[0].version, "2.0");
  EXPECT_EQ(reviews[1].version, "") << "without a date";
}

TEST_F(ReviewReadingTest, EndsWhereItIsStopped) {
  answerPage(0, {kReview}, "", "gb");
  http.hold(page(0, "jp"));
  auto task = readReviews({.trackId = 11, .countries = {"gb", "jp"}}, services(), call());
  clock.advance(std::chrono::seconds(1));
  stop.requestStop();
  EXPECT_THROW(runVirtual(clock, std::move(task)), NetworkError) << "though one was read";
  for (const ReviewOrder order : {ReviewOrder::asTheStoreHasThem, ReviewOrder::mostRecent}) {
    EXPECT_THROW(read({.countries = {"us"}, .order = order}), NetworkError);
  }
}

}  // namespace
}  // namespace quillet

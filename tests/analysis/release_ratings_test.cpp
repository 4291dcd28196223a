// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/release_ratings.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

using namespace std::chrono_literals;

Instant day(int number) { return Instant{} + number * 24h; }

AppReview review(int stars, int date) { return {.rating = stars, .date = day(date)}; }

TEST(ReleaseRatings, ComparesAtTheNewestReleaseWithEnoughReviewsOnBothSides) {
  const std::vector<VersionEntry> releases{
      {"1.1", day(10), {}}, {"1.3", day(30), {}}, {"1.2", day(20), {}}, {"", day(21), {}}};
  std::vector<AppReview> reviews{review(5, 31), review(5, 25), review(4, 20),   review(1, 19),
                                 review(2, 9),  {.rating = 1}, {.date = day(9)}};
  EXPECT_EQ(releaseRatings(reviews, releases), std::nullopt) << "two before";
  reviews.push_back(review(2, 1));
  const auto ratings = releaseRatings(reviews, releases);
  ASSERT_TRUE(ratings);
  EXPECT_EQ(ratings->version, "1.2") << "one since 1.3 is no mean";
  EXPECT_DOUBLE_EQ(ratings->since, 14 / 3.0) << "a review of the day itself counts for it";
  EXPECT_DOUBLE_EQ(ratings->before, 5 / 3.0);
  EXPECT_EQ(releaseRatings(reviews, {}), std::nullopt);
}

}  // namespace
}  // namespace quillet

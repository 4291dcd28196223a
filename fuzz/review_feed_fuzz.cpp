// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "fuzzing.h"
#include "store/records/review_feed_json.h"

using namespace quillet;

void quillet::tryInput(std::string_view input) {
  readOrRefuse([input] {
    const ReviewFeedPage page = decodeReviewFeed(std::string(input), 1);
    require(!page.hasMore || !page.reviews.empty(), "a page without reviews ends the feed");
    for (const VersionedReview& each : page.reviews) {
      const int stars = each.review.rating.value_or(1);
      require(stars >= 1 && stars <= 5, "stars are 1 to 5");
      require(isValidUtf8(each.review.body), "a text is valid UTF-8");
    }
  });
}

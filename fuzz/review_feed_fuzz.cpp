// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/errors.h"
#include "fuzzing.h"
#include "store/records/review_feed_json.h"

using namespace quillet;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const ReviewFeedPage page = decodeReviewFeed(std::string(textOf(data, size)), 1);
    require(!page.hasMore || !page.reviews.empty(), "a page without reviews ends the feed");
    for (const VersionedReview& each : page.reviews) {
      const int stars = each.review.rating.value_or(1);
      require(stars >= 1 && stars <= 5, "stars are 1 to 5");
      require(isValidUtf8(each.review.body), "a text is valid UTF-8");
    }
  } catch (const DecodingError& error) {
    require(isValidUtf8(error.what()), "a refusal is valid UTF-8");
  }
  return 0;
}

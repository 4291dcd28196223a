// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/reviews/reviews_result.h"

#include <algorithm>

#include "base/json_writer.h"

namespace quillet {

namespace {

void writeReview(JsonWriter& writer, const VersionedReview& each) {
  const AppReview& review = each.review;
  writer.beginObject();
  writer.member("body", review.body);
  writer.member("date", review.date);
  writer.member("developerResponse", review.developerResponse);
  writer.member("developerResponseDate", review.developerResponseDate);
  writer.member("isEdited", review.isEdited);
  writer.member("rating", review.rating);
  writer.member("title", review.title);
  writer.member("userName", review.userName);
  if (!each.version.empty()) writer.member("version", each.version);
  writer.endObject();
}

void writeStorefront(JsonWriter& writer, const StorefrontReviews& storefront) {
  writer.beginObject();
  writer.member("count", storefront.reviews.size());
  writer.member("country", storefront.country);
  if (storefront.feedEmpty) writer.member("feedEmpty", true);
  writer.member("fetched", storefront.fetched);
  writer.list("reviews", storefront.reviews, writeReview);
  writer.endObject();
}

}  // namespace

std::size_t CLIReviewsPayload::count() const {
  std::size_t count = 0;
  for (const StorefrontReviews& storefront : storefronts) count += storefront.reviews.size();
  return count;
}

std::size_t CLIReviewsPayload::fetched() const {
  std::size_t fetched = 0;
  for (const StorefrontReviews& storefront : storefronts) fetched += storefront.fetched;
  return fetched;
}

bool CLIReviewsPayload::feedEmpty() const {
  return std::ranges::any_of(storefronts, &StorefrontReviews::feedEmpty);
}

std::string renderReviewsJson(const CLIReviewsPayload& payload) {
  return jsonObject([&](JsonWriter& writer) {
    writer.member("count", payload.count());
    writer.member("countries", payload.countries);
    if (payload.recentFirst) writer.member("feedEmpty", payload.feedEmpty());
    writer.member("fetched", payload.fetched());
    writer.member("platform", textOf(kPlatformWords, payload.platform));
    if (payload.isGrouped()) {
      writer.list("storefronts", payload.storefronts, writeStorefront);
    } else {
      writer.list("reviews", payload.storefronts.front().reviews, writeReview);
    }
    writer.member("trackId", payload.trackId);
    if (payload.isGrouped()) writer.member("unavailable", payload.unavailable);
  });
}

}  // namespace quillet

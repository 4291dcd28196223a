// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/catalog_reviews_json.h"

namespace quillet {

namespace {

std::optional<int> starsIn(const CatalogBlock& attributes) {
  const auto stars = attributes.get<std::int64_t>("rating");
  if (!stars || *stars < 1 || *stars > 5) return {};
  return static_cast<int>(*stars);
}

AppReview readReview(const CatalogBlock& attributes) {
  const CatalogBlock response = attributes.block("developerResponse");
  AppReview review;
  review.title = attributes.text("title");
  review.body = attributes.text("review");
  review.rating = starsIn(attributes);
  review.userName = attributes.text("userName");
  review.date = attributes.get<Instant>("date");
  review.isEdited = attributes.get<bool>("isEdited").value_or(false);
  review.developerResponse = response.get<std::string>("body");
  review.developerResponseDate = response.get<Instant>("modified");
  return review;
}

}  // namespace

ReviewsPage decodeReviewsPage(const std::string& body) {
  const CatalogAnswer answer(body);
  return {readReviews(answer.resources()), answer.hasNext()};
}

std::vector<AppReview> readReviews(const std::vector<CatalogBlock>& resources) {
  std::vector<AppReview> reviews;
  for (const CatalogBlock& resource : resources) {
    const CatalogBlock attributes = resource.block("attributes");
    if (!attributes.isEmpty()) reviews.push_back(readReview(attributes));
  }
  return reviews;
}

}  // namespace quillet

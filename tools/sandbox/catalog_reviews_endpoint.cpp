// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/catalog_reviews_endpoint.h"

#include "base/numbers.h"
#include "sandbox/catalog_answers.h"
#include "sandbox/catalog_resources.h"
#include "sandbox/review_list.h"

namespace quillet::sandbox {

namespace {

constexpr std::int64_t kLongestPage = 20;
constexpr std::int64_t kUsualPage = 10;
constexpr std::int64_t kFarthest = 1'000'000;

}  // namespace

Answer answerCatalogReviews(const SampleStore& store, const Request& request) {
  if (auto refusal = catalogRefusal(request)) return std::move(*refusal);
  const Storefront storefront = catalogView(request).storefront;
  const std::int64_t limit = parseWhole(request.item("limit")).value_or(kUsualPage);
  const std::int64_t offset = parseWhole(request.item("offset")).value_or(0);
  if (limit < 1 || limit > kLongestPage || offset < 0 || offset > kFarthest)
    return catalogError(400, "Invalid Parameter Value", "The page is too long or nowhere");
  const auto apps = catalogApps(store, {request.captures[1]}, storefront);
  if (apps.empty()) return catalogError(404, "Resource Not Found", "No app has this ID here");
  const ReviewList reviews = reviewsByHelpfulness(
      store, apps.front(), storefront, static_cast<int>(offset), static_cast<int>(limit));
  if (reviews.reviews.empty())
    return catalogError(404, "No Related Resources", "This app has no reviews so far on");
  ResourceList list;
  for (const SampleReview& review : reviews.reviews) writeReview(list.json(), review);
  return list.take(reviews.next);
}

}  // namespace quillet::sandbox

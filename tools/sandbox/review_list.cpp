// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/review_list.h"

#include <algorithm>

namespace quillet::sandbox {

namespace {

// A prime beyond the number of any app's reviews: its multiples visit each of them once.
constexpr int kStride = 7919;

}  // namespace

ReviewList reviewsByHelpfulness(const SampleStore& store, const SampleApp& app,
                                Storefront storefront, int offset, int limit) {
  const int count = reviewCount(app, storefront);
  const int end = std::min(count, offset + limit);
  ReviewList list;
  for (int i = offset; i < end; ++i)
    list.reviews.push_back(review(app, storefront, store.today(), i * kStride % count));
  if (end < count) {
    list.next = fmt::format("/v1/catalog/{}/apps/{}/reviews?offset={}", codeOf(storefront), app.id,
                            offset + limit);
  }
  return list;
}

}  // namespace quillet::sandbox

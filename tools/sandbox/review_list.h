// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "sandbox/records.h"
#include "sandbox/sample_reviews.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// A stretch of an app's reviews.
struct ReviewList {
  std::vector<SampleReview> reviews;
  std::string next;  ///< the catalog's address of what follows; empty: nothing does
};

/// Reviews in the catalog's order, in which helpful ones of any age come first.
[[nodiscard]] ReviewList reviewsByHelpfulness(const SampleStore& store, const SampleApp& app,
                                              Storefront storefront, int offset, int limit);

}  // namespace quillet::sandbox

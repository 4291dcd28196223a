// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>
#include <vector>

#include "store/records/app_review.h"
#include "store/records/catalog_answer.h"

namespace quillet {

/// One page of an app's reviews. Throws DecodingError when `body` is no catalog answer.
[[nodiscard]] ReviewsPage decodeReviewsPage(const std::string& body);

/// The reviews among resources, in order; a resource without attributes is none.
[[nodiscard]] std::vector<AppReview> readReviews(const std::vector<CatalogBlock>& resources);

}  // namespace quillet

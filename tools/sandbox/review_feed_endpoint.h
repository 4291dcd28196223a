// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "sandbox/request.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// GET the newest reviews of an app, 50 a page and ten pages: the storefront, then settings in any
/// order, as "page=1/id=1480068668/sortBy=mostRecent/json".
[[nodiscard]] Answer answerReviewFeed(const SampleStore& store, const Request& request);

}  // namespace quillet::sandbox

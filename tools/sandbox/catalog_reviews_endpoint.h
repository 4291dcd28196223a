// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "sandbox/request.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// GET a page of an app's reviews with "platform", "limit" (at most 20) and "offset".
[[nodiscard]] Answer answerCatalogReviews(const SampleStore& store, const Request& request);

}  // namespace quillet::sandbox

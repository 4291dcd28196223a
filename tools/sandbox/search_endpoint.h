// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "sandbox/request.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// GET /search with "term", "entity", "country" and "limit".
[[nodiscard]] Answer answerSearch(const SampleStore& store, const Request& request);

}  // namespace quillet::sandbox

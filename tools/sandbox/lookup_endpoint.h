// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "sandbox/request.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// GET /lookup with "id" (apps, or one maker with "entity") or "bundleId", "country" and "limit".
[[nodiscard]] Answer answerLookup(const SampleStore& store, const Request& request);

}  // namespace quillet::sandbox

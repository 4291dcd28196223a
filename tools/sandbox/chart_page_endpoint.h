// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "sandbox/request.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// GET the web page with the charts of a shelf and a category: the first fifty apps of each, and
/// the IDs of the rest. Every third category's data stands in lists where the others have objects.
[[nodiscard]] Answer answerChartPage(const SampleStore& store, const Request& request);

}  // namespace quillet::sandbox

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "sandbox/request.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// GET a chart as a feed: the storefront, its name as "topfreemacapps", then settings, as
/// "genre=6007/limit=200/json". The Mac has no feed of its own for what grosses most and is
/// answered with the one for iPhone; it has none at all for what is paid for.
[[nodiscard]] Answer answerChartFeed(const SampleStore& store, const Request& request);

}  // namespace quillet::sandbox

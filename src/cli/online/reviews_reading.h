// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/online/command_call.h"
#include "cli/online/reviews_result.h"

namespace quillet {

/// Reads the reviews that `payload` asks for into it, at most `limit` (1 or more) of each
/// storefront: all storefronts at the same time, each page by page until enough reviews pass or the
/// store has no more. Throws the first one's failure where all of them fail. `payload` outlives the
/// task.
Task<> readReviews(CLIReviewsPayload* payload, std::size_t limit, CommandServices services);

}  // namespace quillet

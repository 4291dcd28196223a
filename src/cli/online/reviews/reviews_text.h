// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "cli/online/reviews/reviews_result.h"
#include "cli/streams.h"
#include "system/locale_formats.h"

namespace quillet {

/// The reviews to read: stars and title, who wrote it when, the text wrapped to a readable width,
/// the developer's reply indented. Several storefronts follow one another under headings. Where
/// there is nothing to read, a sentence that says why.
[[nodiscard]] std::string renderReviewsText(const CLIReviewsPayload& payload,
                                            const LocaleFormats& formats, const TextStyle& style);

}  // namespace quillet

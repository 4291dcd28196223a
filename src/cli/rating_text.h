// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "cli/streams.h"
#include "system/locale_formats.h"

namespace quillet {

/// Where a rating stands: in a table, whose stars are aligned, or in a line of its own, which says
/// what the number in brackets counts.
enum class RatingPlace { table, line };

/// "★★★★½ 4.3 (12,345)", or "none yet" for an app that nobody has rated; a dash where the rating is
/// not known. Without stars where the style has no UTF-8.
[[nodiscard]] std::string ratingText(std::optional<double> rating,
                                     std::optional<std::int64_t> count, RatingPlace place,
                                     const LocaleFormats& formats, const TextStyle& style);

/// What one person gave: "★★★☆☆", or "***--" where the style has no UTF-8. `rating`: 1 to 5.
[[nodiscard]] std::string starsText(int rating, const TextStyle& style);

}  // namespace quillet

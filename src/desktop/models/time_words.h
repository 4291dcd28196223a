// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include "base/dates.h"
#include "system/time_zone.h"

namespace quillet {

/// "just now", "12 min ago", "3 hours ago", "2 days ago", "5 weeks ago", "13 months ago",
/// "4 years ago". What lies ahead is "just now".
[[nodiscard]] QString agoText(Instant then, Instant now);

/// What a day is listed under: "Today", "Yesterday", "This week" (the six days before), a month
/// with its year.
[[nodiscard]] QString dayHeading(Instant then, Instant now, const UtcOffsetAt& zone);

/// As narrow as a column: "09:12" of today and yesterday, "Fri" within the week, "3 Oct". The year
/// stands in the heading.
[[nodiscard]] QString momentText(Instant then, Instant now, const UtcOffsetAt& zone);

/// "8 Dec 2025", without the year where it is this one.
[[nodiscard]] QString dateText(Instant then, Instant now, const UtcOffsetAt& zone);

/// "16:40"
[[nodiscard]] QString clockText(Instant then, const UtcOffsetAt& zone);

}  // namespace quillet

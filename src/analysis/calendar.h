// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include "base/dates.h"
#include "system/time_zone.h"

namespace quillet {

/// The calendar year of an instant in the zone.
[[nodiscard]] std::int64_t calendarYear(Instant instant, const UtcOffsetAt& zone);

/// When the instant's calendar day began in the zone.
[[nodiscard]] Instant startOfDay(Instant instant, const UtcOffsetAt& zone);

/// The same day of the month and time of day, `months` calendar months earlier (later where
/// negative), in the zone's local time; a day that the month lacks becomes its last. More than ten
/// thousand years count as ten thousand, which is before every date that a record can hold.
[[nodiscard]] Instant monthsBefore(Instant instant, std::int64_t months, const UtcOffsetAt& zone);

}  // namespace quillet

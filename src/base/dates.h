// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace quillet {

/// A point in time, UTC. Milliseconds reach far beyond any date that a store or a file can name,
/// where nanoseconds would overflow in the year 2262.
using Instant = std::chrono::sys_time<std::chrono::milliseconds>;

/// Reads an ISO 8601 internet date-time: "2024-03-01T08:00:00Z", or with an offset ("-07:00")
/// instead of "Z". Absent for any other form, fractions of a second and impossible dates included.
[[nodiscard]] std::optional<Instant> parseInternetDate(std::string_view text);

/// "2024-03-01T08:00:00Z", truncated to whole seconds. Instants outside the years 0000 to 9999
/// read as the first or the last second of these.
[[nodiscard]] std::string formatInternetDate(Instant instant);

/// "2024-03-01", the UTC day.
[[nodiscard]] std::string formatDay(Instant instant);

}  // namespace quillet

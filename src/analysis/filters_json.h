// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "analysis/filters.h"

namespace quillet {

/// The JSON that a saved search keeps of its filters.
[[nodiscard]] std::string encodeFilters(const AppFilters& filters);

/// A key that is missing or null leaves its filter off, unknown keys are passed over. Absent when
/// the text is no JSON object, a value is of another type or an unknown case, or a number is one
/// that the command line would not take: a negative maximum price, a minimum rating above 5,
/// negative months, a year outside 0 to 9999.
[[nodiscard]] std::optional<AppFilters> decodeFilters(std::string_view json);

}  // namespace quillet

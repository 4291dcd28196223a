// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillet {

/// A decimal number with "." as its point whatever the locale: digits, at most one point, an
/// optional sign. Infinities, exponents and hexadecimal digits are no numbers.
[[nodiscard]] std::optional<double> parseDecimal(std::string_view text);

/// A whole number: digits with an optional leading sign. Absent on overflow.
[[nodiscard]] std::optional<std::int64_t> parseWhole(std::string_view text);

/// The shortest decimal form that reads back to the same number, with ".0" for whole numbers.
[[nodiscard]] std::string decimalText(double number);

}  // namespace quillet

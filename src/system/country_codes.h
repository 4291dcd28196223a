// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>
#include <vector>

namespace quillet {

/// Whether a code in lower case is a country's: ISO 3166-1's two letters, and those by which the
/// store knows Kosovo.
[[nodiscard]] bool isCountryCode(std::string_view code);

/// All of them, by the alphabet.
[[nodiscard]] std::vector<std::string_view> countryCodes();

}  // namespace quillet

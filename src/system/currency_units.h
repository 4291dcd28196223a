// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace quillet {

/// The smallest amount of a currency (ISO 4217) that prices have: 0.01 dollars, 1 yen. 0.01 where
/// nothing is known of it.
[[nodiscard]] double smallestAmount(const std::string& currency);

}  // namespace quillet

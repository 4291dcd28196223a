// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

namespace quillet {

/// A line of a table for spreadsheets, ended. Texts from outside stand in one line each, and what a
/// spreadsheet would take for a formula is kept from being one.
[[nodiscard]] std::string csvRow(const std::vector<std::string>& cells);

}  // namespace quillet

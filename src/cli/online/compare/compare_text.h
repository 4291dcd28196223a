// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "cli/online/compare/compare_result.h"

namespace quillet {

/// For people: one column per app where all fit beside each other, else one block after the other.
/// Above three and more stands a table with one line each, and what it says is not said again.
[[nodiscard]] std::string renderComparisonText(const CLIComparison& comparison,
                                               const LocaleFormats& formats,
                                               const TextStyle& style);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/online/app/app_summary.h"
#include "cli/text_table.h"

namespace quillet {

// How apps stand in a table, whatever list they are from.

[[nodiscard]] const std::vector<TableColumn>& appColumns();

[[nodiscard]] TableRow appCells(const CLIAppSummary& app, const LocaleFormats& formats,
                                const TextStyle& style);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/models/row_parts.h"
#include "desktop/models/row_source.h"
#include "desktop/models/row_table.h"

namespace quillet {

[[nodiscard]] AppRow viewedAppRow(const CachedSummary& app, const RowContext& context,
                                  const LocaleFormats& formats);

/// Takes into a row what the app cost when it was looked at.
void takePriceThen(AppRow& row, const LateFacts& facts, const LocaleFormats& formats);

/// The apps whose pages were opened, the last one first; ten thousand at most.
[[nodiscard]] RowSource historySource(const RowContext& context);
[[nodiscard]] RowTable historyTable();

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/models/row_parts.h"
#include "desktop/models/row_source.h"
#include "desktop/models/row_table.h"
#include "library/list_rows.h"

namespace quillet {

[[nodiscard]] AppRow watchedAppRow(const WatchedRow& watched, const RowContext& context,
                                   const LocaleFormats& formats);

/// Takes the lowest recorded price and the changed in-app prices into a row.
void takeWatchedFacts(AppRow& row, const LateFacts& facts);

/// The watched apps, the newest first.
[[nodiscard]] RowSource watchlistSource(const RowContext& context);
[[nodiscard]] RowTable watchlistTable();

}  // namespace quillet

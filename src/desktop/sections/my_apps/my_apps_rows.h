// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/models/row_parts.h"
#include "desktop/models/row_source.h"
#include "desktop/models/row_table.h"
#include "library/list_rows.h"

namespace quillet {

[[nodiscard]] AppRow ownedAppRow(const OwnedRow& owned, const RowContext& context,
                                 const LocaleFormats& formats);

/// The apps that the user has, by name.
[[nodiscard]] RowSource myAppsSource(const RowContext& context);
[[nodiscard]] RowTable myAppsTable();

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/models/row_parts.h"
#include "desktop/models/row_source.h"
#include "desktop/models/row_table.h"
#include "desktop/services/scan_folders.h"
#include "library/list_rows.h"

namespace quillet {

[[nodiscard]] AppRow ownedAppRow(const OwnedRow& owned, const RowContext& context,
                                 const LocaleFormats& formats, const FolderScans& scans = {});

/// The apps that the user has, by name. `scans`: when their folders were last read.
[[nodiscard]] RowSource myAppsSource(const RowContext& context, const FolderScans& scans = {});
[[nodiscard]] RowTable myAppsTable();

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "library/library_export.h"

namespace quillet {

/// The lists as one table for spreadsheets: a header line, then one line for each watched app and
/// each app of each collection. Numbers and dates are the same in every locale, and texts stand as
/// they are, those that a spreadsheet would take for a formula too.
[[nodiscard]] std::string libraryExportCsv(const LibraryExport& document);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <vector>

#include "analysis/search_command_line.h"
#include "library/removed_rows.h"

namespace quillet {

/// By name, letter case aside.
[[nodiscard]] std::vector<SavedSearch> savedSearches(SQLite::Database& database);

/// What it asks. A platform, an order or filters that we do not know read as in a search without
/// them.
[[nodiscard]] SearchRequest requestOf(const SavedSearch& search);

RowId addSavedSearch(WriteTransaction& transaction, const SavedSearch& search);

/// Writes the search of that key, but for the times of its making and last use; returns it as it
/// was, to undo that. Absent when it is gone.
std::optional<SavedSearch> editSavedSearch(WriteTransaction& transaction,
                                           const SavedSearch& search);

/// Notes that a search was run.
void markUsed(WriteTransaction& transaction, RowId search, Instant when);

RemovedRows removeSavedSearches(WriteTransaction& transaction, const std::vector<RowId>& keys);

}  // namespace quillet

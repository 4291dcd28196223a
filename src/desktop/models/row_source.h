// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <SQLiteCpp/Database.h>

#include <functional>
#include <set>
#include <variant>
#include <vector>

#include "desktop/models/app_row.h"
#include "library/library_changes.h"

namespace quillet {

struct NoRows {};
struct AllRows {};
/// Whose rows a change of the library touched.
using TouchedRows = std::variant<NoRows, std::set<AppKey>, AllRows>;

/// Where the rows of one list come from. What takes a database runs on the library's thread: it
/// captures values alone.
struct RowSource {
  std::function<std::vector<AppRow>(SQLite::Database&)> all;
  /// The rows of these apps that there are now. Empty where all are read again after each change.
  std::function<std::vector<AppRow>(SQLite::Database&, const std::vector<AppKey>&)> ofApps;
  std::function<TouchedRows(const LibraryChanges&)> touched;
  /// Asked piece by piece once the rows are shown; empty where there is nothing more to know.
  std::function<std::vector<LateFacts>(SQLite::Database&, const std::vector<LateRow>&)> late;
  /// Takes them into their row, on the event-loop thread.
  std::function<void(AppRow&, const LateFacts&)> take;
  /// Takes over from the row as it is shown what leaves it in its place, for lists that would
  /// reorder while somebody goes through them. They do when they are shown or refreshed. Empty for
  /// rows that go where they belong at once.
  std::function<void(AppRow&, const AppRow& shown)> stay = {};
};

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/models/row_parts.h"
#include "desktop/models/row_source.h"
#include "desktop/models/row_table.h"
#include "library/list_rows.h"

namespace quillet {

[[nodiscard]] AppRow entryRow(const EntryRow& entry, const LocaleFormats& formats);

/// The apps of one collection, the newest first.
[[nodiscard]] RowSource collectionSource(const UserLocale& locale, RowId collection);
[[nodiscard]] RowTable collectionTable();

/// All collections, by name. Their rows have no app, and the collection's key.
[[nodiscard]] RowSource overviewSource(const UserLocale& locale);
[[nodiscard]] RowTable overviewTable();

/// What stands above a collection's apps.
struct CollectionHead {
  QString name;
  QString icon;
  QString totals;  ///< "9 apps · $77.95 · 1 unknown"

  friend bool operator==(const CollectionHead&, const CollectionHead&) = default;
};

/// Runs on the library's thread. Absent for a collection that is gone.
[[nodiscard]] std::optional<CollectionHead> readCollectionHead(SQLite::Database& database,
                                                               RowId collection,
                                                               const UserLocale& locale);

}  // namespace quillet

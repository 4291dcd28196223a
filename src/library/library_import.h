// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "library/library_export.h"
#include "library/write_transaction.h"

namespace quillet {

struct ImportCounts {
  std::size_t watchedApps = 0;
  std::size_t collections = 0;
  std::size_t collectedApps = 0;
  std::size_t alreadyPresent = 0;  ///< watched apps and apps of collections

  friend bool operator==(const ImportCounts&, const ImportCounts&) = default;
};

/// "Imported 2 watched apps, 1 collection.", or "Nothing to import." where all is 0.
[[nodiscard]] std::string reportLine(const ImportCounts& counts);

enum class ImportFate { added, alreadyPresent };

struct CollectionPreview {
  ImportFate itself = ImportFate::added;
  std::vector<ImportFate> entries;

  friend bool operator==(const CollectionPreview&, const CollectionPreview&) = default;
};

/// What becomes of each item of a document, in its order.
struct ImportPreview {
  ImportCounts counts;
  std::vector<ImportFate> watchlist;
  std::vector<CollectionPreview> collections;

  friend bool operator==(const ImportPreview&, const ImportPreview&) = default;
};

/// What an import would do. Present is a watched app of the same track ID and storefront, a
/// collection of the same name, and in it an app of the same track ID and storefront; also where
/// an item before it in the document would bring it.
[[nodiscard]] ImportPreview previewImport(SQLite::Database& database,
                                          const LibraryExport& document);

/// What an import did: the counts to report, and the keys of the new rows to undo it by.
struct LibraryImport {
  ImportCounts counts;
  std::vector<AppKey> watchedApps;
  std::vector<RowId> collections;
  std::vector<RowId> entries;
};

/// Adds what the library does not hold yet, as previewed. What the user unticked is taken out of
/// the document before. New collections are created `now`; a watched app costs what it cost when
/// added until its first check.
LibraryImport importLibrary(WriteTransaction& transaction, const LibraryExport& document,
                            Instant now);

}  // namespace quillet

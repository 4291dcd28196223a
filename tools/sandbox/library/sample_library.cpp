// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/library/sample_library.h"

#include "base/errors.h"
#include "library/data_store.h"
#include "sandbox/library/sample_lists.h"

namespace quillet::sandbox {

namespace {

/// The whole life in one transaction: there is never half of it.
void writeLife(WriteTransaction& library, const SampleStore* store, Instant now) {
  writeWatchlist(library, *store, now);
  writeMyApps(library, *store, now);
  writeCollections(library, *store);
  writeSavedSearches(library, *store);
  writeChartRecord(library, *store);
  writeHistory(library, *store, now);
}

}  // namespace

Task<> writeSampleLibrary(const SampleStore* store, std::filesystem::path folder, Instant now) {
  const std::filesystem::path file = folder / "default.store";
  if (std::filesystem::exists(file)) co_return;
  std::error_code failure;
  std::filesystem::create_directories(folder, failure);
  if (failure) throw DatabaseError(folder.string() + ": " + failure.message());
  const auto library = co_await DataStore::open(file);
  co_await library->change(writeLife, store, now);
}

}  // namespace quillet::sandbox

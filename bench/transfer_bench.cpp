// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// What a person waits for between choosing an exported library of 10,000 items and seeing what it
// would add: reading the file, and comparing it with a library that holds half of it and as much
// besides.

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include "library/data_store.h"
#include "library/library_export_json.h"
#include "library/library_import.h"
#include "net/run_task.h"
#include "system/whole_file.h"

namespace quillet {
namespace {

constexpr int kItemsOfList = 5000;
constexpr int kCollections = 20;
constexpr Instant kNow = std::chrono::sys_days{std::chrono::year{2026} / 3 / 1};

/// 10,000 items, half of them watched, half in collections, of apps from `first` on.
LibraryExport documentFrom(std::int64_t first) {
  const std::string note = "The one with the margins, once it is cheaper";
  LibraryExport document{kNow, {}, std::vector<CollectionItem>(kCollections)};
  for (int i = 0; i < kCollections; ++i) document.collections[i].name = std::to_string(i);
  for (std::int64_t id = first; id < first + kItemsOfList; ++id) {
    const std::string number = std::to_string(id);
    document.watchlist.push_back({id, "us", "mac", "Paperfold: Notes & Outlines " + number, 4.99,
                                  1.99, true, false, true, kNow});
    document.collections[(id - first) % kCollections].entries.push_back(
        {id, "us", "mac", "Inkwell Studio " + number, note, kNow});
  }
  return document;
}

/// A library that holds the second half of documentFrom(1), and the file to import into it.
struct Transfer {
  Transfer() {
    runTask(store->change(importLibrary, documentFrom(1 + kItemsOfList / 2), kNow));
    replaceFile(file, libraryExportJson(documentFrom(1)));
  }

  QTemporaryDir folder;
  std::filesystem::path place = folder.path().toStdString();
  std::filesystem::path file = place / "library.json";
  std::unique_ptr<DataStore> store = runTask(DataStore::open(place / "default.store"));
};

void readFileAndPreview(benchmark::State& state) {
  const Transfer transfer;
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        runTask(transfer.store->read(previewImport, readLibraryFile(transfer.file))));
  }
}
BENCHMARK(readFileAndPreview)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace quillet

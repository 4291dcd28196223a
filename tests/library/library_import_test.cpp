// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/library_import.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "library/collections.h"
#include "library/library_export_json.h"
#include "library/library_folder.h"
#include "library/memory_library.h"
#include "library/row_sets.h"
#include "library/watched_apps.h"
#include "system/whole_file.h"

namespace quillet {
namespace {

const Instant kNow = dayAndSecond(20);

// Apps that are added together have one moment; they keep their order all the same.
const Instant kAdded = dayAndSecond(2);

WatchedItem watchedItem(std::int64_t trackId, const std::string& country = "us") {
  return {trackId, country, "mac", "Paperfold", 4.99, 1.99, true, false, true, kAdded};
}

EntryItem entryItem(std::int64_t trackId, const std::string& country = "us") {
  return {trackId, country, "ipad", "Inkwell", "why", kAdded};
}

/// Apps and collections that are there twice, by one or the other part of their identity.
LibraryExport document() {
  return {kNow,
          {watchedItem(1), watchedItem(1, "de"), watchedItem(2), watchedItem(1)},
          {{"Writing", "pencil", {entryItem(1), entryItem(1, "de"), entryItem(1)}},
           {"writing", "folder", {entryItem(1)}},
           {"Writing", "book", {entryItem(4), entryItem(1)}}}};
}

class LibraryImports : public MemoryLibraryTest {
 protected:
  LibraryImport import() { return importLibrary(transaction_, document(), kNow); }
  LibraryExport exported() { return exportLibrary(database_, kNow); }
  void hold(const std::string& collection, const EntryItem& item) {
    const RowId key = addCollection(transaction_, {0, collection, "star", kNow});
    addEntries(transaction_, key, {{.trackId = item.trackId, .country = item.country}});
  }
};

TEST(ImportReport, HoldsItsNonZeroParts) {
  EXPECT_EQ(reportLine({}), "Nothing to import.");
  EXPECT_EQ(reportLine({1, 1, 1, 0}), "Imported 1 watched app, 1 collection, 1 collected app.");
  EXPECT_EQ(reportLine({2, 3, 12345, 6}),
            "Imported 2 watched apps, 3 collections, 12345 collected apps, 6 already present.");
}

TEST_F(LibraryImports, APreviewTellsWhatBecomesOfEachAndChangesNothing) {
  watchApps(transaction_, {watched(2)});
  hold("Writing", entryItem(1, "de"));
  using enum ImportFate;
  const ImportPreview expected{{2, 1, 3, 5},
                               {added, added, alreadyPresent, alreadyPresent},
                               {{alreadyPresent, {added, alreadyPresent, alreadyPresent}},
                                {added, {added}},
                                {alreadyPresent, {added, alreadyPresent}}}};
  const LibraryExport before = exported();
  EXPECT_EQ(previewImport(database_, document()), expected);
  EXPECT_EQ(exported(), before);
  EXPECT_EQ(import().counts, expected.counts) << "what was promised is what is done";
  EXPECT_EQ(collections(database_)[0].symbolName, "star") << "a present collection stays";
}

TEST_F(LibraryImports, AddsWhatIsNotThereAndNothingTwice) {
  watchApps(transaction_, {watched(1)});
  hold("writing", entryItem(9));
  takeChanges();
  import();
  const LibraryChanges touched{.watchedApps = {{1, "de"}, {2, "us"}}, .collections = {1, 2}};
  EXPECT_EQ(takeChanges(), touched);
  EXPECT_EQ(watchedAppsOf(database_, {{2, "us"}}).at(0).currentPrice, 4.99);
  EXPECT_EQ(watchedAppsOf(database_, {{1, "us"}}).at(0).targetPrice, std::nullopt)
      << "what was watched keeps its options";
  const AppCollection created{2, "Writing", "pencil", kNow};
  EXPECT_EQ(rowsOfKeys<AppCollection>(database_, {2}), std::vector{created});

  const LibraryExport after = exported();
  EXPECT_EQ(import().counts, (ImportCounts{0, 0, 0, 10}));
  EXPECT_EQ(exported(), after);
}

TEST_F(LibraryImports, TheLibrarysOwnExportAddsNothingToIt) {
  hold("Same name", entryItem(1));
  hold("Same name", entryItem(2));
  EXPECT_EQ(previewImport(database_, exported()).counts, (ImportCounts{0, 0, 0, 2}));
  const LibraryExport second{kNow, {}, {{"Same name", "star", {{2, "us", "", "", "", {}}}}}};
  EXPECT_EQ(exportCollection(database_, 2, kNow), second);
  EXPECT_FALSE(exportCollection(database_, 99, kNow));
}

TEST_F(LibraryImports, AFileHoldsAllThatAnExportTells) {
  const TemporaryFolder folder;
  const auto file = folder.path() / "shelf.json";
  const LibraryExport shelf{kNow,
                            {watchedItem(2), watchedItem(1, "de")},
                            {{"Writing", "pencil", {entryItem(4), entryItem(1)}}}};
  replaceFile(file, libraryExportJson(shelf));
  importLibrary(transaction_, readLibraryFile(file), kNow);
  EXPECT_EQ(exported(), shelf);
  replaceFile(file, "{\"version\": 1, \"exportedAt\": 3}");
  try {
    static_cast<void>(readLibraryFile(file));
    ADD_FAILURE() << "read what is no library";
  } catch (const FileError& error) {
    EXPECT_EQ(error.what(),
              "'" + file.string() + "' could not be imported: 'exportedAt' is not a text.");
  }
}

}  // namespace
}  // namespace quillet

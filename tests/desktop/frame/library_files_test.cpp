// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// The user's lists as files: previewed, imported, undone; exported; and what is no such file.

#include <sys/stat.h>

#include <QComboBox>
#include <QDropEvent>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>

#include "desktop/dialogs/export_library.h"
#include "desktop/dialogs/import_preview.h"
#include "desktop/dialogs/import_tree.h"
#include "desktop/frame/snackbar.h"
#include "desktop/frame/window_fixture.h"
#include "desktop/look/segmented_control.h"
#include "library/collections.h"
#include "library/library_export_csv.h"
#include "library/library_export_json.h"

namespace quillet {
namespace {

class LibraryFilesTest : public WindowTest {
 protected:
  void SetUp() override {
    change(watchApps, std::vector{watchedMac(1)});
    const RowId writing =
        runTask(store_->change(addCollection, AppCollection{0, "Writing", "pencil", {}}));
    change(addEntries, writing, std::vector{entryMac(1)});
    library_.use(*store_);
    open();
    // Without the services that a window waits for.
    settle();
  }

  static WatchedApp watchedMac(std::int64_t trackId) {
    WatchedApp app = watched(trackId);
    app.platformRaw = "mac";
    return app;
  }
  static CollectionEntry entryMac(std::int64_t trackId) {
    CollectionEntry made = entry(trackId);
    made.platformRaw = "mac";
    return made;
  }

  std::filesystem::path file(const char* name) { return folder_.file().replace_filename(name); }

  /// Two apps more than the library has, one of them in a collection more.
  std::filesystem::path shelf() {
    LibraryExport document = held();
    document.watchlist.push_back(document.watchlist[0]);
    document.watchlist.back().trackId = 2;
    EntryItem other = document.collections[0].entries[0];
    other.trackId = 2;
    document.collections.push_back({"For the shop", "house", {other}});
    replaceFile(file("shelf.json"), libraryExportJson(document));
    return file("shelf.json");
  }

  LibraryExport held() { return runTask(store_->read(exportLibrary, Instant())); }

  void drop(const std::filesystem::path& dropped) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(dropped.string()))});
    QDragEnterEvent enter(QPoint(300, 300), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window_.get(), &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent event(QPointF(300, 300), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window_.get(), &event);
  }

  template <typename Sheet>
  Sheet& sheet() {
    waitFor([this] { return window_->findChild<Sheet*>() != nullptr || !said().empty(); });
    EXPECT_EQ(said(), "");
    handlePendingEvents();
    return part<Sheet>();
  }
  static QPushButton& button(QWidget& of, const char* text) {
    for (QPushButton* each : of.findChildren<QPushButton*>()) {
      if (each->text() == QString::fromUtf8(text)) return *each;
    }
    ADD_FAILURE() << text;
    return *of.findChild<QPushButton*>();
  }
  std::string said() { return part<Snackbar>().text().toStdString(); }
  /// The next thing that is said.
  void waitUntilSaid(const std::string& text) {
    waitFor([&] { return !said().empty(); });
    EXPECT_EQ(said(), text);
    part<Snackbar>().say({});
  }
};

TEST_F(LibraryFilesTest, AFileIsPreviewedImportedAsTickedAndUndoneAsOne) {
  const LibraryExport before = held();
  drop(shelf());
  auto& preview = sheet<ImportPreviewDialog>();
  EXPECT_EQ(held(), before) << "a preview changes nothing";
  button(preview, "Import").click();
  waitUntilSaid("Imported 1 watched app, 1 collection, 1 collected app, 2 already present.");
  LibraryExport after = held();
  EXPECT_EQ(after.watchlist.size(), 2U);
  EXPECT_EQ(after.collections.size(), 2U);
  run("undo");
  waitUntilSaid("Undone: Import.");
  EXPECT_EQ(held(), before);
  run("redo");
  waitUntilSaid("Done again: Import.");
  EXPECT_EQ(held(), after);

  drop(file("shelf.json"));
  button(sheet<ImportPreviewDialog>(), "Import").click();
  waitUntilSaid("Imported 4 already present.");
  EXPECT_EQ(parts_.edits.undoName(), QStringLiteral("Import")) << "the one before";
}

TEST_F(LibraryFilesTest, KeysTickAndReturnImports) {
  drop(shelf());
  auto& preview = sheet<ImportPreviewDialog>();
  auto& tree = *preview.findChild<ImportTree*>();
  EXPECT_TRUE(tree.hasFocus());
  const auto key = [&](Qt::Key each) { QTest::keyClick(&tree, each); };
  key(Qt::Key_Down);
  key(Qt::Key_Down);
  key(Qt::Key_Space);  // the second app
  EXPECT_EQ(preview.chosen().watchlist.size(), 1U);
  // By the pointer the same: its box, and no other part of the row.
  const QRect row = tree.visualRect(tree.currentIndex());
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, row.center());
  EXPECT_EQ(preview.chosen().watchlist.size(), 1U);
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, {row.left() + 62, row.center().y()});
  EXPECT_EQ(preview.chosen().watchlist.size(), 2U);
  key(Qt::Key_Space);
  key(Qt::Key_Return);
  waitUntilSaid("Imported 1 collection, 1 collected app, 2 already present.");
  EXPECT_EQ(held().watchlist.size(), 1U);
}

TEST_F(LibraryFilesTest, ReturnPressesTheButtonThatHasTheFocus) {
  const LibraryExport before = held();
  drop(shelf());
  QPointer preview = &sheet<ImportPreviewDialog>();
  button(*preview, "Cancel").setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  waitFor([&] { return preview.isNull(); });
  settle();
  EXPECT_EQ(held(), before);
}

TEST_F(LibraryFilesTest, WhatIsNoLibraryIsToldAndChangesNothing) {
  std::string deep(100'000, '[');
  const struct {
    const char* bytes;
    const char* said;
  } rows[] = {
      {"", "“shelf.json” is no exported library: it is empty."},
      {"{\"version\": 2, \"exportedAt\": \"\", \"watchlist\": [], \"collections\": []}",
       "“shelf.json” is no exported library: it was written by a newer Quillet (format version 2, "
       "this one knows 1)."},
      {R"({"version": 1, "exportedAt": "2026-11-20T00:00:00Z", "watchlist": [{"trackId": -1}]})",
       "“shelf.json” is no exported library: 'watchlist[0].trackId' is not above 0."},
      {deep.c_str(), "“shelf.json” is no exported library: it is not JSON."},
  };
  const LibraryExport before = held();
  for (const auto& [bytes, text] : rows) {
    replaceFile(file("shelf.json"), bytes);
    drop(file("shelf.json"));
    waitUntilSaid(std::string("Nothing was imported. ") + text);
  }
  ASSERT_EQ(::mkfifo(file("pipe.json").c_str(), 0600), 0);
  drop(file("pipe.json"));
  waitUntilSaid("Nothing was imported. “pipe.json” is no exported library: it is empty.");
  drop(file("missing.json"));
  waitFor([&] { return !said().empty(); });
  EXPECT_TRUE(said().starts_with("Nothing was imported. ")) << said();
  EXPECT_EQ(window_->findChild<ImportPreviewDialog*>(), nullptr);
  EXPECT_EQ(held(), before);
}

TEST_F(LibraryFilesTest, WritesWhatIsChosenAndLeadsToIt) {
  const LibraryExport all = held();
  prompts_.chosen = file("kept.csv");
  prompts_.suggested.clear();
  run("export-csv");
  auto* shown = &sheet<ExportLibraryDialog>();
  waitFor([&] { return button(*shown, "Export…").isEnabled(); });
  button(*shown, "Export…").click();
  waitFor([&] { return !said().empty(); });
  EXPECT_EQ(said(), "Exported 1 watched app and 1 collection with 1 app to “kept.csv”.");
  EXPECT_EQ(prompts_.suggested.at(0).extension(), ".csv");
  EXPECT_EQ(readWholeFile(file("kept.csv"), 10'000), libraryExportCsv(all));
  button(part<Snackbar>(), "Show in Files").click();
  EXPECT_EQ(prompts_.opened, std::vector{file("kept.csv").string()});
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/remove_everything.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "desktop/lists/list_fixtures.h"
#include "desktop/models/recent_searches.h"
#include "library/cached_apps.h"
#include "library/collections.h"
#include "library/library_export_json.h"
#include "library/library_folder.h"
#include "library/library_import.h"
#include "library/recorded_history.h"
#include "library/watched_apps.h"
#include "support/event_loop.h"

namespace quillet {
namespace {

class RemoveEverythingTest : public testing::Test {
 protected:
  RemoveEverythingTest() { world_.library.use(*store_); }

  void fill() {
    std::vector apps{watched(1), watched(2)};
    for (WatchedApp& app : apps) app.platformRaw = "mac";
    runTask(store_->change(watchApps, apps));
    const AppCollection writing{0, "Writing", "pencil", {}};
    const RowId collection = runTask(store_->change(addCollection, writing));
    CollectionEntry kept = entry(1);
    kept.platformRaw = "mac";
    runTask(store_->change(addEntries, collection, std::vector{kept}));
    runTask(store_->change(recordView, cached(3, "Paperfold"), dayAndSecond(2)));
    world_.parts.state.setValue(QString::fromLatin1(kRecentSearchesKey), QJsonArray{1});
  }

  RemoveEverythingDialog& ask() {
    runTask(askToRemoveEverything(world_.world(), &parent_));
    handlePendingEvents();
    return *parent_.findChild<RemoveEverythingDialog*>();
  }
  static void click(QWidget& dialog, const char* text) {
    for (QPushButton* each : dialog.findChildren<QPushButton*>()) {
      if (each->text() == QString::fromUtf8(text)) each->click();
    }
  }
  static std::string said(const QWidget& dialog) {
    QStringList texts;
    for (const QLabel* each : dialog.findChildren<QLabel*>()) texts.append(each->text());
    return texts.join(u'\n').toStdString();
  }
  ListCounts counts() { return runTask(store_->read(listCounts)); }

  LibraryFolder folder_;
  std::unique_ptr<DataStore> store_ = folder_.open();
  TestWorld world_;
  QWidget parent_;
};

TEST_F(RemoveEverythingTest, RemovesNothingOfWhichNobodyKnowsWhatItIs) {
  fill();
  runTask(store_->change([](WriteTransaction& transaction) {
    transaction.database.exec("ALTER TABLE ZSAVEDSEARCH RENAME TO ZLOST");
  }));
  RemoveEverythingDialog& dialog = ask();
  EXPECT_TRUE(said(dialog).starts_with("Remove all library data?\nWhat your lists hold cannot be"));
  click(dialog, "Remove Everything");
  handlePendingEvents();
  EXPECT_EQ(runTask(store_->read(watchedApps)).size(), 2U);
}

TEST_F(RemoveEverythingTest, SaysWhatGoesAndDoesNothingByEnterOrEscape) {
  fill();
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
    QPointer<RemoveEverythingDialog> dialog = &ask();
    EXPECT_TRUE(said(*dialog).starts_with(
        "Remove all library data?\n• 2 watched apps\n• 1 collection with 1 app\n"
        "• 1 app in the history\nRecorded prices, ranks and charts stay"))
        << said(*dialog);
    QTest::keyClick(QApplication::focusWidget(), key);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(dialog.isNull());
    EXPECT_EQ(counts().watched, 2);
  }
}

TEST_F(RemoveEverythingTest, EmptiesAllListsForGood) {
  fill();
  EditHistory& edits = world_.parts.edits;
  edits.perform({u"Watch"_s, u"Watching."_s, u""_s, watching({watched(3)})});
  waitFor([&] { return edits.undoName() == u"Watch"_s; });
  click(ask(), "Remove Everything");
  waitFor([&] { return edits.undoName().isEmpty(); });
  EXPECT_EQ(counts(), ListCounts());
  EXPECT_EQ(runTask(store_->read(cachedAppsOf, std::vector{AppKey{3, "us"}})).size(), 1U)
      << "what was recorded stays";
  EXPECT_TRUE(
      world_.parts.state.value(QString::fromLatin1(kRecentSearchesKey)).toArray().isEmpty());
}

TEST_F(RemoveEverythingTest, ExportsFirstWhatCanBeImportedAgain) {
  fill();
  const auto before = runTask(store_->read(exportLibrary, Instant()));
  world_.parts.prompts.chosen = folder_.file().replace_filename("kept.json");
  RemoveEverythingDialog& dialog = ask();
  click(dialog, "Export First…");
  waitFor([&] { return said(dialog).find("xported") != std::string::npos; });
  EXPECT_TRUE(said(dialog).ends_with("Exported to kept.json.")) << said(dialog);
  LibraryExport read = readLibraryFile(world_.parts.prompts.chosen);
  read.exportedAt = {};
  EXPECT_EQ(read, before);

  world_.parts.prompts.chosen = "/nowhere/kept.json";
  click(dialog, "Export First…");
  waitFor([&] { return said(dialog).find("Nothing was exported. ") != std::string::npos; });
  EXPECT_TRUE(dialog.isVisible());
}

}  // namespace
}  // namespace quillet

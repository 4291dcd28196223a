// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// What the user does with collections and My Apps in the window, against the library below it.

#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include "desktop/frame/collection_dialog.h"
#include "desktop/frame/owned_details_dialog.h"
#include "desktop/frame/sidebar_view.h"
#include "desktop/frame/snackbar.h"
#include "desktop/frame/window_fixture.h"
#include "desktop/models/app_drag.h"
#include "desktop/models/app_listing.h"
#include "desktop/sections/collections/collections_section.h"
#include "desktop/sections/watchlist/watchlist_section.h"
#include "desktop/support/scripted_store.h"
#include "library/alerts.h"
#include "library/cached_apps.h"
#include "library/collections.h"
#include "library/known_apps.h"

namespace quillet {
namespace {

class CollectingTest : public WindowTest {
 protected:
  void SetUp() override {
    change(watchApps, std::vector{watched(1), watched(2)});
    writing_ = runTask(store_->change(addCollection, AppCollection{0, "Writing", "quill", {}}));
    later_ = runTask(store_->change(addCollection, AppCollection{0, "Später", "clock", {}}));
    change(addEntries, writing_, std::vector{entry(1, "why")});
    library_.use(*store_);
    open();
    settle();
  }

  SectionMakers makers() override {
    SectionMakers made = WindowTest::makers();
    made[SectionId::collections] = makeCollections;
    return made;
  }

  /// "Writing: 1 why; Später: ".
  std::string contents() {
    return runTask(store_->read([](SQLite::Database& database) {
      std::string text;
      for (const AppCollection& each : collections(database)) {
        text += each.name + "/" + each.symbolName + ":";
        for (const CollectionEntry& entry : entriesOf(database, each.id))
          text += " " + std::to_string(entry.trackId) + entry.note;
        text += "; ";
      }
      return text;
    }));
  }

  void show(RowId collection) {
    SidebarView& view = part<SidebarView>();
    view.setCurrentIndex(indexOf({SectionId::collections, collection}));
    settle();
  }

  QModelIndex indexOf(const SidebarTarget& target) {
    return qobject_cast<SidebarModel*>(part<SidebarView>().model())->find(target);
  }

  /// Whether it was taken.
  bool drop(const SidebarTarget& on, const QMimeData& data, Qt::KeyboardModifiers with = {}) {
    SidebarView& view = part<SidebarView>();
    const QPoint at = view.visualRect(indexOf(on)).center();
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(at, actions, &data, Qt::LeftButton, with);
    QCoreApplication::sendEvent(view.viewport(), &enter);
    QDragMoveEvent move(at, actions, &data, Qt::LeftButton, with);
    QCoreApplication::sendEvent(view.viewport(), &move);
    if (!enter.isAccepted() || !move.isAccepted()) return false;
    QDropEvent event(at, actions, &data, Qt::LeftButton, with);
    QCoreApplication::sendEvent(view.viewport(), &event);
    settle();
    return true;
  }

  void type(QWidget& into, const QString& text) {
    QTest::keyClicks(&into, text);
    handlePendingEvents();
  }

  /// Counts are read in a while.
  void expectTitle(const char* title) {
    const QString expected = QString::fromUtf8(title) + QStringLiteral(" — Quillet");
    waitFor([&] { return window_->windowTitle() == expected; });
  }

  RowId writing_ = 0;
  RowId later_ = 0;
};

TEST_F(CollectingTest, AppsThatAreDroppedAreAddedOrMovedWithShift) {
  const auto both = draggedApps({{{1, "us"}, QStringLiteral("One")}, {{2, "us"}, QString()}});
  EXPECT_TRUE(drop({SectionId::collections, later_}, *both));
  EXPECT_EQ(contents(), "Später/clock: 1 2; Writing/quill: 1why; ");
  run("undo");
  settle();
  EXPECT_EQ(contents(), "Später/clock:; Writing/quill: 1why; ");

  show(writing_);
  EXPECT_FALSE(drop({SectionId::collections, writing_}, *both)) << "where they come from";
  EXPECT_FALSE(drop({SectionId::alerts}, *both));
  EXPECT_TRUE(drop({SectionId::collections, later_}, *both, Qt::ShiftModifier));
  EXPECT_EQ(contents(), "Später/clock: 1why; Writing/quill:; ");

  EXPECT_TRUE(drop({SectionId::myApps}, *both));
  EXPECT_EQ(runTask(store_->read(ownedTrackIds)), (TrackIds{1, 2}));

  QMimeData junk;
  junk.setData(QStringLiteral("application/x-quillet-app+json"), R"([{"trackId":-1},7,{"x":[]}])");
  EXPECT_FALSE(drop({SectionId::myApps}, junk));
}

TEST_F(CollectingTest, AppsThatAreDroppedOnTheWatchlistAreWatchedAsTheSettingsSay) {
  settings_.set("watchFree", "false");
  change(recordView, cached(5, "Kept"), dayAndSecond(1));
  show(writing_);
  const auto drag = draggedApps({{{1, "us"}, QString()}, {{5, "us"}, QString()}});
  EXPECT_TRUE(drop({SectionId::watchlist}, *drag));
  const auto watched = [&] { return runTask(store_->read(watchedApps)); };
  ASSERT_EQ(watched().size(), 3U);
  EXPECT_EQ(watched().front().name, "Kept");
  EXPECT_TRUE(watched().front().alertOnAnyDrop);
  EXPECT_FALSE(watched().front().alertOnFree);
  run("undo");
  settle();
  EXPECT_EQ(watched().size(), 2U);
  EXPECT_TRUE(drop({SectionId::watchlist}, *draggedApps({{{1, "us"}, QStringLiteral("One")}})));
  EXPECT_EQ(part<Snackbar>().text().toStdString(), "You watch “One” already.");
}

// An app of another list by its name, an app of the store by its link, and one that it lacks.
TEST_F(CollectingTest, AppsComeToMyAppsByHand) {
  ScriptedStore store(http_, clock_);
  StopSource stop;
  parts_.store.use(store.services(), stop.token());
  change(recordView, cached(5, "Kept"), dayAndSecond(1));
  http_.answer("https://store.example/lookup?id=77&country=de", 200,
               ScriptedStore::found(R"({"trackId":77,"trackName":"Fern","price":2.5,)"
                                    R"("currency":"EUR","kind":"mac-software"})"));
  http_.answer(ScriptedStore::lookupUrl(78), 200, ScriptedStore::found(""));
  const auto add = [&](const char* typed) {
    run("add-by-hand");
    settle();
    QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(typed));
    press(Qt::Key_Return);
    settle();
  };
  add("kep");
  add("https://apps.apple.com/de/app/fern/id77");
  add("78");
  EXPECT_EQ(part<Snackbar>().text().toStdString(), "The us storefront has no such app.");
  std::vector<OwnedApp> apps = runTask(store_->read(ownedApps));
  std::ranges::sort(apps, {}, &OwnedApp::trackId);
  ASSERT_EQ(apps.size(), 2U);
  EXPECT_EQ(apps[0].name, "Kept");
  EXPECT_EQ(apps[1].name + " " + apps[1].country + " " + apps[1].platformRaw, "Fern de mac");
  EXPECT_EQ(apps[1].priceWhenAdded, 2.5);
  run("undo");
  settle();
  EXPECT_EQ(runTask(store_->read(ownedTrackIds)), TrackIds{5});
}

TEST_F(CollectingTest, ANameOfAnotherLeadsThere) {
  run("new-collection");
  auto& dialog = part<CollectionDialog>();
  auto& field = *dialog.findChild<QLineEdit*>();
  auto* action = dialog.findChildren<QPushButton*>().back();
  type(field, QStringLiteral("SPÄTER"));
  EXPECT_EQ(action->text().toStdString(), "Open It");
  action->click();
  settle();
  EXPECT_EQ(window_->windowTitle().toStdString(), "Später — Quillet");
  EXPECT_EQ(contents(), "Später/clock:; Writing/quill: 1why; ");
}

TEST_F(CollectingTest, ANewOneIsShownAndGoesByUndo) {
  run("new-collection");
  auto& dialog = part<CollectionDialog>();
  type(*dialog.findChild<QLineEdit*>(), QStringLiteral("For  the new Mac "));
  dialog.findChildren<QRadioButton*>()[11]->setChecked(true);
  dialog.accept();
  expectTitle("For the new Mac");
  EXPECT_TRUE(contents().starts_with("For the new Mac/laptopcomputer:; "));
  run("undo");
  settle();
  EXPECT_EQ(contents(), "Später/clock:; Writing/quill: 1why; ");
  expectTitle("Collections");
}

TEST_F(CollectingTest, RenamingLeavesASymbolThatIsNotKnownHere) {
  show(writing_);
  run("rename");
  auto& dialog = part<CollectionDialog>();
  EXPECT_TRUE(dialog.findChildren<QRadioButton*>()[0]->isChecked());
  dialog.findChild<QLineEdit*>()->setText(QStringLiteral("Words"));
  dialog.accept();
  settle();
  EXPECT_EQ(contents(), "Später/clock:; Words/quill: 1why; ");
}

TEST_F(CollectingTest, ANoteIsWrittenWhereItStands) {
  const struct {
    const char* typed;
    Qt::Key key;
    const char* note;
  } rows[] = {{" not, then", Qt::Key_Escape, "why"},
              {" not?\n", Qt::Key_Return, "why not?"},
              {"", Qt::Key_Return, "why not?"}};
  show(writing_);
  for (const auto& [typed, key, note] : rows) {
    run("edit-note");
    settle();
    auto* field = qobject_cast<QPlainTextEdit*>(QApplication::focusWidget());
    ASSERT_NE(field, nullptr);
    field->insertPlainText(QString::fromUtf8(typed));
    press(key);
    settle();
    EXPECT_EQ(contents(), std::string("Später/clock:; Writing/quill: 1") + note + "; ");
    EXPECT_EQ(window_->findChild<QPlainTextEdit*>(), nullptr);
  }
}

TEST_F(CollectingTest, WhatIsKnownOfAnAppIsEnoughToListIt) {
  change(recordView, cached(5, "Kept"), dayAndSecond(1));
  change(addAlerts, std::vector{AlertRecord{
                        .trackId = 6, .country = "us", .platformRaw = "ipad", .appName = "Told"}});
  change(addOwnedApps, std::vector{owned(7, "Owned")});
  ITunesApp found;
  found.trackId = 8;
  found.trackName = "Found";
  found.price = 2.5;
  parts_.records.keep({8, "us"}, {found, Platform::mac, {}});
  std::vector<NamedKey> apps;
  for (const int id : {5, 6, 7, 8, 9}) apps.push_back({{id, "us"}, QString()});
  parts_.edits.perform({{}, {}, {}, collecting(later_, appsToList(apps, parts_.world()))});
  parts_.edits.perform({{}, {}, {}, owningByHand(appsToList(apps, parts_.world()))});
  settle();
  std::string text;
  for (const CollectionEntry& each : runTask(store_->read(entriesOf, later_)))
    text += each.name + ' ' + each.platformRaw + ", ";
  EXPECT_EQ(text, "Kept iphone, Told ipad, Owned iphone, Found mac, ");
  for (const OwnedApp& each : runTask(store_->read(ownedApps))) {
    if (each.trackId == 8) EXPECT_EQ(each.priceWhenAdded, 2.5);
  }
  EXPECT_EQ(runTask(store_->read(ownedTrackIds)), (TrackIds{5, 6, 7, 8}));
}

TEST(OwnedDetailsDialog, ReadsAPriceAndALinkAndRefusesOthers) {
  OwnedApp app = owned(1);
  app.priceWhenAdded = 4.5;
  app.currency = "EUR";
  app.skippedVersion = "2";
  OwnedDetailsDialog dialog(app, "USD", nullptr);
  dialog.setAttribute(Qt::WA_DeleteOnClose, false);
  const QList<QLineEdit*> fields = dialog.findChildren<QLineEdit*>();
  const auto isSaved = [&](const char* price, const char* link) {
    fields[0]->setText(QString::fromUtf8(price));
    fields[1]->setText(QString::fromUtf8(link));
    return dialog.findChildren<QPushButton*>().back()->isEnabled();
  };
  EXPECT_FALSE(isSaved("-1", ""));
  EXPECT_FALSE(isSaved("much", ""));
  EXPECT_FALSE(isSaved("", "javascript:1"));
  EXPECT_TRUE(isSaved("", ""));
  EXPECT_EQ(dialog.details(), (OwnedDetails{{}, "EUR", {}, "2"}));
  EXPECT_TRUE(isSaved("3,99", "https://apps.apple.com/us/app/id1"));
  EXPECT_EQ(dialog.details(),
            (OwnedDetails{3.99, "EUR", "https://apps.apple.com/us/app/id1", "2"}));
}

}  // namespace
}  // namespace quillet

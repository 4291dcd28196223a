// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/edit_history.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <stdexcept>

#include "base/errors.h"
#include "desktop/services/library_gateway.h"
#include "library/library_folder.h"
#include "support/event_loop.h"

namespace quillet {
namespace {

class EditHistoryTest : public testing::Test {
 protected:
  EditHistoryTest() {
    gateway_.use(*store_);
    for (const auto signal : {&EditHistory::performed, &EditHistory::turned, &EditHistory::failed})
      QObject::connect(&history_, signal, &history_, [this](const QString& text) { said_ = text; });
  }

  /// Waits until all that was asked for is done, and tells what was said last.
  std::string said() {
    waitFor([&] { return !said_.isEmpty(); });
    return std::exchange(said_, {}).toStdString();
  }

  std::size_t watchedCount() { return runTask(gateway_.read(watchedApps)).size(); }

  static LibraryEdit watch(std::int64_t app) {
    const QString name = QString::number(app);
    return {QStringLiteral("Watch ") + name, QStringLiteral("Watching ") + name,
            QStringLiteral("Not watched: ") + name, watching({watched(app)})};
  }

  template <typename Error = DatabaseError>
  static LibraryEdit failing() {
    return {QStringLiteral("Fail"),
            {},
            QStringLiteral("Nothing was done."),
            {[](WriteTransaction& transaction) -> EditStep {
              watchApps(transaction, {watched(9)});
              throw Error("The disk is full.");
            }}};
  }

  LibraryFolder folder_;
  std::unique_ptr<DataStore> store_ = folder_.open();
  LibraryGateway gateway_;
  EditHistory history_{gateway_};
  QString said_;
};

TEST_F(EditHistoryTest, UndoesTheNewestFirstAndDoesItAgainUntilSomethingElseIsDone) {
  history_.perform(watch(1));
  EXPECT_EQ(said(), "Watching 1");
  history_.perform(watch(2));
  EXPECT_EQ(said(), "Watching 2");
  EXPECT_EQ(history_.undoName().toStdString(), "Watch 2");
  history_.undo();
  EXPECT_EQ(said(), "Undone: Watch 2.");
  EXPECT_EQ(watchedCount(), 1U);
  EXPECT_EQ(history_.undoName().toStdString(), "Watch 1");
  EXPECT_EQ(history_.redoName().toStdString(), "Watch 2");
  history_.redo();
  EXPECT_EQ(said(), "Done again: Watch 2.");
  EXPECT_EQ(watchedCount(), 2U);
  history_.undo();
  said();
  history_.perform(watch(3));
  said();
  EXPECT_EQ(history_.redoName().toStdString(), "");
}

TEST_F(EditHistoryTest, OneAtATimeInTheOrderOfAsking) {
  const QSignalSpy changes(&history_, &EditHistory::changed);
  history_.perform(watch(1));
  history_.undo();  // of the one that is under way
  history_.redo();
  history_.perform(watch(1));  // changes nothing, so that it cannot be undone
  history_.undo();
  history_.undo();
  waitFor([&] { return changes.count() == 5; });
  EXPECT_EQ(watchedCount(), 0U);
  EXPECT_EQ(history_.redoName().toStdString(), "Watch 1");
  EXPECT_EQ(history_.undoName().toStdString(), "");
}

TEST_F(EditHistoryTest, AFailureSaysWhyAndLeavesWhatCanBeUndone) {
  history_.perform(watch(1));
  said();
  for (LibraryEdit (*edit)() : {&failing<DatabaseError>, &failing<std::runtime_error>}) {
    history_.perform(edit());
    EXPECT_EQ(said(), "Nothing was done. The disk is full.");
  }
  EXPECT_EQ(watchedCount(), 1U);
  EXPECT_EQ(history_.undoName().toStdString(), "Watch 1");
}

TEST_F(EditHistoryTest, WhatIsDoneForGoodCannotBeUndoneNorAnythingBefore) {
  history_.perform(watch(1));
  said();
  history_.perform(watch(2));
  said();
  history_.undo();
  said();
  LibraryEdit failing = EditHistoryTest::failing();
  history_.performForGood(std::move(failing));
  EXPECT_EQ(said(), "Nothing was done. The disk is full.");
  EXPECT_EQ(history_.undoName().toStdString(), "Watch 1") << "what failed has taken nothing";
  history_.performForGood(watch(3));
  history_.undo();  // asked for before it was done
  EXPECT_EQ(said(), "Watching 3");
  EXPECT_EQ(history_.undoName().toStdString() + history_.redoName().toStdString(), "");
  EXPECT_EQ(watchedCount(), 2U);
}

TEST_F(EditHistoryTest, WhatGoesWithAnEditTurnsWithIt) {
  int turns = 0;
  LibraryEdit edit = watch(1);
  edit.step = together({edit.step, changingNothing()});
  edit.beside = [&turns] { ++turns; };
  history_.perform(edit);
  said();
  history_.undo();
  said();
  EXPECT_EQ(turns, 2);
  LibraryEdit failing = EditHistoryTest::failing();
  failing.beside = edit.beside;
  history_.perform(std::move(failing));
  said();
  EXPECT_EQ(turns, 2) << "nothing was changed";
}

TEST_F(EditHistoryTest, MayGoWhileAnEditIsUnderWay) {
  auto history = std::make_unique<EditHistory>(gateway_);
  history->perform(watch(1));
  history->perform(watch(2));
  history.reset();
  EXPECT_EQ(watchedCount(), 1U);
}

}  // namespace
}  // namespace quillet

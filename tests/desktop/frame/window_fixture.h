// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QScrollBar>
#include <QTest>
#include <algorithm>

#include "desktop/frame/action_row.h"
#include "desktop/frame/fake_section.h"
#include "desktop/frame/main_window.h"
#include "desktop/support/scripted_store.h"
#include "desktop/support/view_parts.h"
#include "library/library_folder.h"
#include "net/run_task.h"
#include "support/event_loop.h"
#include "system/whole_file.h"

namespace quillet {

/// A window with sections that hold forty apps each, over an empty library that is not open yet.
class WindowTest : public LibraryServiceTest {
 protected:
  /// Whoever still waits for the clock, the store or the library is answered before they go, or
  /// would wait for ever.
  void TearDown() override {
    window_.reset();
    while (clock_.advanceToNextDeadline()) {
    }
    if (!parts_.store.isOpen()) refuseQuestions();
    if (store_ == nullptr) return;
    if (!library_.isOpen()) library_.use(*store_);
    for (int i = 0; i < 2; ++i) runTask(store_->read([](SQLite::Database&) { return 0; }));
    handlePendingEvents();
  }

  void refuseQuestions() {
    ScriptedStore store(http_, clock_);
    StopSource stopped;
    stopped.requestStop();
    parts_.store.use(store.services(), stopped.token());
    runTask(parts_.store.ended());
    handlePendingEvents();
  }

  [[nodiscard]] virtual SectionMakers makers() {
    SectionMakers makers;
    for (const SectionFace& face : kSectionFaces) {
      makers[face.id] = [this, id = face.id](const ViewWorld&) {
        auto section = std::make_unique<FakeSection>(id, kApps);
        made_[id] = section.get();
        return section;
      };
    }
    return makers;
  }

  /// In place of the one before, which is gone first as at the end of a run. At first in the
  /// watchlist.
  MainWindow& open(std::optional<QSize> size = QSize(1280, 800)) {
    close();
    const std::filesystem::path state = folder_.file().replace_filename("windows.json");
    if (isSettled_ && !std::filesystem::exists(state))
      replaceFile(state, R"({"place":{"section":"watchlist"}})");
    state_ = std::make_unique<StateFile>(state);
    window_ = std::make_unique<MainWindow>(WindowWorld{parts_.world(*state_), makers()});
    window_->begin();
    if (size) window_->resize(*size);
    window_->show();
    handlePendingEvents();
    return *window_;
  }

  void close() {
    window_.reset();
    state_.reset();
  }

  /// Nothing is remembered of earlier windows.
  void forget() {
    close();
    std::filesystem::remove(folder_.file().replace_filename("windows.json"));
  }

  template <typename Widget>
  Widget& part() {
    return *window_->findChild<Widget*>();
  }

  FakeSection& section(SectionId id) { return *made_.at(id); }
  FakeSection& watchlist() { return section(SectionId::watchlist); }

  QAction& action(const char* id) {
    auto* found = window_->findChild<QAction*>(QString::fromLatin1(id));
    EXPECT_NE(found, nullptr) << id;
    return *found;
  }
  void run(const char* id) {
    EXPECT_TRUE(action(id).isEnabled()) << id;
    action(id).trigger();
    handlePendingEvents();
  }

  void press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
    // A window that lost a dialog has the focus again before the platform says so.
    if (QApplication::focusWidget() == nullptr) window_->activateWindow();
    handlePendingEvents();
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), key, with);
    handlePendingEvents();
  }

  /// What was told in the section that is seen: "watchlist App 003 @64 'text'".
  std::string sight() {
    for (const auto& [id, made] : made_) {
      if (!made || !made->list().isVisible()) continue;
      const Place place = made->place();
      const int row = place.chosen ? made->rows()->find(*place.chosen) : -1;
      return std::string(textOf(kSectionWords, id)) + ' ' +
             (row < 0 ? "-" : made->rows()->at(row).name.toStdString()) + " @" +
             std::to_string(place.anchor.offset) + " '" + place.rows.text.toStdString() + '\'';
    }
    return "page";
  }

  /// Until what was asked of the library has come.
  void settle() {
    for (int i = 0; i < 20; ++i) {
      runTask(store_->read([](SQLite::Database&) { return 0; }));
      handlePendingEvents();
    }
  }

  void change(auto operation, auto... arguments) {
    runTask(store_->change(std::move(operation), std::move(arguments)...));
  }

  static constexpr int kApps = 40;
  bool isSettled_ = true;  ///< somebody was in the watchlist before
  ViewParts parts_{http_, clock_, settings_};
  LibraryGateway& library_ = parts_.library;
  KeptPrompts& prompts_ = parts_.prompts;
  std::map<SectionId, QPointer<FakeSection>> made_;
  std::unique_ptr<StateFile> state_;
  std::unique_ptr<MainWindow> window_;
};

inline RowKey rowOf(std::int64_t trackId) { return {{trackId, "us"}, 0}; }

}  // namespace quillet

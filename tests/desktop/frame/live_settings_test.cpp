// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// What the user sets holds in a window that is open.

#include <gtest/gtest.h>

#include <QListView>

#include "desktop/dialogs/welcome_window.h"
#include "desktop/frame/snackbar.h"
#include "desktop/frame/window_fixture.h"
#include "desktop/look/quillet_style.h"
#include "desktop/models/row_filter_model.h"
#include "desktop/sections/my_apps/my_apps_section.h"
#include "desktop/sections/watchlist/watchlist_section.h"
#include "library/cached_apps.h"
#include "library/owned_apps.h"
#include "library/watched_apps.h"
#include "system/settings_keys.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

class LiveSettingsTest : public WindowTest {
 protected:
  void SetUp() override {
    clock_.setNow(kNow);
    CachedApp app = cached(1, "Paperfold");
    app.sellerName = "Studio Halvorsen";
    app.formattedPrice = "$4.99";
    app.currentVersionReleaseDate = kNow - 24h * 30 * 8;
    change(recordView, app, dayAndSecond(3));
    change(watchApps, std::vector{watched(1)});
    change(addOwnedApps, std::vector{owned(1)});
    library_.use(*store_);
  }
  void TearDown() override {
    set(kTextPercent, "100");
    style().look().motion = Motion::reduced;
    WindowTest::TearDown();
  }

  SectionMakers makers() override {
    return {{SectionId::watchlist, makeWatchlist}, {SectionId::myApps, makeMyApps}};
  }
  static QuilletStyle& style() { return *qobject_cast<QuilletStyle*>(QApplication::style()); }

  void set(const auto& setting, const char* value) {
    parts_.settings.write({{std::string(setting.key), value}});
    settle();
  }
  /// Until all that was asked of the library has come.
  void settle() {
    for (int i = 0; i < 20; ++i) {
      runTask(store_->read([](SQLite::Database&) { return 0; }));
      handlePendingEvents();
    }
  }
  QImage sight() {
    settle();
    return window_->grab().toImage();
  }

  static constexpr Instant kNow{std::chrono::sys_days{std::chrono::year{2026} / 11 / 20}};
};

TEST_F(LiveSettingsTest, TextsOfAnOpenWindowAreAsLargeAsThoseOfAFreshOne) {
  for (const char* section : {"go-watchlist", "go-my-apps"}) {
    open();
    run(section);
    open();  // there, with no way back
    const QImage before = sight();
    for (const char* percent : {"200", "85"}) {
      set(kTextPercent, percent);
      const QImage live = sight();
      open();
      const QImage fresh = sight();
      EXPECT_EQ(live, fresh) << section << " at " << percent;
      EXPECT_NE(live, before);
    }
    set(kTextPercent, "100");
    EXPECT_EQ(sight(), before);
  }
}

TEST_F(LiveSettingsTest, ActionsKnowTheSizeThatTheSettingsHave) {
  open();
  for (const auto& [percent, actions] : std::initializer_list<std::pair<const char*, const char*>>{
           {"200", "smaller-text normal-text"},
           {"85", "larger-text normal-text"},
           {"100", "larger-text smaller-text"}}) {
    set(kTextPercent, percent);
    for (const char* id : {"larger-text", "smaller-text", "normal-text"})
      EXPECT_EQ(action(id).isEnabled(), QByteArray(actions).contains(id)) << id << ' ' << percent;
  }
  run("larger-text");
  EXPECT_EQ(settings_.text(kTextPercent.key), "115");
  EXPECT_DOUBLE_EQ(style().look().text.scale(), 1.15);
}

TEST_F(LiveSettingsTest, VerdictsFollowTheirThresholds) {
  open();
  run("go-my-apps");
  settle();
  const auto detail = [&] {
    for (const QListView* list : window_->findChildren<QListView*>()) {
      const auto* rows = qobject_cast<const RowFilterModel*>(list->model());
      if (list->isVisible() && rows != nullptr) return rows->at(0).detail.toStdString();
    }
    return std::string("no rows");
  };
  EXPECT_EQ(detail(), "Last updated 7 months ago");
  set(kSlowingAfterMonths, "9");
  EXPECT_EQ(detail(), "");
}

TEST_F(LiveSettingsTest, SomebodyNewIsGreetedOnce) {
  isSettled_ = false;
  const auto greeted = [&] {
    open();
    window_->greet();
    window_->greet();
    return window_->findChildren<WelcomeWindow*>().size();
  };
  forget();
  EXPECT_EQ(greeted(), 1);
  EXPECT_EQ(greeted(), 0) << "in the next run";
  forget();
  settings_.set("storefrontCountry", "de");
  EXPECT_EQ(greeted(), 0) << "who has set up everything already";
  run("welcome");
  EXPECT_EQ(window_->findChildren<WelcomeWindow*>().size(), 1) << "when asked for";
}

TEST_F(LiveSettingsTest, MessagesRiseOnlyWhereMotionIsWanted) {
  open();
  const auto say = [&] {
    part<Snackbar>().hide();
    part<Snackbar>().say(QStringLiteral("Copied."));
    return part<Snackbar>().y();
  };
  const int rest = say();
  style().look().motion = Motion::full;
  EXPECT_GT(say(), rest);
  waitFor([&] { return part<Snackbar>().y() == rest; });
}

}  // namespace
}  // namespace quillet

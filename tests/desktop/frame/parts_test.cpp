// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Parts of the window by themselves.

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QLocale>

#include "desktop/frame/check_state.h"
#include "desktop/frame/sidebar_model.h"
#include "desktop/frame/window_geometry.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

TEST(WindowGeometry, FitsTheScreensThatThereAre) {
  const QRect large(0, 0, 2560, 1440);
  const QRect laptop(0, 0, 1366, 768);
  const QRect right(2560, 0, 1920, 1080);
  struct Row {
    const char* situation;
    QRect kept;
    std::vector<QRect> screens;
    QRect expected;
  };
  const Row rows[] = {
      {"at first", {}, {large}, {640, 320, 1280, 800}},
      {"at first, a small screen", {}, {laptop}, {68, 38, 1229, 691}},
      {"as it was", {100, 50, 900, 600}, {large}, {100, 50, 900, 600}},
      {"as it was, on the other screen",
       {2700, 50, 900, 600},
       {large, right},
       {2700, 50, 900, 600}},
      {"its screen is gone", {2700, 50, 900, 600}, {large}, {1660, 50, 900, 600}},
      {"partly beyond an edge", {2400, 50, 900, 600}, {large}, {2400, 50, 900, 600}},
      {"hardly seen", {2500, 50, 900, 600}, {large}, {1660, 50, 900, 600}},
      {"above the screen", {100, -30, 900, 600}, {large}, {100, 0, 900, 600}},
      {"larger than the screen", {0, 0, 1600, 900}, {laptop}, laptop},
      {"too small to use", {10, 10, 5, 5}, {large}, {10, 10, 760, 520}},
      {"a size that is none", {10, 10, -5, 5}, {laptop}, {68, 38, 1229, 691}},
  };
  for (const Row& row : rows) {
    const QRect found = windowGeometry(row.kept, row.screens);
    EXPECT_TRUE(found == row.expected) << row.situation << ": " << found.x() << ' ' << found.y()
                                       << ' ' << found.width() << ' ' << found.height();
  }
}

TEST(CheckWords, SayHowPricesStand) {
  QLocale::setDefault(QLocale::c());
  const Instant now = std::chrono::sys_days{std::chrono::year{2026} / 11 / 22} + 12h;
  struct Row {
    CheckState state;
    const char* line;
    const char* second;
  };
  CheckState quiet;
  quiet.last = now - 12min;
  quiet.next = now + 280min;
  CheckState throttled = quiet;
  throttled.isThrottled = true;
  throttled.error = QStringLiteral("HTTP 429");
  CheckState offline = quiet;
  offline.isOffline = true;
  offline.error = QStringLiteral("Network unreachable");
  CheckState failed = quiet;
  failed.error = QStringLiteral("The answer could not be read.");
  CheckState running = failed;
  running.progress = PassProgress{3200, 10'000};
  const Row rows[] = {
      {{}, "Not checked yet", ""},
      {quiet, "Checked 12 min ago", "Next 16:40"},
      {throttled, "Apple is limiting requests.", "Next 16:40"},
      {offline, "You're offline.", "Next 16:40"},
      {failed, "The answer could not be read.", "Next 16:40"},
      {running, "Checking 3200 of 10000", ""},
  };
  for (const Row& row : rows) {
    const CheckWords words = wordsOf(row.state, now, [](Instant) { return 0s; });
    EXPECT_EQ(words.line.toStdString(), row.line);
    EXPECT_EQ(words.second.toStdString(), row.second);
  }
  EXPECT_EQ(wordsOf(running, now, {}).share, 0.32);
  CheckState empty;
  empty.progress = PassProgress{};
  EXPECT_EQ(wordsOf(empty, now, {}).share, std::nullopt) << "before it is known how many there are";
}

std::string children(const SidebarModel& model) {
  std::string names;
  const QModelIndex parent = model.find(SectionId::collections);
  for (int i = 0; i < model.rowCount(parent); ++i) {
    const QModelIndex child = model.index(i, 0, parent);
    names += child.data(Qt::AccessibleTextRole).toString().toStdString() + '=' +
             std::to_string(child.data(CollectionRole).toLongLong()) + ';';
  }
  return names;
}

TEST(SidebarModel, KeepsTheCollectionsThatStay) {
  SidebarModel model({SectionId::watchlist, SectionId::collections, SectionId::myApps});
  const QAbstractItemModelTester tester(&model);
  LibraryCounts counts;
  counts.collections = {{3, "Art", "", 1}, {1, "Kids", "", 2}, {2, "Writing", "", 0}};
  model.setCounts(counts);
  EXPECT_EQ(children(model), "Art, 1=3;Kids, 2=1;Writing, 0=2;");
  const QPersistentModelIndex kids = model.find({SectionId::collections, 1});
  counts.collections = {{4, "Babies", "", 0}, {5, "For Mac", "", 0}, {1, "Kids", "", 3}};
  model.setCounts(counts);
  EXPECT_EQ(children(model), "Babies, 0=4;For Mac, 0=5;Kids, 3=1;");
  EXPECT_TRUE(kids.isValid());
  EXPECT_TRUE(kids == model.find({SectionId::collections, 1}));
  counts.collections = {{1, "A", "", 3}, {4, "Babies", "", 0}};
  model.setCounts(counts);
  EXPECT_EQ(children(model), "A, 3=1;Babies, 0=4;") << "renamed ones move";
  EXPECT_FALSE(model.find(SectionId::alerts).isValid());
}

TEST(SidebarModel, TellsNamesAsTheyAre) {
  SidebarModel model({SectionId::collections});
  LibraryCounts counts;
  counts.collections = {
      {1, "A & B", "", 0}, {2, "<b>Bold</b>", "", 0}, {3, " ", "", 0}, {4, "\u202egnp.exe", "", 0}};
  model.setCounts(counts);
  EXPECT_EQ(model.find({SectionId::collections, 1}).data(Qt::ToolTipRole),
            QStringLiteral("<p>A &amp; B</p>"));
  EXPECT_EQ(model.find({SectionId::collections, 2}).data(Qt::ToolTipRole),
            QStringLiteral("<p>&lt;b&gt;Bold&lt;/b&gt;</p>"));
  EXPECT_EQ(model.find({SectionId::collections, 4}).data(), QStringLiteral("gnp.exe"));
  EXPECT_EQ(model.find({SectionId::collections, 3}).data(), QStringLiteral("Unnamed collection"));
}

TEST(SidebarModel, CountsWhatMatters) {
  struct Row {
    LibraryCounts counts;
    const char* apps;
  };
  const Row rows[] = {{{.owned = 7}, "My Apps, 7"},
                      {{.owned = 7, .updates = 1}, "My Apps, 1 update"},
                      {{.owned = 7, .updates = 2}, "My Apps, 2 updates"},
                      {{}, "My Apps"}};
  SidebarModel model({SectionId::myApps});
  for (const Row& row : rows) {
    model.setCounts(row.counts);
    EXPECT_EQ(model.find(SectionId::myApps).data(Qt::AccessibleTextRole).toString().toStdString(),
              row.apps);
  }
}

}  // namespace
}  // namespace quillet

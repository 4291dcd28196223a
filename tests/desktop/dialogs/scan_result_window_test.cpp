// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/scan_result_window.h"

#include <gtest/gtest.h>

#include <QListView>

#include "desktop/lists/list_fixtures.h"

namespace quillet {
namespace {

FoundApp foundApp(FoundAs as, const char* path, std::int64_t trackId = 0) {
  FoundApp app{.bundle = {.path = path, .name = path}, .as = as};
  if (trackId == 0) return app;
  app.row = OwnedApp{.trackId = trackId, .country = "us", .platformRaw = "mac", .name = path};
  if (as == FoundAs::added) app.keys = {keyOf(*app.row)};
  return app;
}

/// As a screen reader says them.
std::vector<std::string> rowsOf(const ScanResultWindow& window) {
  std::vector<std::string> rows;
  const QAbstractItemModel& model = *window.findChild<QListView*>()->model();
  for (int i = 0; i < model.rowCount(); ++i)
    rows.push_back(model.index(i, 0).data(Qt::AccessibleTextRole).toString().toStdString());
  return rows;
}

void tick(const ScanResultWindow& window, int row, Qt::CheckState state) {
  QAbstractItemModel& model = *window.findChild<QListView*>()->model();
  model.setData(model.index(row, 0), state, Qt::CheckStateRole);
}

TEST(ScanResultWindow, TakesTheCopiesOfAnAppForOne) {
  ScanOutcome outcome;
  outcome.apps = {foundApp(FoundAs::added, "/a/Ant", 1), foundApp(FoundAs::added, "/b/Ant", 1),
                  foundApp(FoundAs::offered, "/a/Bee", 2), foundApp(FoundAs::offered, "/b/Bee", 2)};
  const ScanResultWindow window(outcome, "us", nullptr);
  EXPECT_TRUE(window.wanted().empty() && window.unwanted().empty());
  tick(window, 1, Qt::Unchecked);
  EXPECT_TRUE(window.unwanted().empty()) << "the other one is still wanted";
  tick(window, 2, Qt::Unchecked);
  EXPECT_EQ(window.unwanted(), (std::vector<AppKey>{{1, "us"}}));
  tick(window, 3, Qt::Checked);
  tick(window, 4, Qt::Checked);
  EXPECT_EQ(window.wanted().size(), 1U);
}

TEST(ScanResultWindow, CountsWhatIsLeftToBeDecided) {
  ScanOutcome outcome;
  outcome.apps = {foundApp(FoundAs::notInStorefront, "/a/Ant"), foundApp(FoundAs::known, "/a/Bee"),
                  foundApp(FoundAs::noIdentifier, "/a/<b>Cat</b>")};
  ScanResultWindow window(outcome, "us", nullptr);
  EXPECT_EQ(rowsOf(window),
            (std::vector<std::string>{"Not matched, 2", "/a/Ant, Not in the us storefront",
                                      "/a/<b>Cat</b>, No identifier"}));
  const QAbstractItemModel& model = *window.findChild<QListView*>()->model();
  EXPECT_EQ(model.index(2, 0).data(Qt::ToolTipRole), u"<p>/a/&lt;b&gt;Cat&lt;/b&gt;</p>"_s)
      << "a folder's name is no markup";
  window.settle(0);
  EXPECT_EQ(rowsOf(window),
            (std::vector<std::string>{"Not matched, 1", "/a/<b>Cat</b>, No identifier"}));
  window.settle(2);
  EXPECT_EQ(rowsOf(window), std::vector<std::string>());
  outcome.apps = {foundApp(FoundAs::known, "/a/Bee", 2)};
  outcome.apps[0].row->installedVersion = "1";
  outcome.apps[0].row->storeVersion = "2";
  EXPECT_EQ(rowsOf(ScanResultWindow(outcome, "us", nullptr)).at(1), "/a/Bee, 1 → 2");
  outcome.apps[0].row->skippedVersion = "2";
  EXPECT_TRUE(rowsOf(ScanResultWindow(outcome, "us", nullptr)).empty()) << "a skipped one is none";
  outcome.cause = ScanCause::drop;
  EXPECT_EQ(rowsOf(ScanResultWindow(outcome, "us", nullptr)).at(1), "/a/Bee, In My Apps")
      << "what was handed in gets a word";
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/compare/compare_section.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "desktop/lists/list_strip.h"
#include "desktop/models/compare_edits.h"
#include "desktop/sections/compare/compare_table.h"
#include "desktop/support/scripted_store.h"
#include "desktop/support/view_parts.h"
#include "library/library_folder.h"
#include "support/event_loop.h"
#include "support/temporary_folder.h"
#include "system/whole_file.h"

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

/// The section in a window, over a store whose every answer the test gives.
class CompareSectionTest : public LibraryServiceTest {
 protected:
  CompareSectionTest() {
    clock_.setNow(dayAndSecond(20));
    parts_.library.use(*store_);
    parts_.store.use(web_.services(), stop_.token());
    for (QWidget* part : {section_->tools(), section_->view()}) part->setParent(&window_);
    section_->view()->resize(1000, 600);
    window_.resize(1000, 700);
    window_.show();
    section_->view()->show();
    settle();
  }
  void TearDown() override {
    section_.reset();
    stop_.requestStop();
    settle();
    runTask(parts_.store.ended());
  }

  void settle() {
    for (int round = 0; round < 3; ++round) {
      runTask(store_->read([](SQLite::Database& /*database*/) { return 0; }));
      handlePendingEvents();
    }
  }
  /// Answers a lookup, what it asks of the catalog, and the releases of each app.
  void answer(const std::string& ids, const std::vector<int>& found) {
    answerQuestion(ids, found);
    for (const int id : found) answerReleases(id);
  }
  /// `status`: of the answer that tells what they sell.
  void answerQuestion(const std::string& ids, const std::vector<int>& found, int status = 200) {
    std::string records;
    for (const int id : found) {
      records += fmt::format(
          R"({}{{"trackId":{},"trackName":"App {}","kind":"mac-software","price":{},"currency":"USD",
             "averageUserRating":4,"userRatingCount":9}})",
          records.empty() ? "" : ",", id, id, id);
    }
    http_.answer(fmt::format("https://store.example/lookup?id={}&country=us", ids), 200,
                 ScriptedStore::found(records));
    if (found.empty()) return;
    std::string known;
    std::string data;
    for (const int id : found) {
      known += (known.empty() ? "" : ",") + std::to_string(id);
      data += fmt::format(R"({}{{"id":"{}","views":{{"top-in-app-purchasables":{{"data":[]}}}}}})",
                          data.empty() ? "" : ",", id);
    }
    http_.answer(
        fmt::format("https://web.example/api/apps/v1/catalog/us/apps?ids={}&platform=mac&views="
                    "top-in-app-purchasables&l=en-US",
                    known),
        status, status == 200 ? fmt::format(R"({{"data":[{}]}})", data) : std::string());
  }
  void answerReleases(int id) {
    http_.answer(
        ScriptedStore::catalogUrl(id), 200,
        fmt::format(R"({{"data":[{{"id":"{}","attributes":{{"platformAttributes":{}}}}}]}})", id,
                    builds_));
  }
  void add(std::int64_t first, std::int64_t last) {
    std::vector<NamedCompared> apps;
    for (std::int64_t id = first; id <= last; ++id) apps.push_back({{{id, "us"}}, {}});
    (void)addToCompare(*parts_.compared, apps);
    settle();
  }
  CompareTable& table() { return *section_->view()->findChild<CompareTable*>(); }
  [[nodiscard]] QStringList names() {
    QStringList names;
    for (const CompareColumn& column : table().sheet().columns) names << column.name;
    return names;
  }
  [[nodiscard]] QString cell(CompareAspect aspect, int column) {
    const QAbstractItemModel& model = *table().model();
    return model.index(static_cast<int>(aspect), column).data().toString();
  }
  bool says(const QString& text) {
    for (const QLabel* label : section_->view()->findChildren<QLabel*>()) {
      if (label->isVisible() && label->text() == text) return true;
    }
    return false;
  }

  /// As the catalog tells them of each app.
  std::string builds_ = R"({"osx":{"requiresRosetta":true}})";
  ViewParts parts_{http_, clock_, settings_};
  ScriptedStore web_{http_, clock_};
  StopSource stop_;
  QWidget window_;
  std::unique_ptr<Section> section_ = makeCompare(parts_.world());
};

TEST_F(CompareSectionTest, AsksForNoMoreThanItDoesNotKnow) {
  add(1, 1);
  EXPECT_TRUE(says(u"One more app is needed to compare."_s)) << "and nothing is asked";
  answer("1,2", {1, 2});
  add(2, 2);
  EXPECT_EQ(names(), (QStringList{u"App 1"_s, u"App 2"_s}));
  EXPECT_EQ(cell(CompareAspect::firstYear, 1), u"$2.00"_s);
  EXPECT_FALSE(says(u"One more app is needed to compare."_s));

  answer("3", {3});
  add(3, 3);
  EXPECT_EQ(cell(CompareAspect::firstYear, 2), u"$3.00"_s);
  // Another order, and years, are worked out from what is known.
  parts_.compared->move({3, "us"}, 0);
  parts_.compared->setYears(5);
  settle();
  EXPECT_EQ(names(), (QStringList{u"App 3"_s, u"App 1"_s, u"App 2"_s}));

  // Within the hour who comes back asks nothing, and later all in one question.
  const auto comeBack = [&](std::chrono::minutes after) {
    section_->view()->hide();
    clock_.advance(after);
    section_->view()->show();
    settle();
  };
  comeBack(59min);
  http_.answer("https://store.example/lookup?id=3,1,2&country=us", 200, ScriptedStore::found(""));
  comeBack(2min);
  EXPECT_TRUE(says(u"Not found in this storefront: 3, 1, 2"_s));
}

TEST_F(CompareSectionTest, SaysWhatIsMissingAndTakesItOut) {
  answer("1,2,3", {2, 3});
  add(1, 3);
  EXPECT_EQ(names(), (QStringList{u"App 2"_s, u"App 3"_s}));
  ASSERT_TRUE(says(u"Not found in this storefront: 1"_s));
  for (QPushButton* button : section_->view()->findChildren<QPushButton*>()) {
    if (button->isVisible() && button->text() == u"Remove"_s) button->click();
  }
  settle();
  EXPECT_FALSE(says(u"Not found in this storefront: 1"_s));
  EXPECT_EQ(parts_.compared->apps().size(), 2U);
  parts_.edits.undo();
  settle();
  EXPECT_EQ(parts_.compared->apps().size(), 3U);
}

TEST_F(CompareSectionTest, ColumnsAreDraggedPastThoseThatAreMissing) {
  answer("1,2,3,4", {1, 2, 4});
  add(1, 4);
  QHeaderView& header = *table().horizontalHeader();
  header.moveSection(0, 2);
  settle();
  EXPECT_EQ(names(), (QStringList{u"App 2"_s, u"App 4"_s, u"App 1"_s}));
  EXPECT_EQ(parts_.compared->apps().back().app.trackId, 1);
  for (int column = 0; column < 3; ++column) EXPECT_EQ(header.visualIndex(column), column);
  parts_.edits.undo();
  settle();
  EXPECT_EQ(names(), (QStringList{u"App 1"_s, u"App 2"_s, u"App 4"_s}));
}

TEST_F(CompareSectionTest, WaitsWhereAppleWantsFewerRequestsAndKeepsWhatIsKnown) {
  answer("1,2", {1, 2});
  add(1, 2);
  http_.answer("https://store.example/lookup?id=1,2&country=us", 403, "");
  section_->refresh();
  settle();
  EXPECT_TRUE(section_->view()->findChild<ListStrip*>()->accessibleName().startsWith(
      u"Apple is limiting requests."_s));
  EXPECT_EQ(cell(CompareAspect::firstYear, 0), u"$1.00"_s);
  answer("1,2", {1, 2});
  clock_.advance(20s);
  settle();
  EXPECT_FALSE(section_->view()->findChild<ListStrip*>()->isVisible());
}

TEST_F(CompareSectionTest, SaysWhereTheCatalogWantsFewerRequestsAndAsksAgainWhenTold) {
  answerQuestion("1,2", {1, 2}, 403);
  for (const int id : {1, 2}) answerReleases(id);
  add(1, 2);
  EXPECT_EQ(cell(CompareAspect::sells, 0), u"unknown — Apple rate limited the purchase lookup"_s);
  const auto* strip = section_->view()->findChild<ListStrip*>();
  ASSERT_TRUE(strip->isVisible());
  const auto tryAgain = [&] {
    for (QPushButton* button : strip->findChildren<QPushButton*>()) {
      if (button->isVisible() && button->text() == u"Try Again"_s) button->click();
    }
    settle();
  };
  answerQuestion("1,2", {1, 2});
  tryAgain();
  EXPECT_FALSE(strip->isVisible());
  EXPECT_EQ(cell(CompareAspect::firstYear, 1), u"$2.00"_s);

  // What is known stays where it cannot be read anew.
  answerQuestion("1,2", {1, 2}, 403);
  for (const int id : {1, 2}) answerReleases(id);
  section_->refresh();
  settle();
  EXPECT_TRUE(strip->isVisible());
  EXPECT_EQ(cell(CompareAspect::firstYear, 1), u"$2.00"_s);
  answerQuestion("1,2", {1, 2});
  tryAgain();
  EXPECT_FALSE(strip->isVisible());
}

TEST_F(CompareSectionTest, ARefreshLeavesReleasesUntilTheNewOnesCame) {
  answer("1,2", {1, 2});
  add(1, 2);
  const auto builds = [this] {
    return QStringList{cell(CompareAspect::architecture, 0), cell(CompareAspect::architecture, 1)};
  };
  const QString before = u"Intel (needs Rosetta)"_s;
  ASSERT_EQ(builds(), (QStringList{before, before}));
  builds_ = R"({"osx":{"requiresRosetta":false,"runsOnAppleSilicon":true}})";
  http_.hold(ScriptedStore::catalogUrl(1));
  answer("1,2", {1, 2});
  section_->refresh();
  settle();
  EXPECT_EQ(builds(), (QStringList{before, before}));
  http_.release(ScriptedStore::catalogUrl(1));
  settle();
  EXPECT_EQ(builds(), (QStringList{u"Apple silicon"_s, u"Apple silicon"_s}));
}

TEST_F(CompareSectionTest, GoesThroughItsCellsByKeysAndCopiesThem) {
  answer("1,2", {1, 2});
  add(1, 2);
  table().setFocus();
  QTest::keyClick(&table(), Qt::Key_Right);
  EXPECT_EQ(section_->chosen(), (std::vector<AppKey>{{2, "us"}}));
  QTest::keyClick(&table(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), u"$2.00"_s);
  // A column takes its cell along.
  section_->perform("move-column-left");
  settle();
  EXPECT_EQ(names(), (QStringList{u"App 2"_s, u"App 1"_s}));
  EXPECT_EQ(section_->chosen(), (std::vector<AppKey>{{2, "us"}}));
  EXPECT_FALSE(section_->canDo("move-column-left"));

  const std::optional<LibraryEdit> removal = section_->removal();
  EXPECT_EQ(parts_.compared->apps().size(), 2U) << "it is only told";
  parts_.edits.perform(*removal);
  settle();
  EXPECT_EQ(names(), QStringList{u"App 1"_s});
  EXPECT_EQ(section_->chosen(), (std::vector<AppKey>{{1, "us"}})) << "what stands in its place";
}

TEST_F(CompareSectionTest, WritesWhatIsSeen) {
  answer("1,2", {1, 2});
  add(1, 2);
  section_->perform("copy-comparison");
  EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(u"| First year | $1.00 | $2.00 |"_s));
  const TemporaryFolder folder;
  parts_.prompts.chosen = folder.path() / "apps.csv";
  section_->perform("export-comparison-csv");
  settle();
  EXPECT_EQ(parts_.prompts.suggested.front().filename(), "Comparison.csv");
  EXPECT_NE(readWholeFile(parts_.prompts.chosen, 100'000).find("First year,1.0,2.0\r\n"),
            std::string::npos);
  parts_.prompts.chosen = folder.path() / "none" / "apps.csv";
  section_->perform("export-comparison-csv");
  settle();
  const auto labels = section_->view()->findChildren<QLabel*>();
  EXPECT_TRUE(std::ranges::any_of(labels, [](const QLabel* label) {
    return label->isVisible() && label->text().contains(u"apps.csv"_s);
  }));
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/charts/charts_section.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <numeric>

#include "desktop/lists/caption_line.h"
#include "desktop/lists/chip.h"
#include "desktop/models/app_list_model.h"
#include "desktop/models/row_filter_model.h"
#include "desktop/sections/search_fixture.h"
#include "desktop/store_lists/filter_panel.h"
#include "desktop/store_lists/nothing_found.h"
#include "library/chart_orders.h"
#include "library/owned_apps.h"
#include "library/watched_apps.h"
#include "store/records/chart_type.h"
#include "system/settings_keys.h"

namespace quillet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Ids = std::vector<std::int64_t>;
using Texts = std::vector<std::string>;

Ids numbers(std::int64_t count) {
  Ids ids(static_cast<std::size_t>(count));
  std::iota(ids.begin(), ids.end(), 1);
  return ids;
}

/// The section in a window of its own, which takes it wherever it wants to go.
class ChartsSectionTest : public SearchTest {
 protected:
  ChartsSectionTest() {
    for (QWidget* part : {section->tools(), section->view()}) part->setParent(&window);
    section->tools()->resize(900, 52);
    section->view()->setGeometry(0, 52, 900, 600);
    window.resize(1000, 800);
    window.show();
    QObject::connect(section.get(), &Section::goes, &window, [this](const Place& to) {
      section->show(to);
      settle();
    });
    http.apps = macApps(60);
    http.chart = {3, 1, 2};
  }
  void TearDown() override {
    section.reset();
    end();
  }

  void visit(ShownChart chart = {}) {
    StoreQuery query;
    query.chart = chart;
    section->show({.section = SectionId::charts, .what = query});
    settle();
  }
  void filter(const AppFilters& filters) {
    Q_EMIT section->view()->findChild<FilterPanel*>()->changed(filters);
    settle();
  }
  /// "3 up 2: best #1": track ID and what the row says of its place.
  Texts rows() {
    Texts texts;
    const RowFilterModel& shown = *section->rows();
    for (int row = 0; row < shown.rowCount(); ++row) {
      const AppRow& app = shown.at(row);
      std::string text = app.rank.toStdString() + '.' + std::to_string(app.key.app.trackId);
      if (app.movement) {
        text += ' ' + std::string(textOf(kChartMovementWords, app.movement->movement));
        if (const auto& change = app.movement->change; change && *change != 0)
          text += ' ' + std::to_string(*change);
      }
      if (!app.aside.isEmpty()) text += ", " + app.aside.toStdString();
      texts.push_back(text);
    }
    return texts;
  }
  QString caption() { return section->view()->findChild<CaptionLine*>()->text(); }
  bool says(const QString& text) {
    const auto labels = section->view()->findChildren<QLabel*>();
    return std::ranges::any_of(
        labels, [&](const QLabel* label) { return label->isVisible() && label->text() == text; });
  }
  QAbstractButton* button(QWidget& within, const QString& text) {
    const auto all = within.findChildren<QAbstractButton*>();
    return *std::ranges::find(all, text, &QAbstractButton::text);
  }
  void record(int daysAgo, Ids ids) {
    const Instant day = clock.now() - daysAgo * 24h;
    runTask(
        library->change(addSnapshots, std::vector{snapshotOf({kFree, std::move(ids), day, day})}));
  }
  std::size_t recordedDays() { return runTask(library->read(snapshotsOf, chartKey(kFree))).size(); }

  const ChartQuery kFree{ChartType::topFree, Platform::mac, "us", {}};
  QWidget window;
  std::unique_ptr<Section> section = makeCharts(parts.world());
};

TEST_F(ChartsSectionTest, TellsPlacesAndMovementWhateverTheStorefrontLacksAndFiltersLeave) {
  record(9, {1, 4});
  record(2, {1, 2, 3});
  http.chart = {3, 99, 1, 2, 4, 5};  // nobody knows the second
  http.apps[2].price = 0;
  runTask(library->change(addOwnedApps, std::vector{owned(5)}));
  visit();
  const Texts all{"1.3 up 2, best #1", "3.1 down -2, best #1", "4.2 down -2, best #2",
                  "5.4 new, best #2", "6.5 new"};
  EXPECT_EQ(rows(), all);
  EXPECT_EQ(caption(),
            u"Movement since 18 Nov, from Quillet's daily record of the top 50 · 3 days"_s);
  EXPECT_TRUE(says(u"5 available"_s));
  const auto sentence = section->rows()->index(0, 0).data(Qt::AccessibleTextRole).toString();
  EXPECT_TRUE(sentence.startsWith(u"App 3, Free, rank 1, up 2, best #1"_s))
      << sentence.toStdString();

  filter({.price = PriceFilter::paid, .hideOwned = true});
  EXPECT_EQ(rows(), (Texts{all[1], all[2], all[3]}));
  EXPECT_TRUE(says(u"3 of 5"_s));
  section->setRowView({{}, {"new"}, {}});
  EXPECT_EQ(rows(), (Texts{all[3]}));
  section->setRowView({{}, {"rising"}, {}});
  handlePendingEvents();
  EXPECT_TRUE(rows().empty());
  EXPECT_TRUE(says(u"Nothing in this chart matches."_s));
  button(*section->view()->findChild<NothingFound*>(), u"Clear Filters"_s)->click();
  settle();
  EXPECT_EQ(rows(), all);
  EXPECT_EQ(http.asking("/charts/"), 1);
}

TEST_F(ChartsSectionTest, RecordsTheDayOnceAndOnlyWhereTheUserWantsARecord) {
  settings.set(kRecordCharts.key, "false");
  visit();
  EXPECT_EQ(recordedDays(), 0U);
  EXPECT_EQ(caption(), QString());
  settings.set(kRecordCharts.key, "true");
  http.chart = numbers(60);
  section->refresh();
  settle();
  http.chart = {9, 8, 7};
  section->refresh();
  settle();
  const auto days = runTask(library->read(snapshotsOf, chartKey(kFree)));
  ASSERT_EQ(days.size(), 1U);
  EXPECT_EQ(days.front().trackIds, numbers(50));
  EXPECT_EQ(days.front().day, clock.now());
  EXPECT_EQ(rows(), (Texts{"1.9", "2.8", "3.7"})) << "there is no day before";
}

TEST_F(ChartsSectionTest, ComparesACategoryWithTheLastLookOfAnotherDay) {
  const ShownChart tools{ChartType::topPaid, 6026};
  visit(tools);
  EXPECT_EQ(rows(), (Texts{"1.3", "2.1", "3.2"}));
  EXPECT_EQ(caption(), QString());
  clock.setNow(clock.now() + 72h);
  http.chart = {1, 3, 7};
  visit(tools);
  const Texts moved{"1.1 up 1", "2.3 down -1", "3.7 new"};
  EXPECT_EQ(rows(), moved);
  EXPECT_EQ(caption(), u"Movement since your last look, 3 days ago"_s);
  // Another look on the same day is told against the same.
  clock.setNow(clock.now() + 3h);
  section->refresh();
  settle();
  EXPECT_EQ(rows(), moved);
  EXPECT_EQ(recordedDays(), 0U);
  EXPECT_EQ(http.asking("/us/mac/charts/6026"), 3);
}

TEST_F(ChartsSectionTest, AsksAgainForWhatIsNoLongerYoung) {
  visit();
  visit({ChartType::topPaid, {}});
  http.chart = {2};
  clock.setNow(clock.now() + 14min);
  visit();
  EXPECT_EQ(http.asking("/charts/"), 2);
  EXPECT_EQ(rows().size(), 3U);
  clock.setNow(clock.now() + 1min);
  http.isHeld = true;
  visit();
  EXPECT_EQ(rows().size(), 3U) << "what is there stays until the answer";
  http.release();
  settle();
  EXPECT_EQ(rows(), (Texts{"1.2"}));
}

TEST_F(ChartsSectionTest, FallsBackToTheFeedAndSaysWhatThereIsNot) {
  http.chart.clear();
  http.feed = numbers(40);
  visit();
  EXPECT_EQ(rows().size(), 40U);
  EXPECT_TRUE(says(u"40 available"_s));
  http.feed.clear();
  visit({ChartType::topFree, 6014});
  EXPECT_TRUE(rows().empty());
  const bool isTold =
      says(u"This chart is not available."_s) ||
      std::ranges::any_of(section->view()->findChildren<QWidget*>(), [](QWidget* each) {
        return each->isVisible() && each->accessibleName() == u"This chart is not available."_s;
      });
  EXPECT_TRUE(isTold);
}

TEST_F(ChartsSectionTest, OffersNoChartThatAppleDoesNotPublish) {
  visit();
  QWidget& tools = *section->tools();
  EXPECT_FALSE(button(tools, u"Top Grossing"_s)->isEnabled());
  EXPECT_TRUE(button(tools, u"Top Grossing"_s)->toolTip().contains(u"no Mac top grossing chart"_s));
  button(tools, u"iPhone"_s)->click();
  button(tools, u"Top Grossing"_s)->click();
  const auto chosen = [this](Selector which) {
    const auto choices = section->choicesOf(which);
    return std::ranges::find(choices, true, &SelectorChoice::isChosen)->id;
  };
  EXPECT_EQ(chosen(Selector::chart) + ' ' + chosen(Selector::platform), "top-grossing iphone");
  EXPECT_EQ(http.asking("/rss/topgrossingapplications/"), 1);
  section->select(Selector::category, "6014");
  section->select(Selector::storefront, "de");
  EXPECT_EQ(http.asking("/de/rss/topgrossingapplications/genre=6014/"), 1);
  section->select(Selector::platform, "mac");
  EXPECT_EQ(chosen(Selector::chart) + ' ' + chosen(Selector::category), "top-free 6014");
  EXPECT_FALSE(section->choicesOf(Selector::chart).back().whyNot.isEmpty());
}

}  // namespace
}  // namespace quillet

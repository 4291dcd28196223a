// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/search/search_section.h"

#include <QJsonArray>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include "desktop/lists/text_label.h"
#include "desktop/models/row_filter_model.h"
#include "desktop/sections/search/search_start.h"
#include "desktop/sections/search/search_tools.h"
#include "desktop/sections/search_fixture.h"
#include "desktop/store_lists/filter_panel.h"
#include "desktop/store_lists/nothing_found.h"
#include "library/saved_searches.h"

namespace quillet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// The section in a window of its own, which takes it wherever it wants to go.
class SearchSectionTest : public SearchTest {
 protected:
  SearchSectionTest() {
    for (QWidget* part : {section->tools(), section->bar(), section->view()})
      part->setParent(&window);
    section->view()->resize(700, 600);
    window.resize(1000, 800);
    window.show();
    QObject::connect(section.get(), &Section::goes, &window, [this](const Place& to) {
      went.push_back(to);
      section->show(to);
    });
    visit({.section = SectionId::search});
  }
  void TearDown() override {
    section.reset();
    end();
  }

  void visit(const Place& place) {
    section->show(place);
    settle();
  }
  void enter(const QString& words) {
    auto* field = section->tools()->findChild<QLineEdit*>();
    field->setText(words);
    QTest::keyClick(field, Qt::Key_Return);
    settle();
  }
  void filter(const AppFilters& filters) {
    Q_EMIT section->view()->findChild<FilterPanel*>()->changed(filters);
    settle();
  }
  [[nodiscard]] StoreQuery query() const { return std::get<StoreQuery>(section->place().what); }
  int shown() { return section->rows()->rowCount(); }
  template <typename Widget>
  bool sees() {
    return section->view()->findChild<Widget*>()->isVisible();
  }
  bool barSays(const QString& text) {
    const auto labels = section->bar()->findChildren<TextLabel*>();
    return std::ranges::any_of(labels,
                               [&](const TextLabel* label) { return label->text() == text; });
  }

  QWidget window;
  std::unique_ptr<Section> section = makeSearch(parts.world());
  std::vector<Place> went;
};

TEST_F(SearchSectionTest, SearchesForWhatIsEnteredAndRemembersIt) {
  EXPECT_TRUE(sees<SearchStart>());
  EXPECT_EQ(section->title(), u"Search"_s);
  http.apps = macApps(3);
  enter(u"  ink well "_s);
  EXPECT_EQ(section->title(), u"ink well"_s);
  EXPECT_EQ(shown(), 3);
  EXPECT_EQ(http.searches(), 1);
  enter(u"paper"_s);
  enter(u"ink well"_s);
  enter(u"ink well"_s);
  EXPECT_EQ(went.size(), 3U) << "once more is no other place";
  EXPECT_EQ(http.searches(), 2) << "young answers are shown as they are";
  clock.setNow(clock.now() + 16min);
  enter(u"ink well"_s);
  EXPECT_EQ(http.searches(), 3);
  clock.setNow(clock.now() + 16min);
  visit(went.back());
  EXPECT_EQ(http.searches(), 3) << "who comes back asks nothing";
  section->renew();
  settle();
  EXPECT_EQ(http.searches(), 4);
  QStringList recent;
  for (const QJsonValue& each : parts.state.value(u"recentSearches"_s).toArray())
    recent << each[u"query"].toString();
  EXPECT_EQ(recent, (QStringList{u"ink well"_s, u"paper"_s}));
}

TEST_F(SearchSectionTest, IsAskedByTheMenusOfTheWindowAsByItsTools) {
  http.apps = macApps(3);
  http.apps[1].primaryGenreName = "Photo & Video";
  enter(u"ink"_s);
  const auto chosen = [this](Selector which) {
    for (const SelectorChoice& each : section->choicesOf(which))
      if (each.isChosen) return each.id;
    return std::string("none");
  };
  EXPECT_EQ(chosen(Selector::platform) + ' ' + chosen(Selector::storefront), "mac us");
  section->select(Selector::category, "Photo & Video");
  EXPECT_EQ(chosen(Selector::category), "Photo & Video");
  EXPECT_EQ(shown(), 1);
  section->select(Selector::category, "");
  EXPECT_EQ(query().request.filters, AppFilters());
  section->select(Selector::storefront, "de");
  section->select(Selector::platform, "ipad");
  settle();
  EXPECT_EQ(query().request.country, "de");
  EXPECT_EQ(chosen(Selector::platform) + ' ' + chosen(Selector::storefront), "ipad de");
}

TEST_F(SearchSectionTest, FiltersAndOrdersWithoutAQuestionAndKeepsTheChosenRow) {
  http.apps = macApps(6);
  for (ITunesApp& app : http.apps) app.price = static_cast<double>(7 - app.trackId);
  enter(u"ink"_s);
  section->choose({{4, "us"}});
  QSignalSpy changed(section.get(), &Section::placeChanged);
  section->setRowView({{}, {}, "price-low"});
  EXPECT_FALSE(changed.isEmpty());
  filter({.maxPrice = 4});
  EXPECT_EQ(query().request.sort, SortOrder::priceAscending);
  EXPECT_EQ(section->rows()->at(0).key.app.trackId, 6);
  EXPECT_EQ(shown(), 4);
  EXPECT_EQ(section->place().chosen, (RowKey{{4, "us"}}));
  const Place here = placeOf(jsonOf(section->place()));
  EXPECT_EQ(here, section->place());
  // Elsewhere and back: the same sight.
  enter(u"paper"_s);
  EXPECT_EQ(query().request.filters, (AppFilters{.maxPrice = 4})) << "they stay for other words";
  visit(here);
  EXPECT_EQ(section->place(), here);
  EXPECT_EQ(http.searches(), 2);
}

TEST_F(SearchSectionTest, SaysWhatToDropWhereFiltersLeaveNothing) {
  http.apps = macApps(5);
  enter(u"ink"_s);
  filter({.price = PriceFilter::paid, .maxPrice = 1});
  ASSERT_TRUE(sees<NothingFound>());
  section->view()->findChild<NothingFound*>()->findChildren<QPushButton*>().back()->click();
  settle();
  EXPECT_EQ(query().request.filters, (AppFilters{.price = PriceFilter::paid}));
  EXPECT_EQ(shown(), 5);
}

TEST_F(SearchSectionTest, TellsWhatIsNewInASavedSearchThatIsRunAgain) {
  const SavedSearch saved{.name = "Cheap ink",
                          .query = "ink",
                          .platformRaw = "mac",
                          .country = "us",
                          .sortRaw = "name",
                          .filtersJSON = R"({"maxPrice":2})"};
  runTask(library->change(addSavedSearch, saved));
  settle();
  Place place{.section = SectionId::search, .what = StoreQuery{requestOf(saved), {}}};
  http.apps = macApps(3);
  visit(place);
  EXPECT_TRUE(barSays({}));
  clock.setNow(clock.now() + std::chrono::days(2));
  http.apps = macApps(6);
  http.apps[4].price = 3;  // is not among those that are left
  section->refresh();
  settle();
  EXPECT_TRUE(barSays(u"2 new since 20 Nov"_s));
  enter(u"paper"_s);
  EXPECT_FALSE(barSays(u"2 new since 20 Nov"_s));
  visit(place);
  EXPECT_TRUE(barSays(u"2 new since 20 Nov"_s)) << "no other run";
  clock.setNow(clock.now() + 1min);
  section->refresh();
  settle();
  EXPECT_FALSE(barSays(u"2 new since 20 Nov"_s));
}

TEST_F(SearchSectionTest, RemembersWhetherThePanelIsShown) {
  const int wide = section->leastWidth();
  section->toggleFilters();
  EXPECT_FALSE(sees<FilterPanel>());
  EXPECT_EQ(section->filtersShown(), std::optional(false));
  EXPECT_LT(section->leastWidth(), wide);
  EXPECT_EQ(makeSearch(parts.world())->filtersShown(), std::optional(false));
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <QAccessible>
#include <QJsonArray>
#include <QJsonObject>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <random>

#include "desktop/lists/chip.h"
#include "desktop/lists/list_fixtures.h"
#include "desktop/look/quillet_style.h"
#include "desktop/models/amount_text.h"
#include "desktop/models/recent_searches.h"
#include "desktop/sections/search/hint_list.h"
#include "desktop/sections/search/search_bar.h"
#include "desktop/sections/search/search_start.h"
#include "desktop/sections/search/search_tools.h"
#include "desktop/store_lists/filter_panel.h"
#include "desktop/store_lists/nothing_found.h"
#include "desktop/store_lists/storefront_menu.h"
#include "library/library_folder.h"
#include "library/saved_searches.h"
#include "library/watched_apps.h"
#include "support/event_loop.h"
#include "support/pictures.h"

namespace quillet {
namespace {

int differences(const AppFilters& a, const AppFilters& b) {
  return (a.price != b.price) + (a.maxPrice != b.maxPrice) + (a.minRating != b.minRating) +
         (a.minRatingCount != b.minRatingCount) + (a.updatedWithin != b.updatedWithin) +
         (a.maxSize != b.maxSize) + (a.genre != b.genre) + (a.purchases != b.purchases) +
         (a.runsOn != b.runsOn) + (a.architecture != b.architecture) + (a.released != b.released) +
         (a.hideOwned != b.hideOwned);
}

/// Filters as anyone may have saved them, with values that no choice has.
class RandomFilters {
 public:
  AppFilters next() {
    AppFilters filters;
    filters.price = static_cast<PriceFilter>(below(3));
    if (below(2) == 1) filters.maxPrice = below(100'000) / 100.0;
    filters.minRating = below(2) == 1 ? below(51) / 10.0 : 0;
    filters.minRatingCount = below(2) == 1 ? below(20'000) : 0;
    filters.updatedWithin = static_cast<UpdatedFilter>(below(5));
    filters.maxSize = static_cast<SizeFilter>(below(4));
    if (below(2) == 1) filters.genre = genres_[static_cast<std::size_t>(below(3))];
    filters.purchases = static_cast<PurchaseFilter>(below(7));
    if (below(2) == 1) filters.runsOn = OSRequirement{std::to_string(10 + below(20)) + ".3"};
    filters.architecture = static_cast<ArchitectureFilter>(below(3));
    filters.released = releases()[static_cast<std::size_t>(below(5))];
    filters.hideOwned = below(2) == 1;
    return filters;
  }

 private:
  int below(int limit) { return std::uniform_int_distribution(0, limit - 1)(engine_); }
  std::vector<std::optional<ReleasedFilter>> releases() {
    return {std::nullopt, ReleasedWithin{1 + below(40)}, ReleasedBefore{1990 + below(40)},
            ReleasedFrom{1990 + below(40)}, ReleasedWithin{12}};
  }

  std::mt19937 engine_{16};
  std::array<const char*, 3> genres_{"Utilities", "Photo & Video", "Something Else"};
};

FilterPanelState stateOf(const AppFilters& filters, Platform platform = Platform::mac) {
  return {.filters = filters,
          .currency = "USD",
          .platform = platform,
          .genres = {"Utilities", "Photo & Video", "Productivity"},
          .thisYear = 2026};
}

TEST(FilterChoicesTest, AreTheFiltersWithOneChangeWhateverIsSet) {
  RandomFilters random;
  for (int i = 0; i < 300; ++i) {
    const AppFilters filters = random.next();
    for (const Platform platform : {Platform::mac, Platform::ipad}) {
      std::set<QString> fields;
      for (const FilterGroup& group : filterGroups(stateOf(filters, platform))) {
        int chosen = 0;
        std::set<QString> texts;
        for (const FilterChoice& choice : group.choices) {
          chosen += choice.isChosen ? 1 : 0;
          EXPECT_TRUE(texts.insert(choice.text).second) << choice.text.toStdString();
          EXPECT_EQ(differences(choice.filters, filters), choice.isChosen ? 0 : 1)
              << choice.text.toStdString();
        }
        if (group.field != FilterField::owned) EXPECT_EQ(chosen, 1) << group.title.toStdString();
      }
    }
  }
}

class FilterPanelTest : public testing::Test {
 protected:
  FilterPanelTest() {
    panel.resize(panel.width(), 760);
    panel.setVisible(true);
  }

  QRadioButton& radio(const QString& text) {
    for (QRadioButton* each : panel.findChildren<QRadioButton*>())
      if (each->isVisible() && each->text() == text) return *each;
    throw std::out_of_range(text.toStdString());
  }
  QLineEdit& field(const QString& name) {
    for (QLineEdit* each : panel.findChildren<QLineEdit*>())
      if (each->accessibleName() == name) return *each;
    throw std::out_of_range(name.toStdString());
  }
  MenuRow& menuRow(const QString& title) {
    for (MenuRow* each : panel.findChildren<MenuRow*>())
      if (each->accessibleName().startsWith(title)) return *each;
    throw std::out_of_range(title.toStdString());
  }
  void choose(const QString& title, const QString& text) {
    QMenu& menu = *menuRow(title).menu();
    Q_EMIT menu.aboutToShow();
    for (QAction* action : menu.actions())
      if (action->text().section(u'\t', 0, 0) == text) return action->trigger();
    FAIL() << text.toStdString();
  }
  void type(QLineEdit& into, const QString& text) {
    into.setFocus();
    into.selectAll();
    QTest::keyClicks(&into, text.isEmpty() ? u" "_s : text);
    QTest::keyClick(&into, Qt::Key_Return);
  }
  AppFilters last() { return changed.last()[0].value<AppFilters>(); }

  FilterPanel panel;
  QSignalSpy changed{&panel, &FilterPanel::changed};
};

TEST_F(FilterPanelTest, ShowsWhatItIsToldAndTellsNobody) {
  RandomFilters random;
  AppFilters filters;
  for (int i = 0; i < 60; ++i) {
    filters = random.next();
    panel.show(stateOf(filters));
  }
  EXPECT_TRUE(changed.isEmpty());
  filters = {.minRating = 3.7, .purchases = PurchaseFilter::subscriptionOnly};
  panel.show(stateOf(filters));
  EXPECT_TRUE(radio(u"3.7+ stars"_s).isChecked());
  EXPECT_TRUE(radio(u"Subscription only"_s).isChecked());
  // What is chosen stays chosen beside what is changed.
  radio(u"Paid"_s).click();
  filters.price = PriceFilter::paid;
  EXPECT_EQ(last(), filters);
  radio(u"Anything"_s).click();
  filters.purchases = PurchaseFilter::any;
  EXPECT_EQ(last(), filters);
  EXPECT_THROW(radio(u"Subscription only"_s), std::out_of_range);
  choose(u"Other kinds"_s, u"Has a subscription"_s);
  filters.purchases = PurchaseFilter::hasSubscription;
  choose(u"Category"_s, u"Photo && Video"_s);
  filters.genre = "Photo & Video";
  choose(u"Updated"_s, u"Last 2 Years"_s);
  filters.updatedWithin = UpdatedFilter::twoYears;
  EXPECT_EQ(last(), filters);
  EXPECT_EQ(menuRow(u"Updated"_s).accessibleName(), u"Updated: Last 2 Years"_s);
}

TEST_F(FilterPanelTest, ReadsWhatIsTypedOrSaysThatItCannot) {
  QLineEdit& price = field(u"Highest price"_s);
  type(price, u"4,99"_s);
  EXPECT_EQ(last().maxPrice, 4.99);
  EXPECT_EQ(price.text(), u"4.99"_s);
  type(price, u"cheap"_s);
  EXPECT_EQ(changed.count(), 1);
  EXPECT_EQ(price.text(), u"cheap"_s);
  EXPECT_FALSE(price.accessibleDescription().isEmpty());
  // Another filter neither takes the text away nor puts it in.
  radio(u"4+ stars"_s).click();
  EXPECT_EQ(last(), (AppFilters{.maxPrice = 4.99, .minRating = 4}));
  EXPECT_EQ(price.text(), u"cheap"_s);
  QTest::keyClick(&price, Qt::Key_Escape);
  EXPECT_EQ(price.text(), u"4.99"_s);
  type(price, {});
  EXPECT_EQ(last().maxPrice, std::nullopt);

  choose(u"Runs on"_s, u"Other Version…"_s);
  type(field(u"Version of the system"_s), u"macOS 14.x"_s);
  EXPECT_FALSE(last().runsOn);
  type(field(u"Version of the system"_s), u"macOS 14.4"_s);
  EXPECT_EQ(last().runsOn, OSRequirement{"14.4"});
  EXPECT_EQ(menuRow(u"Runs on"_s).accessibleName(), u"Runs on: macOS 14.4"_s);
  choose(u"Released"_s, u"Before a Year…"_s);
  type(field(u"Released before the year"_s), u"1999"_s);
  EXPECT_EQ(last().released, ReleasedFilter(ReleasedBefore{1999}));
}

TEST_F(FilterPanelTest, PutsEachCountBesideItsChoice) {
  panel.show(stateOf({.price = PriceFilter::paid}));
  std::vector<std::optional<std::size_t>> counts;
  for (const AppFilters& each : panel.choices()) {
    counts.emplace_back();
    if (each.price == PriceFilter::free) counts.back() = 131;
    if (each.purchases == PurchaseFilter::hasSubscription) counts.back() = 7;
    if (each.hideOwned) counts.back() = 1;
  }
  panel.setCounts(counts);
  EXPECT_EQ(radio(u"Free"_s).accessibleDescription(), u"131 apps"_s);
  EXPECT_EQ(radio(u"Paid"_s).accessibleDescription(), QString());
  EXPECT_EQ(panel.findChild<TickRow*>()->accessibleDescription(), u"1 app"_s);
  QMenu& others = *menuRow(u"Other kinds"_s).menu();
  Q_EMIT others.aboutToShow();
  EXPECT_EQ(others.actions().front()->text(), u"Has a subscription\t7"_s);
  // Of other filters they say nothing.
  panel.show(stateOf({.price = PriceFilter::free}));
  EXPECT_EQ(radio(u"Free"_s).accessibleDescription(), QString());
}

TEST(AmountTextTest, ReadsAmountsAsTheyAreTyped) {
  struct {
    const char* locale;
    const char16_t* text;
    std::optional<double> amount;
  } const rows[] = {
      {"en_US", u"4.99", 4.99},
      {"en_US", u"4,99", 4.99},
      {"de_DE", u"4.99", 4.99},
      {"en_US", u"1,000", 1000},
      {"de_DE", u"1.000", 1000},
      {"en_US", u"1.000", 1},
      {"en_US", u"1.234,50", 1234.5},
      {"de_DE", u"1,234.50", 1234.5},
      {"en_US", u"1,234,567", 1234567},
      {"fr_FR", u"1 234,5", 1234.5},
      {"de_CH", u"1’234.50", 1234.5},
      {"en_US", u" $ 5 ", 5},
      {"de_DE", u"5 EUR", 5},
      {"ar_EG", u"٤٫٩٩", 4.99},
      {"en_US", u"0", 0},
      {"en_US", u".5", 0.5},
      {"en_US", u"", {}},
      {"en_US", u"-5", {}},
      {"en_US", u"1,23,4", {}},
      {"en_US", u"4.9.9", {}},
      {"en_US", u"five", {}},
      {"en_US", u"1e5", {}},
      {"en_US", u".", {}},
      {"en_US", u"12 3", {}},
  };
  for (const auto& row : rows) {
    const QLocale locale(QString::fromLatin1(row.locale));
    const QString text = QString::fromUtf16(row.text);
    EXPECT_EQ(readAmount(text, locale), row.amount) << text.toStdString();
    if (row.amount) EXPECT_EQ(readAmount(amountText(*row.amount, locale), locale), row.amount);
  }
}

class SearchBarTest : public testing::Test {
 protected:
  SearchBarTest() {
    bar.resize(1400, bar.sizeHint().height());
    bar.setVisible(true);
    QApplication::setActiveWindow(&bar);
  }

  void show(const AppFilters& filters) {
    bar.show({.filters = filters, .shown = 23, .all = 200, .canSave = true});
  }
  Chip& chip(const QString& text) {
    for (Chip* each : bar.findChildren<Chip*>())
      if (each->isVisible() && each->plainText() == text) return *each;
    throw std::out_of_range(text.toStdString());
  }
  AppFilters last() { return changed.last()[0].value<AppFilters>(); }

  SearchBar bar;
  QSignalSpy changed{&bar, &SearchBar::changed};
};

TEST_F(SearchBarTest, EachChipDropsItsFilterAlone) {
  RandomFilters random;
  for (int i = 0; i < 40; ++i) {
    const AppFilters filters = random.next();
    show(filters);
    for (const SetFilter& each : setFilters(filters)) {
      show(filters);
      bar.resize(3000, bar.height());
      chip(QString::fromStdString(each.label)).click();
      EXPECT_EQ(last(), each.others) << each.label;
    }
  }
}

TEST_F(SearchBarTest, KeysGoOnWhereAChipWas) {
  // As a section would answer.
  QObject::connect(&bar, &SearchBar::changed, &bar, [this](const AppFilters& to) { show(to); });
  show({.price = PriceFilter::paid, .minRating = 4, .hideOwned = true});
  const auto press = [&](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
  const auto here = [] {
    const auto* chip = qobject_cast<Chip*>(QApplication::focusWidget());
    return chip == nullptr ? QString() : chip->plainText();
  };
  chip(u"Paid"_s).setFocus();
  press(Qt::Key_Right);
  press(Qt::Key_Delete);
  EXPECT_EQ(last(), (AppFilters{.price = PriceFilter::paid, .hideOwned = true}));
  EXPECT_EQ(here(), u"Not in My Apps"_s);
  press(Qt::Key_Delete);
  EXPECT_EQ(here(), u"Paid"_s);
  press(Qt::Key_Left);
  EXPECT_EQ(here(), u"Buy Once, Still Maintained"_s);
  press(Qt::Key_Space);
  const AppFilters preset = searchPresets().front().filters;
  EXPECT_EQ(last(), withAll({.price = PriceFilter::paid}, preset));
  EXPECT_TRUE(chip(u"Buy Once, Still Maintained"_s).isChecked());
  press(Qt::Key_Space);
  EXPECT_EQ(last(), (AppFilters{.price = PriceFilter::paid}));
}

/// What the user has searched for, saved and listed.
class SearchWorldTest : public testing::Test {
 protected:
  SearchWorldTest() {
    QJsonArray recent;
    for (const char* query : {"habit tracker", "Markdown Editor", "invoice"})
      recent.append(QJsonObject{{u"query"_s, QString::fromLatin1(query)},
                                {u"platform"_s, u"ipad"_s},
                                {u"country"_s, u"de"_s}});
    recent.append(7);
    world.parts.state.setValue(QString::fromLatin1(kRecentSearchesKey), recent);
    runTask(store->change(addSavedSearch, SavedSearch{.name = "Mine, marked",
                                                      .query = "notes",
                                                      .platformRaw = "iphone",
                                                      .filtersJSON = R"({"price":"paid"})"}));
    std::vector<WatchedApp> apps;
    for (const char* name : {"Pagewren Markdown", "Markdrift", "markdown editor", "Landmark"})
      apps.push_back(
          {.trackId = static_cast<std::int64_t>(apps.size()) + 1, .country = "us", .name = name});
    runTask(store->change(watchApps, apps));
    world.library.use(*store);
  }

  void settle() {
    for (int i = 0; i < 3; ++i) runTask(store->read([](SQLite::Database&) { return 0; }));
  }

  LibraryFolder folder;
  TestWorld world;
  std::unique_ptr<DataStore> store = folder.open();
};

TEST_F(SearchWorldTest, TheFieldOffersWhatIsKnownAndIsSteeredByKeys) {
  SearchTools tools(world.world());
  tools.resize(900, 52);
  tools.setQuery({}, "us");
  tools.setVisible(true);
  QApplication::setActiveWindow(&tools);
  auto& field = *tools.findChild<QLineEdit*>();
  field.clearFocus();
  tools.setFocus();
  settle();
  QSignalSpy submitted(&tools, &SearchTools::submitted);
  QSignalSpy chosen(&tools, &SearchTools::chosen);
  QSignalSpy left(&tools, &SearchTools::left);
  const auto press = [&](Qt::Key key) { QTest::keyClick(&field, key); };
  QTest::keyClicks(&field, u"MARK"_s);
  auto& list = *tools.findChild<HintList*>();
  QStringList offered;
  for (int i = 0; i < list.model()->rowCount(); ++i)
    offered << list.model()->index(i, 0).data(Qt::AccessibleTextRole).toString();
  // The app of the name that was searched for would be the same search.
  EXPECT_EQ(offered,
            (QStringList{u"Markdown Editor, iPad · de · recent search"_s,
                         u"Mine, marked, iPhone · saved search"_s, u"Markdrift, in the watchlist"_s,
                         u"Pagewren Markdown, in the watchlist"_s}));
  press(Qt::Key_Return);
  EXPECT_EQ(submitted.last()[0], u"MARK"_s);
  EXPECT_FALSE(list.isVisible());
  press(Qt::Key_Down);
  press(Qt::Key_Down);
  press(Qt::Key_Return);
  const auto query = chosen.last()[0].value<StoreQuery>();
  EXPECT_EQ(query.request.query, "notes");
  EXPECT_EQ(query.request.platform, Platform::iphone);
  EXPECT_EQ(query.request.filters.price, PriceFilter::paid);
  field.selectAll();
  QTest::keyClicks(&field, u"drift mark"_s);  // neither word begins a word
  EXPECT_FALSE(list.isVisible());
  press(Qt::Key_Down);
  EXPECT_EQ(left.count(), 1);
  field.selectAll();
  QTest::keyClicks(&field, u"wren"_s);
  EXPECT_FALSE(list.isVisible());
  press(Qt::Key_Escape);
  EXPECT_EQ(field.text(), QString());
}

TEST(StorefrontMenuTest, LettersLeadToACountry) {
  StorefrontMenu menu;
  menu.setChosen("us");
  menu.popup({});
  QTest::keyClicks(&menu, u"swe"_s);
  ASSERT_NE(menu.activeAction(), nullptr);
  EXPECT_EQ(menu.activeAction()->text(), u"Sweden\tse"_s);
  QSignalSpy chosen(&menu, &StorefrontMenu::chosen);
  QTest::keyClick(&menu, Qt::Key_Return);
  EXPECT_EQ(chosen.last()[0].value<std::string>(), "se");
}

TEST_F(SearchWorldTest, TypedTextStaysUntilAnotherQueryIsShown) {
  SearchTools tools(world.world());
  auto& field = *tools.findChild<QLineEdit*>();
  StoreQuery query;
  query.request.query = "notes";
  tools.setQuery(query, "us");
  QTest::keyClicks(&field, u" app"_s);
  query.request.platform = Platform::ipad;
  tools.setQuery(query, "de");
  EXPECT_EQ(field.text(), u"notes app"_s);
  query.request.query = "mail";
  tools.setQuery(query, "de");
  EXPECT_EQ(field.text(), u"mail"_s);
}

/// The widgets that are seen, each with what contains it.
void expectNoOverlap(const QWidget& bar, int width) {
  const QList<QWidget*> parts = bar.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
  for (const QWidget* part : parts) {
    if (part->isHidden()) continue;
    EXPECT_TRUE(bar.rect().contains(part->geometry())) << width << part->metaObject()->className();
    for (const QWidget* other : parts)
      if (other != part && !other->isHidden())
        EXPECT_FALSE(part->geometry().intersects(other->geometry())) << width;
  }
}

TEST_F(SearchWorldTest, EveryWidthHasRoomForItsParts) {
  SearchTools tools(world.world());
  tools.setQuery({}, "us");
  tools.setFilters(4, true);
  SearchBar bar;
  bar.show({.filters = RandomFilters().next(),
            .shown = 23,
            .all = 200,
            .isPartial = true,
            .news = u"3 new since 12 Nov"_s,
            .canSave = true});
  bar.setVisible(true);
  tools.setVisible(true);
  for (int width = 320; width < 1400; width += 12) {
    bar.resize(width, bar.sizeHint().height());
    expectNoOverlap(bar, width);
    tools.resize(std::max(width, tools.minimumSizeHint().width()), 52);
    expectNoOverlap(tools, width);
    EXPECT_GE(tools.findChild<QLineEdit*>()->width(), 140) << width;
  }
  EXPECT_LE(tools.minimumSizeHint().width(), 400);
}

TEST_F(SearchWorldTest, WhatCanHaveTheFocusHasAName) {
  FilterPanel panel;
  SearchTools tools(world.world());
  tools.setQuery({}, "us");
  SearchBar bar;
  bar.show({.filters = RandomFilters().next(), .shown = 1, .all = 2, .canSave = true});
  SearchStart start(world.world());
  start.renew();
  settle();
  NothingFound nothing;
  nothing.show(u"Nothing matches."_s, Relief{u"41 would match without “4+ stars”"_s, {}}, true);
  for (QWidget* view : std::initializer_list<QWidget*>{&panel, &tools, &bar, &start, &nothing}) {
    EXPECT_FALSE(view->accessibleName().isEmpty()) << view->metaObject()->className();
    for (QWidget* each : view->findChildren<QWidget*>()) {
      if (each->focusPolicy() == Qt::NoFocus || qobject_cast<QMenu*>(each) != nullptr) continue;
      const auto* face = QAccessible::queryAccessibleInterface(each);
      ASSERT_NE(face, nullptr);
      EXPECT_FALSE(face->text(QAccessible::Name).isEmpty())
          << view->metaObject()->className() << ' ' << each->metaObject()->className();
    }
  }
  EXPECT_EQ(start.findChildren<QPushButton*>().size(), 1 + 1 + 3);
}

class SearchPictureTest : public SearchWorldTest, public testing::WithParamInterface<Scheme> {};

TEST_P(SearchPictureTest, LooksAsItDid) {
  auto& style = *qobject_cast<QuilletStyle*>(QApplication::style());
  style.setPalette(Palette(GetParam(), Contrast::normal));
  const AppFilters filters{.price = PriceFilter::paid,
                           .minRating = 4,
                           .updatedWithin = UpdatedFilter::sixMonths,
                           .purchases = PurchaseFilter::buyOutright};
  constexpr int kWidth = 900;
  QWidget sheet;
  sheet.resize(kWidth, 52 + 44 + 700);
  SearchTools tools(world.world());
  tools.setParent(&sheet);
  tools.setGeometry(12, 0, kWidth - 24, 52);
  tools.setQuery({.request = {.query = "markdown editor"}}, "us");
  tools.setFilters(4, true);
  SearchBar bar;
  bar.setParent(&sheet);
  bar.setGeometry(0, 52, kWidth, 44);
  bar.show({.filters = filters, .shown = 23, .all = 200, .canSave = true});
  FilterPanel panel;
  panel.setParent(&sheet);
  panel.setGeometry(0, 96, panel.width(), 700);
  panel.show(stateOf(filters));
  std::vector<std::optional<std::size_t>> counts(panel.choices().size());
  for (std::size_t i = 0; i < counts.size(); ++i) counts[i] = 200 - 3 * i;
  panel.setCounts(counts);
  SearchStart start(world.world());
  start.setParent(&sheet);
  start.setGeometry(244, 96, kWidth - 244, 700);
  sheet.setVisible(true);
  settle();
  QImage picture(sheet.size(), QImage::Format_RGB32);
  picture.fill(style.look()[Token::base]);
  if (QWidget* focused = QApplication::focusWidget()) focused->clearFocus();  // a caret blinks
  sheet.render(&picture);
  const QString scheme = GetParam() == Scheme::dark ? u"dark"_s : u"light"_s;
  EXPECT_TRUE(looksLike(u"search-%1"_s.arg(scheme), picture));
  style.setPalette(Palette(Scheme::light, Contrast::normal));
}

INSTANTIATE_TEST_SUITE_P(Schemes, SearchPictureTest, testing::Values(Scheme::light, Scheme::dark));

}  // namespace
}  // namespace quillet

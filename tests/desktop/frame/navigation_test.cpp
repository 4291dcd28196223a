// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Where the user goes in a window, and how they come back.

#include <QLabel>
#include <QLineEdit>

#include "desktop/frame/content_pane.h"
#include "desktop/frame/section_stack.h"
#include "desktop/frame/sidebar.h"
#include "desktop/frame/toolbar.h"
#include "desktop/frame/window_fixture.h"
#include "desktop/page/app_page.h"
#include "library/collections.h"

namespace quillet {
namespace {

class NavigationTest : public WindowTest {
 protected:
  /// "1 of 40", or nothing.
  std::string position() {
    for (const QLabel* label : part<Toolbar>().findChildren<QLabel*>()) {
      if (label->isVisible() && label->text().contains(QStringLiteral(" of ")))
        return label->text().toStdString();
    }
    return {};
  }
};

TEST_F(NavigationTest, BackAndForwardBringRowScrollAndTextBack) {
  open(QSize(1280, 520));
  watchlist().choose(rowOf(30));
  watchlist().list().verticalScrollBar()->setValue(64);
  run("go-alerts");
  section(SectionId::alerts).choose(rowOf(2));
  part<FindField>().setText(QStringLiteral("app 0"));
  press(Qt::Key_F, Qt::ControlModifier);
  press(Qt::Key_Return);
  run("go-history");
  EXPECT_EQ(sight(), "history - @0 ''");
  run("back");
  EXPECT_EQ(sight(), "alerts App 002 @0 'app 0'");
  EXPECT_EQ(part<FindField>().text(), QStringLiteral("app 0"));
  run("back");
  EXPECT_EQ(sight(), "watchlist App 030 @64 ''");
  EXPECT_EQ(part<FindField>().text(), QString());
  EXPECT_FALSE(action("back").isEnabled());
  run("forward");
  run("forward");
  EXPECT_EQ(sight(), "history - @0 ''");
  EXPECT_FALSE(action("forward").isEnabled());
  run("go-watchlist");
  EXPECT_EQ(sight(), "watchlist App 030 @64 ''") << "a section is found as it was left";
}

TEST_F(NavigationTest, EachSearchIsFoundAsItWasLeftAndTheLastOneInTheNextRun) {
  open();
  const auto search = [this](const char* text) { window_->obey({.newSearch = text}); };
  const auto asked = [this] {
    const auto* query = std::get_if<StoreQuery>(&section(SectionId::search).asked.what);
    return query == nullptr ? "" : query->request.query;
  };
  search("ink");
  section(SectionId::search).choose(rowOf(3));
  search("paper");
  section(SectionId::search).choose(rowOf(5));
  search("ink");
  EXPECT_EQ(sight(), "search App 003 @0 ''");
  EXPECT_EQ(asked(), "ink");
  run("go-watchlist");
  run("go-search");
  EXPECT_EQ(sight(), "search App 003 @0 ''");
  run("go-watchlist");
  open();
  run("go-search");
  EXPECT_EQ(asked(), "ink");
}

TEST_F(NavigationTest, GoingThroughRowsIsNoStep) {
  open();
  for (int i = 0; i < 5; ++i) run("next-app");
  EXPECT_EQ(sight(), "watchlist App 005 @0 ''");
  EXPECT_EQ(part<AppPage>().app(), (AppKey{5, "us"}));
  EXPECT_FALSE(action("back").isEnabled());
  run("previous-app");
  EXPECT_EQ(part<AppPage>().app(), (AppKey{4, "us"}));
}

TEST_F(NavigationTest, SeveralRowsHaveNoPageOfOne) {
  open();
  watchlist().choose(rowOf(1));
  watchlist().list().selectAll();
  EXPECT_EQ(part<AppPage>().app(), std::nullopt);
}

TEST_F(NavigationTest, ANarrowWindowShowsThePageInThePlaceOfTheList) {
  MainWindow& window = open(QSize(760, 520));
  EXPECT_FALSE(part<AppPage>().isVisible());
  EXPECT_EQ(part<Sidebar>().view().shape(), SidebarShape::rail);
  watchlist().choose(rowOf(3));
  press(Qt::Key_Return);
  EXPECT_EQ(sight(), "page");
  EXPECT_EQ(position(), "3 of 40");
  EXPECT_EQ(window.windowTitle(), QStringLiteral("App 003 — Quillet"));
  run("next-app");
  EXPECT_EQ(position(), "4 of 40");
  run("back");
  EXPECT_EQ(sight(), "watchlist App 003 @0 ''") << "as it was left";
  EXPECT_EQ(position(), "");
  run("forward");
  EXPECT_EQ(position(), "4 of 40");
  press(Qt::Key_Escape);
  EXPECT_EQ(sight(), "watchlist App 004 @0 ''") << "where the user has come meanwhile";
  EXPECT_TRUE(watchlist().list().hasFocus());
  press(Qt::Key_Escape);
  EXPECT_TRUE(part<FindField>().hasFocus());
}

TEST_F(NavigationTest, APageThatStandsAloneGetsItsListWhereThereIsRoom) {
  MainWindow& window = open(QSize(760, 520));
  watchlist().choose(rowOf(3));
  press(Qt::Key_Return);
  window.resize(1280, 800);
  handlePendingEvents();
  EXPECT_EQ(sight(), "watchlist App 003 @0 ''");
  EXPECT_TRUE(part<AppPage>().isVisible());
  EXPECT_EQ(part<Sidebar>().view().shape(), SidebarShape::full);
}

TEST_F(NavigationTest, ThePageStandsWhereTheUserWantsIt) {
  struct Row {
    int width;
    bool isUsual;  ///< side by side, left to itself
    bool canBoth;
  };
  const Row rows[] = {{1280, true, true},
                      {1121, true, true},
                      {1119, false, true},
                      {899, false, true},
                      {800, false, false}};
  for (const Row& row : rows) {
    open(QSize(row.width, 700));
    auto& content = part<ContentPane>();
    EXPECT_EQ(content.isBeside(), row.isUsual) << row.width;
    EXPECT_EQ(action("page-beside").isEnabled(), row.canBoth) << row.width;
    if (!row.canBoth) continue;
    run("page-beside");
    EXPECT_EQ(content.isBeside(), !row.isUsual) << row.width;
    run("page-beside");
    EXPECT_EQ(content.mode(), PageMode::byWidth) << row.width;
  }
}

TEST_F(NavigationTest, TheSidebarFollowsItsSelectionAndSelectsWhereTheUserIs) {
  const RowId writing = runTask(store_->change(addCollection, AppCollection{0, "Writing", "", {}}));
  open();
  library_.use(*store_);
  handlePendingEvents();
  SidebarView& places = part<SidebarView>();
  auto* model = qobject_cast<SidebarModel*>(places.model());
  const auto selected = [&] {
    return places.selectionModel()->selectedIndexes().value(0).data().toString().toStdString();
  };
  waitFor([&] {
    return model->find({SectionId::collections, writing}).data(CollectionRole).toLongLong() ==
           writing;
  });
  EXPECT_EQ(selected(), "Watchlist");
  places.setCurrentIndex(model->find({SectionId::collections, writing}));
  EXPECT_EQ(window_->windowTitle(), QStringLiteral("Collection %1 — Quillet").arg(writing));
  run("back");
  EXPECT_EQ(selected(), "Watchlist");
  EXPECT_FALSE(action("back").isEnabled()) << "what is selected for the user is no step";
  places.setFocus();
  for (const char* next :
       {"Alerts", "Collections", "Writing", "My Apps", "History", "Compare", "Compare"}) {
    press(Qt::Key_Down);
    EXPECT_EQ(selected(), next);
  }
  EXPECT_EQ(sight(), "compare - @0 ''");
  change(removeCollections, std::vector{writing});
  waitFor([&] { return model->rowCount(model->find(SectionId::collections)) == 0; });
  for (int i = 0; i < 3; ++i) run("back");
  EXPECT_EQ(selected(), "Collections") << "of a collection that is gone";
}

TEST_F(NavigationTest, ASectionsToolsAndBarStandAboveItsListAndNoOther) {
  open();
  run("go-search");
  QWidget* tools = section(SectionId::search).tools();
  QWidget* bar = section(SectionId::search).bar();
  const auto around = [&] {
    return std::string(tools->isVisible() ? "tools " : "") + (bar->isVisible() ? "bar " : "") +
           (part<FindField>().isVisible() ? "field" : "");
  };
  EXPECT_EQ(around(), "tools bar ");
  const QRect content(part<ContentPane>().mapTo(window_.get(), QPoint()),
                      part<ContentPane>().size());
  const QRect above(bar->mapTo(window_.get(), QPoint()), bar->size());
  EXPECT_EQ(above.width(), content.width());
  EXPECT_EQ(content.top() - above.top(), 44) << "with the line below";
  EXPECT_EQ(tools->mapTo(window_.get(), QPoint()).x() / 100, above.x() / 100 + 1)
      << "right of back and forward";
  section(SectionId::search).choose(rowOf(3));
  press(Qt::Key_Escape);
  QWidget* const field = tools->findChild<QLineEdit*>();
  EXPECT_TRUE(field->hasFocus());
  for (const char* next : {"Storefront", "", "Preset", "Search", "App page"}) {
    do {
      press(Qt::Key_Tab);  // past what the toolbar has for all
    } while (*next != 0 && part<Toolbar>().isAncestorOf(QApplication::focusWidget()) &&
             !tools->isAncestorOf(QApplication::focusWidget()));
    if (*next != 0) EXPECT_EQ(QApplication::focusWidget()->accessibleName().toStdString(), next);
  }
  press(Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(field->hasFocus());
  window_->resize(760, 520);
  handlePendingEvents();
  run("open");
  EXPECT_EQ(sight(), "page");
  EXPECT_EQ(around(), "");
  press(Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(around(), "tools bar ");
  EXPECT_TRUE(field->hasFocus());
  run("go-alerts");
  EXPECT_EQ(around(), "field");
}

TEST_F(NavigationTest, AWindowBehindAnotherKeepsItsFocusInWhatItShows) {
  open();
  run("go-search");
  press(Qt::Key_F, Qt::ControlModifier);
  QWidget other;
  other.show();
  other.activateWindow();
  handlePendingEvents();
  ASSERT_FALSE(window_->isActiveWindow());
  run("go-watchlist");
  EXPECT_EQ(window_->focusWidget(), &watchlist().list());
}

TEST_F(NavigationTest, ThePageMakesWayForThePanelOfFilters) {
  open(QSize(1180, 700));
  run("go-search");
  EXPECT_TRUE(part<ContentPane>().isBeside());
  run("filters");
  EXPECT_TRUE(action("filters").isChecked());
  EXPECT_FALSE(part<ContentPane>().isBeside());
  EXPECT_FALSE(action("page-beside").isEnabled());
  window_->resize(1280, 700);
  handlePendingEvents();
  EXPECT_TRUE(part<ContentPane>().isBeside());
  EXPECT_GE(part<SectionStack>().width(), 624);
  run("go-watchlist");
  EXPECT_FALSE(action("filters").isEnabled());
}

TEST_F(NavigationTest, SideButtonsOfThePointerGoBackAndForward) {
  open();
  run("go-alerts");
  QTest::mouseClick(part<AppPage>().viewport(), Qt::BackButton);
  EXPECT_EQ(sight(), "watchlist - @0 ''");
  QTest::mouseClick(watchlist().list().viewport(), Qt::ForwardButton);
  EXPECT_EQ(sight(), "alerts - @0 ''");
}

TEST_F(NavigationTest, KeysGoRoundThePanesThatAreSeen) {
  open();
  watchlist().choose(rowOf(1));
  const auto pane = [this] {
    const QWidget* focused = QApplication::focusWidget();
    if (part<Sidebar>().isAncestorOf(focused)) return "sidebar";
    if (part<Toolbar>().isAncestorOf(focused)) return "toolbar";
    if (part<SectionStack>().isAncestorOf(focused)) return "list";
    return part<AppPage>().isAncestorOf(focused) || focused == &part<AppPage>() ? "page" : "?";
  };
  EXPECT_STREQ(pane(), "list");
  for (const char* next : {"page", "sidebar", "toolbar", "list"}) {
    press(Qt::Key_F6);
    EXPECT_STREQ(pane(), next);
  }
  press(Qt::Key_F6, Qt::ShiftModifier);
  EXPECT_STREQ(pane(), "toolbar");
  run("sidebar");
  press(Qt::Key_F6, Qt::ShiftModifier);
  EXPECT_STREQ(pane(), "page");
}

TEST_F(NavigationTest, FindingLeavesRowsAndClearingBringsThemBack) {
  open();
  press(Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(&part<FindField>(), QStringLiteral("03"));
  press(Qt::Key_Return);
  EXPECT_EQ(watchlist().rows()->rowCount(), 11);
  EXPECT_TRUE(watchlist().list().hasFocus());
  EXPECT_TRUE(action("clear-filters").isEnabled());
  run("clear-filters");
  EXPECT_EQ(watchlist().rows()->rowCount(), kApps);
  EXPECT_EQ(part<FindField>().text(), QString());
  press(Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(&part<FindField>(), QStringLiteral("03"));
  press(Qt::Key_Escape);
  EXPECT_EQ(part<FindField>().text(), QString());
  EXPECT_TRUE(part<FindField>().hasFocus());
  QTest::keyClicks(&part<FindField>(), QStringLiteral("03"));
  run("go-alerts");
  EXPECT_EQ(part<FindField>().text(), QString()) << "what was typed for another list";
}

TEST_F(NavigationTest, TheChosenSortIsSaidAndKept) {
  open();
  EXPECT_EQ(part<SortButton>().text(), QStringLiteral("Sort: Name"));
  for (QAction* choice : part<SortMenu>().actions()) {
    if (choice->text() == QStringLiteral("Number")) choice->trigger();
  }
  EXPECT_EQ(part<SortButton>().text(), QStringLiteral("Sort: Number"));
  EXPECT_EQ(watchlist().rows()->at(0).key, rowOf(40));
  run("go-alerts");
  EXPECT_FALSE(part<SortButton>().isVisible());
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/main_window.h"

#include <QBackingStore>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <array>
#include <set>

#include "analysis/search_presets.h"
#include "desktop/frame/content_pane.h"
#include "desktop/frame/library_problem.h"
#include "desktop/frame/quick_open.h"
#include "desktop/frame/sidebar.h"
#include "desktop/frame/snackbar.h"
#include "desktop/frame/status_foot.h"
#include "desktop/frame/toolbar.h"
#include "desktop/frame/window_fixture.h"
#include "desktop/models/recent_searches.h"
#include "desktop/page/app_page.h"
#include "desktop/page/choice_summary.h"
#include "desktop/services/service_host.h"
#include "library/alerts.h"
#include "library/owned_apps.h"
#include "library/saved_searches.h"
#include "library/watched_apps.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

class MainWindowTest : public WindowTest {
 protected:
  /// What Search was asked for: "search 'markdown' de", with the storefront that was named.
  std::string searched() {
    const auto* query = std::get_if<StoreQuery>(&section(SectionId::search).asked.what);
    if (query == nullptr) return "search";
    return "search '" + query->request.query + "' " + query->request.country.value_or("");
  }

  /// The saved searches in the sidebar, the one that is selected in brackets.
  std::string savedSearches() {
    const auto& view = part<SidebarView>();
    const auto* model = qobject_cast<SidebarModel*>(view.model());
    const QModelIndex head = model->savedSearches();
    std::string names;
    for (int i = 0; head.isValid() && i < model->rowCount(head); ++i) {
      const QModelIndex child = model->index(i, 0, head);
      const std::string name = child.data().toString().toStdString();
      names += view.selectionModel()->isSelected(child) ? '[' + name + ']' : name;
      names += ';';
    }
    return names;
  }

  std::vector<SavedSearch> kept() { return runTask(store_->read(savedSearchesOf)); }
  static std::vector<SavedSearch> savedSearchesOf(SQLite::Database& database) {
    return quillet::savedSearches(database);
  }
};

TEST_F(MainWindowTest, RemembersWhatItWas) {
  open(QSize(790, 560));
  watchlist().choose(rowOf(9));
  part<SortMenu>().actions().back()->trigger();
  run("go-alerts");
  section(SectionId::alerts).choose(rowOf(7));
  section(SectionId::alerts).setRowView({QStringLiteral("7"), {"free"}, {}});
  run("menu-bar");
  part<ContentPane>().setListShare(0.6);
  part<ContentPane>().setMode(PageMode::alone);
  run("sidebar");
  const QRect geometry = window_->geometry();
  close();

  open({});
  EXPECT_EQ(window_->geometry(), geometry);
  const Place place = section(SectionId::alerts).place();
  EXPECT_EQ(place.rows, (RowView{QStringLiteral("7"), {"free"}, {}}));
  EXPECT_EQ(part<FindField>().text(), QStringLiteral("7"));
  EXPECT_FALSE(part<Sidebar>().isVisible());
  EXPECT_FALSE(window_->menuBar()->isVisible());
  EXPECT_EQ(part<ContentPane>().mode(), PageMode::alone);
  EXPECT_DOUBLE_EQ(part<ContentPane>().listShare(), 0.6);
  run("go-watchlist");
  EXPECT_EQ(watchlist().place().rows, (RowView{{}, {}, "number"}));
  EXPECT_EQ(watchlist().place().chosen, std::nullopt)
      << "of a section that was left before the end";
}

/// Counts the windows that the system is asked for.
class SystemWindows : public QObject {
 public:
  int count = 0;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (!watched->isWindowType() || event->type() != QEvent::PlatformSurface) return false;
    const auto what = static_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType();
    if (what == QPlatformSurfaceEvent::SurfaceCreated) ++count;
    return false;
  }
};

TEST_F(MainWindowTest, IsOneWindowOfTheSystem) {
  SystemWindows windows;
  qApp->installEventFilter(&windows);
  open();
  EXPECT_EQ(windows.count, 1) << "a part that is shown before it has a place is one more";
}

/// Notes which widgets are painted.
class Paintings : public QObject {
 public:
  std::set<QObject*> painted;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted.insert(watched);
    return false;
  }
};

TEST_F(MainWindowTest, IsPaintedWholeAfterItsSizeChanged) {
  open();
  Paintings seen;
  qApp->installEventFilter(&seen);
  for (const QSize size : {QSize(800, 600), QSize(1000, 700), QSize(1300, 800)}) {
    seen.painted.clear();
    window_->resize(size);
    handlePendingEvents();
    EXPECT_EQ(window_->backingStore()->size(), size);
    const std::array<QObject*, 3> wanted{window_.get(), &part<StatusFoot>(), &part<FindField>()};
    for (QObject* each : wanted)
      EXPECT_TRUE(seen.painted.contains(each)) << each->metaObject()->className();
  }
}

TEST_F(MainWindowTest, BearsAnyStateFile) {
  for (const char* text : {"", "[1", R"({"place":{"section":"cellar","chosen":7},"listShare":9,
                           "geometry":{"x":1e99,"width":-5,"height":"a"},"pageMode":"?",
                           "sidebarWidth":99999,"views":[],"counts":{"collections":[3]}})"}) {
    close();
    replaceFile(folder_.file().replace_filename("windows.json"), text);
    open({});
    EXPECT_EQ(sight(), *text == '{' ? "watchlist - @0 ''" : "search - @0 ''") << text;
    EXPECT_GE(window_->width(), 760) << text;
    EXPECT_GT(part<ContentPane>().widget(0)->width(), 300) << text;
  }
}

TEST_F(MainWindowTest, CountsAreThoseOfTheLastRunUntilTheLibraryIsOpen) {
  change(watchApps, std::vector{watched(1), watched(2)});
  change(addAlerts, std::vector{AlertRecord{.trackId = 1, .country = "us"}});
  const auto texts = [this] {
    std::string all;
    auto* model = qobject_cast<SidebarModel*>(part<SidebarView>().model());
    for (const SectionId id : {SectionId::watchlist, SectionId::alerts}) {
      all += model->find(id).data(Qt::AccessibleTextRole).toString().toStdString() + ';';
    }
    return all;
  };
  open();
  EXPECT_EQ(texts(), "Watchlist;Alerts;");
  library_.use(*store_);
  waitFor([&] { return texts() == "Watchlist, 2;Alerts, 1 unread;"; });
  close();
  LibraryGateway later;
  open();
  EXPECT_EQ(texts(), "Watchlist, 2;Alerts, 1 unread;");
}

TEST_F(MainWindowTest, HasButtonsForWhatSeveralAppsHaveInCommon) {
  open();
  const auto buttons = [this] {
    QList<QPushButton*> seen = part<ChoiceSummary>().findChildren<QPushButton*>();
    seen.removeIf([](const QPushButton* each) { return !each->isVisible(); });
    return seen;
  };
  watchlist().choose(rowOf(1));
  handlePendingEvents();
  EXPECT_TRUE(buttons().empty());
  run("select-all");
  QStringList texts;
  for (const QPushButton* each : buttons()) texts << each->text();
  EXPECT_EQ(texts.join(u'/').toStdString(),
            "Watch 40 Apps/Add to Collection/Add 40 Apps to My Apps/Copy 40 Links");
  buttons().back()->setFocus();
  buttons().back()->click();
  EXPECT_EQ(part<Snackbar>().text().toStdString(), "Copied 40 links.");
  watchlist().choose(rowOf(2));
  handlePendingEvents();
  EXPECT_EQ(window_->focusWidget(), &part<AppPage>()) << "not what happens to be next";
}

/// What cannot be done, by situation: all else can.
TEST_F(MainWindowTest, OffersWhatCanBeDone) {
  const std::set<std::string> noLibrary{"check-updates",
                                        "diagnostics",
                                        "export-report",
                                        "export-reviews",
                                        "install-skill",
                                        "install-tool",
                                        "print",
                                        "go-to-app",
                                        "next-unread",
                                        "refresh",
                                        "check-prices",
                                        "scan-applications",
                                        "choose-applications",
                                        "show-installed",
                                        "notify",
                                        "undo",
                                        "redo",
                                        "watch-options",
                                        "mark-read",
                                        "clear-history",
                                        "mark-all-read",
                                        "duplicate-collection",
                                        "edit-details",
                                        "edit-note",
                                        "check-price-data",
                                        "watch-at-price",
                                        "compare-another",
                                        "compare-storefronts",
                                        "rank-history"};
  const std::set<std::string> elsewhere{"cut",
                                        "paste",
                                        "compare-collection",
                                        "copy-cell",
                                        "copy-comparison",
                                        "move-column-left",
                                        "move-column-right",
                                        "export-comparison-md",
                                        "export-comparison-html",
                                        "export-comparison-csv",
                                        "upkeep",
                                        "find-replacement",
                                        "skip-version",
                                        "unskip-version",
                                        "export-collection"};
  const std::set<std::string> noCommand{"copy-command", "copy-list-command"};
  const std::set<std::string> noApp{
      "copy",  "copy-link",         "open",           "open-in-store", "previous-app",
      "watch", "add-to-collection", "add-to-my-apps", "add-to-compare"};
  const std::set<std::string> noRow{
      "copy",  "copy-link",         "open",           "open-in-store", "previous-app",
      "watch", "add-to-collection", "add-to-my-apps", "add-to-compare"};
  const std::set<std::string> noSearch{"save-search", "rename", "delete", "filters"};
  const std::set<std::string> noDeveloper{"developer-apps", "developer-website"};
  const std::set<std::string> fresh{"back", "forward", "clear-filters", "normal-text"};
  struct Row {
    const char* situation;
    void (*make)(MainWindowTest_OffersWhatCanBeDone_Test& test);
    std::vector<std::set<std::string>> unable;
  };
  using Test = MainWindowTest_OffersWhatCanBeDone_Test;
  const Row rows[] = {
      {"nothing chosen", [](Test&) {}, {noLibrary, noRow, fresh, noSearch, noDeveloper}},
      {"the first row",
       [](Test& test) { test.watchlist().choose(rowOf(1)); },
       {noLibrary, fresh, noSearch, noDeveloper, {"previous-app"}}},
      {"the last row",
       [](Test& test) { test.watchlist().choose(rowOf(kApps)); },
       {noLibrary, fresh, noSearch, noDeveloper, {"next-app"}}},
      {"all rows",
       [](Test& test) { test.watchlist().list().selectAll(); },
       {noLibrary, fresh, noSearch, noDeveloper, {"open", "open-in-store", "previous-app"}}},
      {"another section, nothing there",
       [](Test& test) {
         test.run("go-history");
         test.section(SectionId::history).setRowView({QStringLiteral("zzz"), {}, {}});
       },
       {noLibrary,
        noRow,
        noCommand,
        noSearch,
        noDeveloper,
        {"forward", "normal-text", "next-app"}}},
      {"Search, nothing asked",
       [](Test& test) { test.run("go-search"); },
       {noLibrary,
        noRow,
        noCommand,
        noDeveloper,
        {"forward", "clear-filters", "normal-text", "save-search", "rename", "delete"}}},
      {"a search that is not saved, with a filter",
       [](Test& test) {
         test.window_->obey({.newSearch = "markdown"});
         test.run("buy-once-maintained");
       },
       {noLibrary, noDeveloper, noApp, {"forward", "normal-text", "rename", "delete"}}},
      {"a record of this run",
       [](Test& test) {
         ITunesApp app;
         app.artistId = 7;
         app.sellerName = "Studio Halvorsen";
         app.sellerUrl = "https://example.com";
         test.parts_.records.keep({2, "us"}, {app, Platform::mac, {}});
         test.watchlist().choose(rowOf(2));
       },
       {noLibrary, fresh, noSearch}},
      {"narrow",
       [](Test& test) { test.open(QSize(780, 600)); },
       {noLibrary, noRow, fresh, noSearch, noDeveloper, {"page-beside"}}},
      {"the smallest text",
       [](Test& test) { test.run("smaller-text"); },
       {noLibrary,
        noRow,
        noSearch,
        noDeveloper,
        {"back", "forward", "clear-filters", "smaller-text"}}},
  };
  for (const Row& row : rows) {
    forget();
    open();
    row.make(*this);
    std::set<std::string> expected = elsewhere;
    for (const auto& set : row.unable) expected.insert(set.begin(), set.end());
    std::set<std::string> unable;
    for (const ActionRow& each : actionRows()) {
      if (each.run != nullptr && !action(std::string(each.id).c_str()).isEnabled())
        unable.emplace(each.id);
    }
    EXPECT_EQ(unable, expected) << row.situation;
  }
  run("normal-text");
}

TEST_F(MainWindowTest, TakesLinksAndCommandsAlong) {
  open();
  watchlist().choose(rowOf(2));
  run("copy-link");
  EXPECT_EQ(QGuiApplication::clipboard()->text(),
            QStringLiteral("App 002\nhttps://apps.apple.com/us/app/id2"));
  EXPECT_EQ(part<Snackbar>().text(), QStringLiteral("Copied the link."));
  run("open-in-store");
  EXPECT_EQ(prompts_.opened, std::vector<std::string>{"https://apps.apple.com/us/app/id2"});
  const QAbstractItemModel* rows = watchlist().list().model();
  watchlist().list().selectionModel()->select(QItemSelection(rows->index(0, 0), rows->index(1, 0)),
                                              QItemSelectionModel::ClearAndSelect);
  run("copy-command");
  EXPECT_EQ(QGuiApplication::clipboard()->text(),
            QStringLiteral("quillet info 1 --country us\nquillet info 2 --country us"));
  EXPECT_EQ(part<Snackbar>().text(), QStringLiteral("Copied 2 commands."));
}

TEST_F(MainWindowTest, CutsCopiesAndPastesWhereTheKeyboardIs) {
  open();
  watchlist().choose(rowOf(2));
  auto& field = part<FindField>();
  field.setFocus();
  field.setText(QStringLiteral("App"));
  field.selectAll();
  run("cut");
  EXPECT_EQ(field.text(), QString());
  window_->menuBar()->setFocus();
  run("paste");
  EXPECT_EQ(field.text(), QStringLiteral("App")) << "the menu bar has the focus while it is open";
  field.setReadOnly(true);
  watchlist().takeFocus();
  field.setFocus();
  EXPECT_FALSE(action("cut").isEnabled() || action("paste").isEnabled());
  EXPECT_TRUE(action("copy").isEnabled());
  watchlist().choose(rowOf(2));
  watchlist().takeFocus();
  EXPECT_FALSE(action("cut").isEnabled() || action("paste").isEnabled());
  press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(),
            QStringLiteral("App 002\nhttps://apps.apple.com/us/app/id2"));
}

TEST_F(MainWindowTest, OpensWhatAStartAsksFor) {
  change(watchApps, std::vector{watched(1, "de"), watched(2), watched(2, "de"), watched(3)});
  change(addOwnedApps, std::vector{owned(4)});
  struct Row {
    const char* section;
    const char* opens;
    const char* sight;
    const char* said;
  };
  const Row rows[] = {
      {"my-apps", nullptr, "my-apps - @0 ''", ""},
      {"cellar", nullptr, "watchlist - @0 ''", ""},
      {nullptr, "3", "watchlist App 003 @0 ''", ""},
      {nullptr, "https://apps.apple.com/de/app/paperfold/id2?mt=8", "watchlist - @0 ''", ""},
      {nullptr, "https://apps.apple.com/fr/app/id3", "watchlist App 003 @0 ''", ""},
      {"alerts", "4", "my-apps App 004 @0 ''", ""},
      {nullptr, "99", "search '99' ", ""},
      {nullptr, "https://apps.apple.com/de/app/id99",
       "search 'https://apps.apple.com/de/app/id99' de", ""},
      {nullptr, "com.example.app", "search 'com.example.app' ", ""},
      {nullptr, "example app.", "watchlist - @0 ''", "That is no link to an app."},
      {nullptr, "", "watchlist - @0 ''", "That is no link to an app."},
  };
  for (const Row& row : rows) {
    forget();
    open();
    DesktopArguments asked;
    if (row.section != nullptr) asked.section = row.section;
    if (row.opens != nullptr) asked.opens = row.opens;
    window_->obey(asked);
    if (!library_.isOpen()) library_.use(*store_);
    const std::string what =
        std::string(row.section ? row.section : "") + (row.opens ? row.opens : "");
    runTask(store_->read([](SQLite::Database&) { return 0; }));
    runTask(store_->read([](SQLite::Database&) { return 0; }));
    handlePendingEvents();
    EXPECT_EQ(made_[SectionId::search] ? searched() : sight(), row.sight) << what;
    EXPECT_EQ(part<Snackbar>().isVisible() ? part<Snackbar>().text().toStdString() : "", row.said)
        << what;
  }
  clock_.advance(10s);
  EXPECT_FALSE(part<Snackbar>().isVisible());
}

TEST_F(MainWindowTest, LeadsFromOneUnreadAlertToTheNext) {
  const auto alert = [](std::int64_t trackId, bool isRead) {
    return AlertRecord{.trackId = trackId,
                       .country = "us",
                       .date = dayAndSecond(static_cast<int>(trackId)),
                       .isRead = isRead};
  };
  change(addAlerts, std::vector{alert(1, false), alert(2, true), alert(3, false)});
  open();
  library_.use(*store_);
  waitFor([&] {
    return part<SidebarView>().model()->index(0, 0).isValid() &&
           action("check-prices").isEnabled() == false &&
           qobject_cast<SidebarModel*>(part<SidebarView>().model())
                   ->find(SectionId::alerts)
                   .data(BadgeRole)
                   .toString() == u"2";
  });
  std::vector<std::int64_t> seen;
  for (int i = 0; i < 3; ++i) {
    run("next-unread");
    runTask(store_->read([](SQLite::Database&) { return 0; }));
    handlePendingEvents();
    seen.push_back(section(SectionId::alerts).asked.chosen->app.trackId);
  }
  EXPECT_EQ(seen, (std::vector<std::int64_t>{3, 1, 3}));
}

TEST_F(MainWindowTest, FindsAnAppInAllListsByWhatItsNameHolds) {
  change(watchApps, std::vector{watched(1), watched(2)});
  change(addOwnedApps, std::vector{owned(4, "Folding <b>Ruler</b>")});
  open();
  library_.use(*store_);
  part<QuickOpen>().open();
  auto* list = part<QuickOpen>().findChild<QAbstractItemView*>();
  const auto found = [&] {
    std::string names;
    for (int i = 0; i < list->model()->rowCount(); ++i)
      names +=
          list->model()->index(i, 0).data(Qt::AccessibleTextRole).toString().toStdString() + ';';
    return names;
  };
  waitFor([&] { return list->model()->rowCount() == 3; });
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("FOLD"));
  EXPECT_EQ(found(),
            "Folding <b>Ruler</b>, My Apps;Paperfold 2, Watchlist;Paperfold 1, Watchlist;"
            "Search the store for “FOLD”;");
  press(Qt::Key_Down);
  press(Qt::Key_Down);
  press(Qt::Key_Return);
  EXPECT_FALSE(part<QuickOpen>().isVisible());
  EXPECT_EQ(sight(), "watchlist App 001 @0 ''");
  part<QuickOpen>().open();
  press(Qt::Key_Escape);
  EXPECT_FALSE(part<QuickOpen>().isVisible());
}

TEST_F(MainWindowTest, SearchesTheStoreForWhatIsInNoList) {
  change(watchApps, std::vector{watched(1)});
  open();
  library_.use(*store_);
  run("go-search");
  part<QuickOpen>().open();
  auto* list = part<QuickOpen>().findChild<QAbstractItemView*>();
  waitFor([&] { return list->model()->rowCount() == 1; });
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral(" paper "));
  ASSERT_EQ(list->model()->rowCount(), 2);
  EXPECT_EQ(list->model()->index(1, 0).data(Qt::AccessibleTextRole),
            QStringLiteral("Search the store for “paper”"));
  press(Qt::Key_Down);
  press(Qt::Key_Return);
  EXPECT_EQ(searched(), "search 'paper' ");
  EXPECT_TRUE(section(SectionId::search).list().hasFocus());
}

TEST_F(MainWindowTest, NewSearchesAreForThePlatformOfTheSettings) {
  parts_.settings.write({{"defaultPlatform", "ipad"}});
  for (const char* begin : {"a text", "a preset"}) {
    forget();
    open();
    if (begin == std::string("a text"))
      window_->obey({.newSearch = "markdown"});
    else
      run("buy-once-maintained");
    const auto* query = std::get_if<StoreQuery>(&section(SectionId::search).asked.what);
    ASSERT_NE(query, nullptr) << begin;
    EXPECT_EQ(query->request.platform, Platform::ipad) << begin;
  }
}

TEST_F(MainWindowTest, SavesTheSearchThatIsShown) {
  open();
  library_.use(*store_);
  settle();
  window_->obey({.newSearch = "markdown"});
  run("buy-once-maintained");
  const auto field = [this] { return window_->findChild<QDialog*>()->findChild<QLineEdit*>(); };
  const auto save = [this] {
    for (QPushButton* button : window_->findChild<QDialog*>()->findChildren<QPushButton*>()) {
      if (button->isDefault()) return button;
    }
    return static_cast<QPushButton*>(nullptr);
  };
  press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(field()->text(), QStringLiteral("markdown"));
  field()->setText(QStringLiteral(" "));
  EXPECT_FALSE(save()->isEnabled());
  field()->setText(QStringLiteral(" Bought  once "));
  press(Qt::Key_Return);
  waitFor([&] { return savedSearches() == "[Bought once];"; });
  EXPECT_EQ(kept().front().country, "us");
  EXPECT_EQ(savedQueryOf(kept().front()).query.request.filters, searchPresets().front().filters);
  run("clear-filters");
  EXPECT_EQ(savedSearches(), "Bought once;") << "with other filters it is another search";
  press(Qt::Key_S, Qt::ControlModifier);
  field()->setText(QStringLiteral("bought ONCE"));
  EXPECT_EQ(save()->text(), QStringLiteral("Replace"));
  press(Qt::Key_Return);
  waitFor([&] { return savedSearches() == "[bought ONCE];"; });
  EXPECT_EQ(kept().size(), 1U);
  run("copy-command");
  EXPECT_EQ(QGuiApplication::clipboard()->text(),
            QStringLiteral("quillet search \"markdown\" --country us --json"));
}

TEST_F(MainWindowTest, RunsNamesAndDeletesSavedSearchesByKeys) {
  const auto search = [](const char* name) {
    return SavedSearch{.name = name,
                       .query = "notes",
                       .platformRaw = "mac",
                       .country = name == std::string("Notes") ? "us" : "de",
                       .sortRaw = "rating",
                       .filtersJSON = R"({"price":"paid"})"};
  };
  const RowId notes = runTask(store_->change(addSavedSearch, search("Notes")));
  change(addSavedSearch, search("Zettel"));
  open();
  library_.use(*store_);
  waitFor([&] { return savedSearches() == "Notes;Zettel;"; });
  part<SidebarView>().setFocus();
  press(Qt::Key_End);
  press(Qt::Key_Return);
  EXPECT_EQ(searched(), "search 'notes' de");
  part<SidebarView>().setFocus();
  press(Qt::Key_Up);
  EXPECT_EQ(searched(), "search 'notes' de") << "before the keys rest";
  press(Qt::Key_Return);
  EXPECT_EQ(searched(), "search 'notes' ") << "the user's own storefront is not named";
  waitFor([&] { return kept().front().lastUsedAt.has_value(); });
  EXPECT_EQ(section(SectionId::search).renewed, 2);
  part<SidebarView>().setFocus();
  press(Qt::Key_Return);
  EXPECT_EQ(section(SectionId::search).renewed, 3) << "it is run, though it is shown already";

  press(Qt::Key_F2);
  auto* field = window_->findChild<QDialog*>()->findChild<QLineEdit*>();
  field->setText(QStringLiteral("zettel"));
  press(Qt::Key_Return);
  EXPECT_TRUE(field->isVisible()) << "another one has this name";
  field->setText(QStringLiteral("Writing"));
  press(Qt::Key_Return);
  waitFor([&] { return savedSearches() == "[Writing];Zettel;"; });

  press(Qt::Key_Delete);
  settle();
  EXPECT_EQ(kept().size(), 2U) << "the focus is on the rows that were found";
  part<SidebarView>().setFocus();
  press(Qt::Key_Delete);
  waitFor([&] { return savedSearches() == "Zettel;"; });
  EXPECT_EQ(searched(), "search 'notes' ") << "what is shown stays";
  EXPECT_EQ(part<Snackbar>().text(), QStringLiteral("Deleted “Writing”."));
  press(Qt::Key_F6, Qt::ShiftModifier);
  clock_.advance(11s);
  ASSERT_TRUE(part<Snackbar>().isVisible()) << "while its button has the focus";
  press(Qt::Key_Space);
  waitFor([&] { return savedSearches() == "[Writing];Zettel;"; });
  EXPECT_EQ(kept().front().id, notes);
  EXPECT_TRUE(part<SidebarView>().hasFocus());
  EXPECT_EQ(part<Snackbar>().text(), QStringLiteral("Undone: Delete “Writing”."));
  const QAction& redo = action("redo");
  waitFor([&] { return redo.text() == QStringLiteral("Redo Delete “Writing”"); });
  press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  waitFor([&] { return savedSearches() == "Zettel;"; });
  EXPECT_FALSE(redo.isEnabled());
  press(Qt::Key_Z, Qt::ControlModifier);
  press(Qt::Key_Z, Qt::ControlModifier);
  waitFor([&] { return savedSearches() == "[Notes];Zettel;"; });
  EXPECT_EQ(kept().front().id, notes);
}

TEST_F(MainWindowTest, AHistoryThatIsBackStandsBehindWhatWasSearchedForSince) {
  open();
  library_.use(*store_);
  const QString key = QString::fromLatin1(kRecentSearchesKey);
  const auto searchFor = [&](const char* words) {
    state_->setValue(key, withRecentSearch(state_->value(key), {.query = words}));
  };
  const auto expect = [&](const std::string& all) {
    std::string words;
    for (const SearchRequest& each : recentSearches(state_->value(key))) words += each.query + ' ';
    EXPECT_EQ(words, all);
  };
  searchFor("ink");
  searchFor("paper");
  action("clear-history")
      .setEnabled(true);  // as once the services are there, which it leaves alone
  run("clear-history");
  waitFor([&] { return action("undo").isEnabled(); });
  expect("");
  searchFor("ink");
  searchFor("quill");
  run("undo");
  waitFor([&] { return action("redo").isEnabled(); });
  expect("quill ink paper ");
  run("redo");
  waitFor([&] { return action("undo").isEnabled(); });
  expect("");
  run("undo");
  waitFor([&] { return action("redo").isEnabled(); });
  expect("quill ink paper ");
}

TEST_F(MainWindowTest, SaysThatAChangeOfASavedSearchFailed) {
  change(addSavedSearch, SavedSearch{.name = "Notes", .query = "notes", .country = "us"});
  open();
  library_.use(*store_);
  waitFor([&] { return savedSearches() == "Notes;"; });
  part<SidebarView>().setFocus();
  press(Qt::Key_End);
  press(Qt::Key_Return);
  change([](WriteTransaction& all) {
    all.database.exec("ALTER TABLE ZSAVEDSEARCH RENAME TO ZELSEWHERE");
  });
  const auto said = [this] { return part<Snackbar>().text().toStdString(); };
  part<SidebarView>().setFocus();
  press(Qt::Key_Delete);
  waitFor([&] { return part<Snackbar>().isVisible(); });
  const std::string reason = " The library could not be changed: no such table: ZSAVEDSEARCH.";
  EXPECT_EQ(said(), "“Notes” was not deleted." + reason);
  press(Qt::Key_F2);
  window_->findChild<QDialog*>()->findChild<QLineEdit*>()->setText(QStringLiteral("Writing"));
  press(Qt::Key_Return);
  waitFor([&] { return said() == "“Notes” was not renamed." + reason; });
  press(Qt::Key_S, Qt::ControlModifier);
  press(Qt::Key_Return);
  waitFor([&] { return said() == "“notes” was not saved." + reason; });
}

class Notifications final : public NotificationCenter {
 public:
  Task<AuthorizationStatus> authorizationStatus(StopToken /*stop*/) override { co_return status; }
  Task<> requestAuthorization(StopToken /*stop*/) override {
    status = AuthorizationStatus::authorized;
    co_return;
  }
  Task<> add(NotificationRequest /*request*/, StopToken /*stop*/) override { co_return; }
  [[nodiscard]] std::vector<std::string> shown() const override { return {}; }
  void withdraw(const std::string& /*identifier*/) override {}

  AuthorizationStatus status = AuthorizationStatus::notDetermined;
};

TEST_F(MainWindowTest, ChecksPricesAndAllowsNotificationsOnceTheServicesAreThere) {
  change(watchApps, std::vector{watched(1)});
  store_.reset();
  Notifications notifications;
  const auto host =
      runTask(ServiceHost::open({.library = folder_.file(),
                                 .endpoints = {"https://store.example", "https://web.example", ""},
                                 .timeZone = [](Instant) { return 0s; },
                                 .http = http_,
                                 .clock = clock_,
                                 .settings = settings_,
                                 .notifications = notifications,
                                 .random = [] { return 0.5; },
                                 .storefront = [] { return "us"; },
                                 .log = [](const std::string&) {}}));
  open();
  const auto foot = [&] { return part<StatusFoot>().accessibleName().toStdString(); };
  EXPECT_EQ(foot(), "Not checked yet");
  window_->useHost(*host);
  library_.use(host->store());
  const std::string lookup = "https://store.example/lookup?id=1&country=us";
  http_.hold(lookup);
  run("check-prices");
  waitFor([&] { return foot() == "Checking 0 of 1"; });
  EXPECT_FALSE(action("check-prices").isEnabled());
  EXPECT_FALSE(action("refresh").isEnabled()) << "of the watchlist";
  run("go-history");
  run("refresh");
  EXPECT_EQ(section(SectionId::history).refreshed, 1);
  http_.answer(lookup, 200, R"({"results":[{"trackId":1,"trackName":"Paperfold","price":4.99}]})");
  http_.release(lookup);
  waitFor([&] { return action("check-prices").isEnabled(); });
  EXPECT_EQ(foot(), "Checked just now");
  run("notify");
  waitFor([&] { return !action("notify").isEnabled(); });
  close();
  runTask(host->shutDown());
}

TEST_F(MainWindowTest, SaysWhyTheLibraryIsClosedAndWhatToDo) {
  struct Row {
    DatabaseError::Kind kind;
    const char* advice;
  };
  const Row rows[] = {{DatabaseError::Kind::failed, "See that its folder can be read"},
                      {DatabaseError::Kind::inUse, "End the other one"},
                      {DatabaseError::Kind::newer, "Update Quillet"},
                      {DatabaseError::Kind::foreign, "Move that file away"}};
  open();
  for (const Row& row : rows) {
    window_->showProblem(DatabaseError("So it is.", row.kind), "/the/library.store");
    std::string texts;
    for (const QLabel* label : part<LibraryProblem>().findChildren<QLabel*>())
      texts += label->text().toStdString() + '\n';
    EXPECT_NE(texts.find("So it is."), std::string::npos);
    EXPECT_NE(texts.find(row.advice), std::string::npos) << texts;
    EXPECT_NE(texts.find("/the/library.store"), std::string::npos);
  }
  EXPECT_TRUE(part<LibraryProblem>().isVisible());
  EXPECT_FALSE(part<ContentPane>().isVisible());
  EXPECT_FALSE(action("find").isEnabled());
  int tries = 0;
  QObject::connect(window_.get(), &MainWindow::triedAgain, &context_, [&] { ++tries; });
  QTest::mouseClick(part<LibraryProblem>().findChild<QPushButton*>(), Qt::LeftButton);
  EXPECT_EQ(tries, 1);
}

}  // namespace
}  // namespace quillet

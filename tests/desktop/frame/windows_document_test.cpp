// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// The windows as a screen reader and a keyboard have them: every widget that takes the focus has a
// role, and a name of its own in its pane; no key is taken twice; and docs/windows.md says so.

#include <QAccessible>
#include <QDialog>
#include <QToolButton>
#include <sstream>

#include "analysis/search_presets.h"
#include "desktop/dialogs/export_library.h"
#include "desktop/dialogs/import_preview.h"
#include "desktop/dialogs/remove_everything.h"
#include "desktop/dialogs/settings_page.h"
#include "desktop/dialogs/settings_window.h"
#include "desktop/dialogs/welcome_window.h"
#include "desktop/frame/about_window.h"
#include "desktop/frame/action_set.h"
#include "desktop/frame/collection_chooser.h"
#include "desktop/frame/collection_dialog.h"
#include "desktop/frame/content_pane.h"
#include "desktop/frame/guide_window.h"
#include "desktop/frame/library_problem.h"
#include "desktop/frame/menus.h"
#include "desktop/frame/name_dialog.h"
#include "desktop/frame/owned_details_dialog.h"
#include "desktop/frame/owned_finder.h"
#include "desktop/frame/quick_open.h"
#include "desktop/frame/shortcuts_window.h"
#include "desktop/frame/sidebar_view.h"
#include "desktop/frame/window_fixture.h"
#include "desktop/page/watch_options.h"
#include "desktop/sections/alerts/alerts_section.h"
#include "desktop/sections/charts/charts_section.h"
#include "desktop/sections/collections/collections_section.h"
#include "desktop/sections/compare/compare_section.h"
#include "desktop/sections/deals/deals_section.h"
#include "desktop/sections/history/history_section.h"
#include "desktop/sections/my_apps/my_apps_section.h"
#include "desktop/sections/search/search_section.h"
#include "desktop/sections/watchlist/watchlist_section.h"
#include "library/alerts.h"
#include "library/cached_apps.h"
#include "library/collections.h"
#include "library/deals.h"
#include "library/owned_apps.h"
#include "library/watched_apps.h"
#include "support/place.h"

namespace quillet {
namespace {

using Lines = std::vector<std::string>;

/// As the accessibility bus calls them.
std::string roleName(QAccessible::Role role) {
  switch (role) {
    case QAccessible::Button:
    case QAccessible::ButtonMenu: return "push button";
    case QAccessible::CheckBox: return "check box";
    case QAccessible::RadioButton: return "radio button";
    case QAccessible::EditableText: return "text";
    case QAccessible::StaticText: return "label";
    case QAccessible::List: return "list";
    case QAccessible::Table: return "table";
    case QAccessible::Tree: return "tree";
    case QAccessible::Client: return "filler";
    case QAccessible::Link: return "link";
    case QAccessible::ComboBox: return "combo box";
    case QAccessible::SpinBox: return "spin button";
    case QAccessible::Slider: return "slider";
    default: return "role " + std::to_string(role);
  }
}

QAccessibleInterface& accessibleOf(QWidget& widget) {
  return *QAccessible::queryAccessibleInterface(&widget);
}

std::string nameOf(QWidget& widget) {
  return accessibleOf(widget).text(QAccessible::Name).toStdString();
}

bool isPane(QWidget& widget) {
  const QAccessible::Role role = accessibleOf(widget).role();
  return (role == QAccessible::Client || role == QAccessible::Pane || role == QAccessible::Dialog ||
          role == QAccessible::Window || role == QAccessible::Grouping) &&
         !widget.accessibleName().isEmpty();
}

/// The nearest one around it that has a name.
std::string paneOf(QWidget& widget) {
  for (QWidget* above = widget.parentWidget(); above != nullptr; above = above->parentWidget()) {
    if (isPane(*above)) return above->accessibleName().toStdString();
    if (above->isWindow()) return above->windowTitle().toStdString();
  }
  return {};
}

/// What the tab key reaches, in its order, from `first` on.
std::vector<QWidget*> tabOrder(QWidget& window, QWidget& first) {
  std::vector<QWidget*> order;
  QWidget* at = &first;
  do {
    const bool isReached = at->isVisibleTo(&window) && at->focusProxy() == nullptr &&
                           (at->focusPolicy() & Qt::TabFocus) != 0;
    if (isReached && (at == &window || window.isAncestorOf(at))) order.push_back(at);
    at = at->nextInFocusChain();
  } while (at != &first);
  return order;
}

/// The lines of the document for what the tab key reaches; `panes` picks some.
Lines lines(const std::vector<QWidget*>& order, const std::set<std::string>& panes = {}) {
  Lines lines;
  for (QWidget* widget : order) {
    const std::string pane = paneOf(*widget);
    const std::string name = nameOf(*widget);
    EXPECT_NE(name, "") << widget->metaObject()->className() << " in " << pane;
    if (!panes.empty() && !panes.contains(pane)) continue;
    lines.push_back("| " + pane + " | " + roleName(accessibleOf(*widget).role()) + " | " + name +
                    " |");
  }
  const std::set<std::string> once(lines.begin(), lines.end());
  EXPECT_EQ(once.size(), lines.size()) << "two of one role and name in a pane";
  return lines;
}

/// The rows of the table below a heading of the document.
Lines documented(const std::string& heading) {
  std::istringstream document(readWholeFile(placeOf(QUILLET_WINDOWS_DOCUMENT), 1 << 20));
  Lines rows;
  bool isThere = false;
  int skipped = 0;
  for (std::string line; std::getline(document, line);) {
    if (line.starts_with("#")) isThere = line == "## " + heading;
    if (isThere && line.starts_with("|") && ++skipped > 2) rows.push_back(line);
  }
  return rows;
}

testing::AssertionResult isDocumented(const std::string& heading, const Lines& rows) {
  if (documented(heading) == rows) return testing::AssertionSuccess();
  testing::AssertionResult result = testing::AssertionFailure();
  result << "below \"" << heading << "\" docs/windows.md has to say:\n";
  for (const std::string& row : rows) result << row << '\n';
  return result;
}

TEST(WindowsDocument, NamesEveryActionAndItsKeys) {
  Lines rows;
  std::map<QString, std::string_view> takenBy;
  for (const ActionRow& row : actionRows()) {
    const QString keys = keysOf(row);
    rows.push_back("| " + menuTitle(row.menu).toStdString() + " | " + textOf(row).toStdString() +
                   " | " + keys.toStdString() + " | `" + std::string(row.id) + "` |");
    for (const QString& key : keys.split(QStringLiteral(", "), Qt::SkipEmptyParts)) {
      EXPECT_TRUE(takenBy.emplace(key, row.id).second)
          << key.toStdString() << " of " << row.id << " and " << takenBy[key];
    }
  }
  EXPECT_TRUE(isDocumented("Actions", rows));
}

TEST(ActionRows, HaveOneForEachPreset) {
  for (const SearchPreset& preset : searchPresets()) {
    const auto row = std::ranges::find(actionRows(), preset.identifier, &ActionRow::id);
    ASSERT_NE(row, actionRows().end()) << preset.identifier;
    EXPECT_EQ(row->text, preset.title);
  }
}

class WindowsDocumentTest : public WindowTest {
 protected:
  /// A library with an app in each list.
  void fill() {
    CachedApp app = cached(1, "Paperfold");
    app.trackViewUrl = "https://apps.apple.com/us/app/id1";
    change(recordView, app, dayAndSecond(3));
    change(watchApps, std::vector{watched(1)});
    change(addOwnedApps, std::vector{owned(1)});
    change(addAlerts, std::vector{AlertRecord{.trackId = 1,
                                              .country = "us",
                                              .appName = "Paperfold",
                                              .kindRaw = "wentFree",
                                              .date = dayAndSecond(2)}});
    const RowId writing =
        runTask(store_->change(addCollection, AppCollection{0, "Writing", "pencil", {}}));
    change(addEntries, writing, std::vector{entry(1)});
    change(keepDeals, std::vector{Deal{.trackId = 1,
                                       .country = "us",
                                       .name = "Paperfold",
                                       .kind = "mac-software",
                                       .wasPrice = 4,
                                       .nowPrice = 2,
                                       .percentOff = 50}});
  }

  SectionMakers makers() override {
    return {{SectionId::search, makeSearch},  {SectionId::charts, makeCharts},
            {SectionId::deals, makeDeals},    {SectionId::watchlist, makeWatchlist},
            {SectionId::alerts, makeAlerts},  {SectionId::collections, makeCollections},
            {SectionId::myApps, makeMyApps},  {SectionId::history, makeHistory},
            {SectionId::compare, makeCompare}};
  }

  Lines reached(const std::set<std::string>& panes) {
    return lines(tabOrder(*window_, part<SidebarView>()), panes);
  }
};

TEST_F(WindowsDocumentTest, NamesWhatTheWindowConsistsOf) {
  fill();
  library_.use(*store_);
  open();
  parts_.compared->add({{1, "us"}});
  settle();
  EXPECT_TRUE(isDocumented("Around the content", reached({"Sidebar", "Toolbar"})));
  for (const SectionFace& face : kSectionFaces) {
    if (!makers().contains(face.id)) continue;
    run(face.actionId);
    settle();
    Lines rows = reached({});
    EXPECT_EQ(rows.front(), "| Sidebar | tree | Places |");
    std::erase_if(rows, [](const std::string& row) {
      return row.starts_with("| Sidebar ") || row.starts_with("| Toolbar ");
    });
    EXPECT_TRUE(isDocumented(face.name, rows));
  }
}

TEST_F(WindowsDocumentTest, NamesTheBoardOfMyApps) {
  fill();
  CachedApp record = cached(1);
  record.currentVersionReleaseDate = clock_.now();
  record.needsRosetta = true;
  change(recordView, record, clock_.now());
  library_.use(*store_);
  open();
  run("go-my-apps");
  settle();
  run("upkeep");
  settle();
  Lines rows = reached({});
  std::erase_if(rows, [](const std::string& row) {
    return row.starts_with("| Sidebar ") || row.starts_with("| Toolbar ");
  });
  EXPECT_TRUE(isDocumented("Upkeep of My Apps", rows));
}

TEST_F(WindowsDocumentTest, KeysGoToTheListOfTheSectionThatIsShown) {
  fill();
  library_.use(*store_);
  open();
  parts_.compared->add({{1, "us"}});
  settle();
  for (const SectionFace& face : kSectionFaces) {
    if (!makers().contains(face.id)) continue;
    run(face.actionId);
    settle();
    ASSERT_NE(window_->focusWidget(), nullptr) << face.name;
    // In Search, before anything is asked.
    const std::string name = face.id == SectionId::search ? "Search the App Store" : face.name;
    EXPECT_EQ(nameOf(*window_->focusWidget()), name);
  }
}

TEST_F(WindowsDocumentTest, NamesWhatStandsBesideIt) {
  open(QSize(760, 520));
  run("go-watchlist");
  part<ContentPane>().setSpan(PageSpan::alone);
  EXPECT_TRUE(isDocumented("Where the page stands alone", reached({"Toolbar"})));
  part<QuickOpen>().open();
  EXPECT_TRUE(isDocumented("Go to App", reached({"Go to App"})));
  part<OwnedFinder>().open();
  EXPECT_TRUE(isDocumented("Add to My Apps", reached({"Add to My Apps"})));
  NameDialog dialog(
      {QStringLiteral("Save Search"), QStringLiteral("notes"), QStringLiteral("Save"), {}, {}},
      nullptr);
  dialog.setAttribute(Qt::WA_DeleteOnClose, false);
  EXPECT_TRUE(isDocumented("Save Search", lines(tabOrder(dialog, dialog))));
  WatchOptionsDialog options({parts_.world(), std::make_shared<const LocaleFormats>(UserLocale())},
                             {watched(1)}, 2.99, nullptr);
  options.setAttribute(Qt::WA_DeleteOnClose, false);
  EXPECT_TRUE(isDocumented("Watch options", lines(tabOrder(options, options))));
  CollectionDialog collection({QStringLiteral("New Collection"),
                               QStringLiteral("Writing"),
                               QStringLiteral("Create"),
                               QString(),
                               {},
                               {}},
                              "pencil", nullptr);
  collection.setAttribute(Qt::WA_DeleteOnClose, false);
  EXPECT_TRUE(isDocumented("New Collection", lines(tabOrder(collection, collection))));
  OwnedDetailsDialog details(owned(1), "USD", nullptr);
  details.setAttribute(Qt::WA_DeleteOnClose, false);
  EXPECT_TRUE(isDocumented("Details", lines(tabOrder(details, details))));
  part<CollectionChooser>().open({{{1, "us"}, QString()}});
  EXPECT_TRUE(isDocumented("Add to Collection", reached({"Add to Collection"})));
  window_->showProblem(DatabaseError("It is damaged."), "/library");
  EXPECT_TRUE(isDocumented("A library that cannot be opened", reached({"Library"})));
  ShortcutsWindow shortcuts(nullptr);
  EXPECT_TRUE(isDocumented("Keyboard Shortcuts", lines(tabOrder(shortcuts, shortcuts))));
  GuideWindow guide(nullptr);
  EXPECT_TRUE(isDocumented("Quillet Help", lines(tabOrder(guide, guide))));
  AboutWindow about(nullptr);
  EXPECT_TRUE(isDocumented("About Quillet", lines(tabOrder(about, about))));
}

TEST_F(WindowsDocumentTest, NamesTheSettingsAndWhatSomebodyNewIsAsked) {
  struct StubItem final : LoginItem {
    [[nodiscard]] bool isEnabled() const override { return false; }
    void enable() override {}
    void disable() override {}
  } item;
  struct StubNotifications final : NotificationChoice {
    [[nodiscard]] std::optional<AuthorizationStatus> status() const override {
      return AuthorizationStatus::authorized;
    }
    void refresh() override {}
    void allow() override {}
    void refuse() override {}
    void showTest() override {}
  } notifications;
  Updates updates({http_, clock_, parts_.settings, parts_.state, "1", "/nowhere/quillet"});
  const SystemChoices system{.storefront = "us",
                             .loginItem = &item,
                             .notifications = &notifications,
                             .library = "/nowhere/default.store",
                             .updates = &updates};
  for (const auto& [id, title] : {std::pair("general", "General"),
                                  {"watchlist", "Watchlist"},
                                  {"notifications", "Notifications"},
                                  {"maintenance", "Maintenance"},
                                  {"appearance", "Appearance"},
                                  {"data", "Data"},
                                  {"privacy", "Privacy & storage"},
                                  {"updates", "Updates & tools"}}) {
    parts_.state.setValue(QStringLiteral("settingsPage"), QString::fromLatin1(id));
    SettingsWindow settings(parts_.world(), system, nullptr);
    settings.show();
    EXPECT_TRUE(
        isDocumented(std::string("Settings: ") + title, lines(tabOrder(settings, settings))));
  }
  runTask(parts_.images.size());
  handlePendingEvents();
  ReadLibrary shelf{std::make_shared<LibraryExport>(LibraryExport{
                        {}, {{1, "us", "mac", "Paperfold", 0, {}, true, true, true, {}}}, {}}),
                    {.watchlist = {ImportFate::added}}};
  ImportPreviewDialog preview(QStringLiteral("shelf.json"), shelf, parts_.world(), nullptr);
  preview.setAttribute(Qt::WA_DeleteOnClose, false);
  EXPECT_TRUE(isDocumented("Import Library", lines(tabOrder(preview, preview))));
  ExportLibraryDialog exporting(shelf.document, ExportFormat::json, {}, parts_.world(), nullptr);
  exporting.setAttribute(Qt::WA_DeleteOnClose, false);
  EXPECT_TRUE(isDocumented("Export Library", lines(tabOrder(exporting, exporting))));
  RemoveEverythingDialog removal(parts_.world(), {}, nullptr);
  removal.setAttribute(Qt::WA_DeleteOnClose, false);
  removal.show();
  EXPECT_TRUE(isDocumented("Remove all library data?", lines(tabOrder(removal, removal))));
  WelcomeWindow welcome(parts_.world(), system, nullptr);
  welcome.show();
  for (const char* heading :
       {"Welcome", "Welcome: Notifications", "Welcome: My Apps", "Welcome: In the background"}) {
    EXPECT_TRUE(isDocumented(heading, lines(tabOrder(welcome, welcome))));
    for (QAbstractButton* each : welcome.findChildren<QAbstractButton*>()) {
      if (each->text() == u"Skip") each->click();
    }
  }
}

TEST_F(WindowsDocumentTest, EveryButtonWithoutATextSaysWhatItDoes) {
  open();
  for (QToolButton* button : window_->findChildren<QToolButton*>()) {
    if (button->isVisibleTo(window_.get())) EXPECT_NE(button->toolTip(), QString());
  }
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/window_parts.h"

#include <QLocale>
#include <QMenuBar>
#include <algorithm>
#include <array>

#include "desktop/frame/menus.h"
#include "desktop/models/row_filter_model.h"

namespace quillet {

namespace {

std::vector<SectionId> sectionsOf(const SectionMakers& makers) {
  std::vector<SectionId> sections;
  for (const SectionFace& face : kSectionFaces) {
    if (makers.contains(face.id)) sections.push_back(face.id);
  }
  return sections;
}

struct SelectorRow {
  Selector which;
  std::string_view row;
};
constexpr std::array kSelectors{
    SelectorRow{Selector::chart, "chart"}, SelectorRow{Selector::platform, "platform"},
    SelectorRow{Selector::storefront, "storefront"}, SelectorRow{Selector::category, "category"}};

std::vector<SelectorMenu*> selectorMenus(QWidget& window) {
  std::vector<SelectorMenu*> menus;
  for (const SelectorRow& each : kSelectors) {
    const auto row = std::ranges::find(actionRows(), each.row, &ActionRow::id);
    menus.push_back(new SelectorMenu(each.which, *row, &window));
  }
  return menus;
}

/// A menu in the place of a row of the menu bar, which names it.
QMenu* submenuOf(std::string_view id, QWidget& window) {
  const auto row = std::ranges::find(actionRows(), id, &ActionRow::id);
  auto* menu = new QMenu(textOf(*row), &window);
  menu->menuAction()->setObjectName(
      QString::fromUtf8(id.data(), static_cast<qsizetype>(id.size())) + QStringLiteral("-menu"));
  return menu;
}

QString positionText(const RowPosition& position) {
  if (position.at < 0) return {};
  return MainWindow::tr("%1 of %2")
      .arg(QLocale().toString(position.at + 1), QLocale().toString(position.of));
}

}  // namespace

MainWindow::Parts::Parts(MainWindow& window, const WindowWorld& world)
    : kept(world.views.settings),
      settings(window, world.views, world.system),
      memory(world.views.state),
      host(world.views.storefront),
      places(sectionsOf(world.sections)),
      counts(world.views, {memory.counts(), memory.searches()}),
      text(world.views.settings),
      actions(actionRows(), context, window),
      sorts(new SortMenu(&window)),
      selectors(selectorMenus(window)),
      toolbar(new Toolbar(actions, *sorts)),
      bars(new SectionBars),
      sections(new SectionStack(world.views, world.sections)),
      page(new AppPage(world.views)),
      content(new ContentPane(sections, page)),
      problem(new LibraryProblem),
      sheet(new Sheet),
      sidebar(new Sidebar(places, world.views.clock, world.views.zone)),
      frame(new FramePane(sidebar, sheet, *window.menuBar(), memory)),
      snackbar(new Snackbar(world.views.clock, *sheet)),
      quickOpen(new QuickOpen(world.views.library, window, world.views.storefront)),
      appMenu(new QMenu(&window)),
      adding(submenuOf("add-to-collection", window)),
      moving(submenuOf("move-to-collection", window)),
      guide(*sections, *content, *page, memory),
      search(guide, world.views.settings, world.views.storefront),
      saved(world.views, search, counts, *snackbar, window),
      collections(world.views, guide, counts, window),
      owned(world.views, window),
      compare(world.views, guide, *snackbar, window),
      scans(world.views, window),
      app(world.views.library, world.views.records),
      watch(world.views, guide, *page, window),
      links(guide, world.views.prompts),
      unread(world.views.library, guide),
      reader(world.views.library, guide, *page, world.views.clock),
      opener(world.views.library, guide, search, *snackbar, world.views.storefront),
      files(world.views, *snackbar, window),
      command(world.views, guide, counts),
      help(window),
      reports(window, world.views),
      panes({{sidebar, [this] { sidebar->view().setFocus(Qt::ShortcutFocusReason); }},
             {toolbar, [this] { toolbar->takeFocus(); }},
             {bars, [this] { bars->takeFocus(); }},
             {sections, [this] { guide.section()->takeFocus(); }},
             {page, [this] { page->setFocus(Qt::ShortcutFocusReason); }},
             {snackbar, [this] { snackbar->takeFocus(); }}},
            [&window] { window.leave(); }) {
  context = {.window = &window,
             .guide = &guide,
             .content = content,
             .frame = frame,
             .toolbar = toolbar,
             .panes = &panes,
             .text = &text,
             .host = &host,
             .links = &links,
             .quickOpen = quickOpen,
             .unread = &unread,
             .help = &help,
             .snackbar = snackbar,
             .page = page,
             .search = &search,
             .saved = &saved,
             .app = &app,
             .settings = &settings,
             .edits = &world.views.edits,
             .watch = &watch,
             .sidebar = sidebar,
             .collections = &collections,
             .owned = &owned,
             .compare = &compare,
             .reports = &reports,
             .files = &files,
             .command = &command,
             .scans = &scans};
  place(window);
}

void MainWindow::Parts::place(MainWindow& window) {
  sheet->setAccessibleName(MainWindow::tr("Content"));
  sheet->add(toolbar);
  sheet->add(bars);
  sheet->add(content, 1);
  sheet->add(problem, 1);
  problem->hide();
  window.setCentralWidget(frame);
  Submenus submenus{{"add-to-collection", adding}, {"move-to-collection", moving}};
  submenus.emplace("sort-by", sorts);
  for (std::size_t i = 0; i < kSelectors.size(); ++i)
    submenus.emplace(kSelectors.at(i).row, selectors[i]);
  submenus.emplace("mute-alerts", makeMuteMenu(watch, &window));
  fillMenuBar(*window.menuBar(), actions, submenus);
  fillMenu(*appMenu, MenuId::app, actions, submenus);
  appMenu->addSeparator();
  for (const char* id : {"edit-note", "edit-details", "copy-link", "copy-command", "export-report"})
    appMenu->addAction(&actions[id]);
  const auto apps = [this] { return links.named(); };
  QObject::connect(adding, &QMenu::aboutToShow, &window,
                   [this, apps] { collections.fillAdding(*adding, apps); });
  QObject::connect(moving, &QMenu::aboutToShow, &window,
                   [this, apps] { collections.fillMoving(*moving, apps); });
  page->setCommonActions({&actions["watch"], &actions["watch-options"],
                          &actions["add-to-collection"], &actions["add-to-my-apps"],
                          &actions["copy-link"], &actions["delete"]});
  content->setMode(memory.pageMode());
  content->setListShare(memory.listShare());
  places.setCounts(counts.counts());
  places.setSavedSearches(counts.searches());
  places.setCompared(compare.count());
}

void MainWindow::Parts::popUpMenu(const QPoint& at) {
  QAction* mark = &actions["mark-read"];
  const std::initializer_list<const char*> comparing{"copy-cell", "copy-comparison",
                                                     "move-column-left", "move-column-right"};
  appMenu->removeAction(mark);
  for (const char* id : comparing) appMenu->removeAction(&actions[id]);
  if (guide.here().section == SectionId::compare) {
    for (const char* id : comparing) appMenu->addAction(&actions[id]);
  }
  if (!guide.section()->markingText().isEmpty()) appMenu->addAction(mark);
  appMenu->popup(at);
}

void MainWindow::Parts::take(Section& section) {
  toolbar->addTools(section);
  if (QWidget* bar = section.bar()) bars->add(bar);
  // What is made late comes last by itself.
  for (QWidget* part : toolbar->parts()) putLastInTabOrder(*part);
  for (QWidget* pane : std::initializer_list<QWidget*>{bars, sections, page, snackbar})
    putLastInTabOrder(*pane);
}

void MainWindow::Parts::showAround() {
  toolbar->setState(toolbarState());
  Section* section = guide.section();
  if (section == nullptr) return;
  content->setLeastList(section->leastWidth());
  const bool hasBar = !content->isHidden() && !content->showsPageAlone();
  bars->showBar(hasBar ? section->bar() : nullptr);
}

void MainWindow::Parts::showContent(bool shows) {
  toolbar->setVisible(shows);
  bars->setVisible(false);
  content->setVisible(shows);
  problem->setVisible(!shows);
  sidebar->view().setEnabled(shows);
}

void MainWindow::Parts::updateMenus() {
  const bool hasApps = !content->isHidden() && !links.apps().empty();
  const bool hasOthers = collections.shown() != 0 && counts.counts().collections.size() > 1;
  adding->menuAction()->setEnabled(hasApps);
  moving->menuAction()->setEnabled(hasApps && hasOthers);
}

ToolbarState MainWindow::Parts::toolbarState() const {
  const Place& here = guide.here();
  const SectionFace& face = faceOf(here.section);
  ToolbarState state;
  state.title = nameOf(here.section);
  state.isPageAlone = content->showsPageAlone();
  state.canRefresh = face.refresh != SectionRefresh::readsAgain;
  state.canStandBeside = content->hasRoomForBoth();
  state.canMarkAll = here.section == SectionId::alerts && host.isOpen() && unread.count() > 0;
  state.canCollect = here.section == SectionId::collections && guide.section() != nullptr;
  state.isBusy = (face.refresh == SectionRefresh::checksPrices && host.isChecking()) ||
                 (state.isPageAlone && page->isAsking());
  if (guide.section() == nullptr) return state;
  state.tools = guide.section()->tools();
  state.toolsPlace = guide.section()->toolsPlace();
  state.findText = guide.section()->findText();
  state.text = here.rows.text;
  if (state.isPageAlone) {
    state.title = guide.section()->title();
    state.position = positionText(guide.position());
  }
  return state;
}

QString MainWindow::Parts::windowTitle() const {
  if (guide.section() == nullptr) return QStringLiteral("Quillet");
  QString title = guide.section()->title();
  const RowPosition position = guide.position();
  if (content->showsPageAlone() && position.at >= 0)
    title = guide.section()->rows()->at(position.at).name;
  return QStringLiteral("%1 — Quillet").arg(title);
}

SidebarTarget MainWindow::Parts::target() const {
  const auto* collection = std::get_if<RowId>(&guide.here().what);
  return {guide.here().section, collection == nullptr ? 0 : *collection, saved.current()};
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/main_window.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QBackingStore>
#include <QCloseEvent>
#include <QDropEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <algorithm>

#include "desktop/frame/window_geometry.h"
#include "desktop/frame/window_parts.h"
#include "desktop/look/look.h"
#include "desktop/models/app_drag.h"

namespace quillet {

namespace {

std::vector<QRect> screenRects() {
  std::vector<QRect> rects{QGuiApplication::primaryScreen()->availableGeometry()};
  for (const QScreen* screen : QGuiApplication::screens()) {
    if (screen != QGuiApplication::primaryScreen()) rects.push_back(screen->availableGeometry());
  }
  return rects;
}

}  // namespace

MainWindow::MainWindow(const WindowWorld& world) : parts_(std::make_unique<Parts>(*this, world)) {
  setMinimumSize(kSmallestWindow);
  setAcceptDrops(true);
  for (QWidget* each : parts_->paintedLate()) each->setUpdatesEnabled(false);
  restoreGeometry();
  connectParts();
  connect(&world.views.settings, &LiveSettings::changed, this, &MainWindow::follow);
  qApp->installEventFilter(this);
}

MainWindow::~MainWindow() {
  qApp->removeEventFilter(this);
  disconnect(qApp, nullptr, this, nullptr);
  parts_->sections->forget();
  // Sections and pages go while what they speak to is still there.
  delete takeCentralWidget();
}

/// What the user changes is said, and can be taken back from there.
void MainWindow::tellEdits(EditHistory& edits) {
  Snackbar* bar = parts_->snackbar;
  connect(&edits, &EditHistory::performed, this, [&edits, bar](const QString& done) {
    bar->offer(done, tr("Undo"), [&edits] { edits.undo(); });
  });
  connect(&edits, &EditHistory::turned, bar, &Snackbar::say);
  connect(&edits, &EditHistory::failed, bar, &Snackbar::say);
  connect(&edits, &EditHistory::changed, this, [this] { parts_->actions.update(); });
}

/// Who asks for an edit elsewhere than by an action.
void MainWindow::connectEditors() {
  Parts& parts = *parts_;
  connect(&parts.sidebar->view(), &SidebarView::collectionMenuAsked, &parts.collections,
          &CollectionEditor::showMenu);
  connect(parts.page, &AppPage::collectAsked, this,
          [this] { parts_->actions["add-to-collection"].trigger(); });
  connect(parts.sections, &SectionStack::actionAsked, this,
          [this](const QString& id) { parts_->actions[id.toStdString()].trigger(); });
  connect(&parts.sidebar->view(), &SidebarView::dropped, this, &MainWindow::take);
  connect(&parts.owned, &OwnedEditor::searched, this,
          [this](const QString& text) { parts_->search.searchFor(text.toStdString()); });
  connect(&parts.owned, &OwnedEditor::said, parts.snackbar, &Snackbar::say);
  connect(&parts.owned, &OwnedEditor::failed, this, [this](const QString& why) {
    parts_->snackbar->offer(why, tr("Try Again"), [this] { parts_->owned.tryAgain(); });
  });
  connect(&parts.scans, &ScanDesk::changed, this, [this] { parts_->actions.update(); });
  connect(&parts.scans, &ScanDesk::said, parts.snackbar, &Snackbar::say);
  connect(&parts.scans, &ScanDesk::searched, this,
          [this](const QString& text) { parts_->search.searchFor(text.toStdString()); });
  connect(parts.page, &AppPage::compareAsked, this,
          [this] { parts_->actions["add-to-compare"].trigger(); });
  connect(&parts.compare, &CompareEditor::changed, this, [this] {
    parts_->places.setCompared(parts_->compare.count());
    parts_->actions.update();
  });
  connect(&parts.compare, &CompareEditor::searched, this,
          [this](const QString& text) { parts_->search.searchFor(text.toStdString()); });
}

void MainWindow::connectParts() {
  Parts& parts = *parts_;
  connect(&parts.guide, &Guide::moved, this, &MainWindow::follow);
  connect(parts.content, &ContentPane::arranged, this, [this] {
    parts_->memory.setListShare(parts_->content->listShare());
    parts_->memory.setPageMode(parts_->content->mode());
    follow();
  });
  connect(parts.frame, &FramePane::arranged, this, &MainWindow::follow);
  connect(&parts.host, &HostLink::changed, this, &MainWindow::follow);
  if (Updates* updates = parts.settings.updates())
    connect(updates, &Updates::changed, this, &MainWindow::tellUpdate);
  connect(&parts.host, &HostLink::told, parts.snackbar, &Snackbar::say);
  // The storefront of what is checked, and which sizes of texts are left.
  connect(&parts.text, &TextSize::changed, this, &MainWindow::follow);
  connect(&parts.kept, &LiveSettings::changed, this, &MainWindow::follow);
  connect(&parts.counts, &CountsFeed::changed, this, [this] {
    const LibraryCounts& counts = parts_->counts.counts();
    parts_->memory.setCounts(counts);
    parts_->memory.setSearches(parts_->counts.searches());
    parts_->places.setCounts(counts);
    parts_->places.setSavedSearches(parts_->counts.searches());
    parts_->unread.setCount(counts.unreadAlerts);
    parts_->host.setLastCheck(counts.checked);
    follow();
  });
  connect(&parts.sidebar->view(), &SidebarView::wanted, this, &MainWindow::goTo);
  connect(&parts.sidebar->view(), &SidebarView::entered, this,
          [this] { parts_->guide.section()->takeFocus(); });
  connect(&parts.sidebar->view(), &SidebarView::menuAsked, &parts.saved,
          &SavedSearchEditor::showMenu);
  connectEditors();
  connect(parts.page, &AppPage::said, parts.snackbar, &Snackbar::say);
  tellEdits(*parts.context.edits);
  connect(parts.page, &AppPage::askingChanged, this, &MainWindow::follow);
  connect(parts.page, &AppPage::blocksChanged, this, [this] { parts_->actions.update(); });
  connect(parts.sections, &SectionStack::grown, this,
          [this](Section& section) { parts_->take(section); });
  connect(parts.sections, &SectionStack::goes, &parts.saved, &SavedSearchEditor::noteUse);
  connect(parts.sections, &SectionStack::saveAsked, &parts.saved, &SavedSearchEditor::save);
  connect(parts.sections, &SectionStack::settingsAsked, this,
          [this] { parts_->settings.showGeneral(); });
  connect(&parts.settings, &SettingsWindows::appsWanted, this, [this] {
    for (const char* each : {"go-my-apps", "add-by-hand"}) parts_->actions[each].trigger();
  });
  connect(&parts.settings, &SettingsWindows::scanWanted, this, [this] {
    for (const char* each : {"go-my-apps", "scan-applications"}) parts_->actions[each].trigger();
  });
  connect(&parts.app, &ChosenApp::changed, this, [this] { parts_->actions.update(); });
  // What keys do depends on where they go.
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (qobject_cast<QMenuBar*>(now) == nullptr) parts_->context.focused = now;
    parts_->actions.update();
  });
  connect(&parts.watch, &WatchEditor::changed, this, [this] { parts_->actions.update(); });
  connect(parts.sections, &SectionStack::menuAsked, this, [this](const QPoint& at) {
    if (!parts_->links.apps().empty()) parts_->popUpMenu(at);
  });
  connect(parts.sorts, &SortMenu::chosen, this, [this](const std::string& id) {
    RowView view = parts_->guide.here().rows;
    view.sort = id;
    parts_->guide.setRowView(view);
  });
  FindField& find = parts.toolbar->find();
  connect(&find, &FindField::found, this, [this](const QString& text) {
    RowView view = parts_->guide.here().rows;
    view.text = text;
    parts_->guide.setRowView(view);
  });
  connect(&find, &FindField::left, this, [this] { parts_->guide.section()->takeFocus(); });
  connect(parts.quickOpen, &QuickOpen::chosen, this, [this](const Place& place) {
    parts_->guide.go(place);
    parts_->guide.open();
  });
  connect(parts.quickOpen, &QuickOpen::searched, this,
          [this](const QString& text) { parts_->search.searchFor(text.toStdString()); });
  connect(parts.problem, &LibraryProblem::triedAgain, this, &MainWindow::triedAgain);
  connect(parts.problem, &LibraryProblem::quits, this, [] { QCoreApplication::quit(); });
}

void MainWindow::begin() {
  if (parts_->guide.section() != nullptr) return;
  parts_->guide.begin();
  parts_->guide.section()->takeFocus();
}

void MainWindow::layCanvas() {
  winId();  // now it has one
  QBackingStore& canvas = *backingStore();
  canvas.resize(size());
  canvas.beginPaint(rect());
  QPainter(canvas.paintDevice()).fillRect(rect(), lookOf(*this)[Token::side]);
  canvas.endPaint();
}

void MainWindow::useHost(ServiceHost& host) {
  parts_->showContent(true);
  parts_->host.use(host);
}

void MainWindow::showProblem(const DatabaseError& reason, const std::filesystem::path& library) {
  parts_->problem->setReason(reason, library);
  parts_->showContent(false);
  follow();
}

void MainWindow::obey(const DesktopArguments& asked) {
  const auto section = valueOf(kSectionWords, asked.section.value_or(""));
  if (section && parts_->guide.hasSection(*section)) parts_->guide.goTo(*section);
  if (asked.newSearch) parts_->search.searchFor(*asked.newSearch);
  if (asked.opens) parts_->opener.open(*asked.opens);
}

void MainWindow::goTo(const SidebarTarget& target) {
  if (target.savedSearch != 0) return parts_->saved.run(target.savedSearch);
  const RowId collection = target.collection;
  parts_->guide.goTo(target.section, collection == 0 ? std::optional<RowId>() : collection);
}

void MainWindow::take(const SidebarTarget& target, const std::vector<NamedKey>& apps,
                      Qt::DropAction how) {
  CollectionEditor& collections = parts_->collections;
  if (target.section == SectionId::watchlist) return parts_->watch.add(apps);
  if (target.section == SectionId::myApps) return parts_->owned.add(apps);
  if (target.section == SectionId::compare) return parts_->compare.add(apps);
  if (how == Qt::MoveAction) return collections.move(collections.shown(), target.collection, apps);
  collections.add(target.collection, apps);
}

void MainWindow::greet() {
  parts_->settings.greet();
  tellUpdate();
}

/// Once in a run, unless the user is looking at it.
void MainWindow::tellUpdate() {
  SettingsWindows& settings = parts_->settings;
  if (settings.updates() == nullptr) return;
  const std::optional<Release> news = settings.updates()->takeNews();
  if (!news || settings.areUpdatesShown()) return;
  parts_->snackbar->offer(tr("Quillet %1 is there.").arg(QString::fromStdString(news->version)),
                          tr("Show"), [&settings] { settings.showUpdates(); });
}

void MainWindow::showAlertOf(std::int64_t trackId) { parts_->opener.openAlertOf(trackId); }

void MainWindow::showSettings() { parts_->settings.showSettings(); }

void MainWindow::say(const QString& text) { parts_->snackbar->say(text); }

/// All that says where the user is, after they are elsewhere.
void MainWindow::follow() {
  Parts& parts = *parts_;
  const Place& here = parts.guide.here();
  if (Section* section = parts.guide.section())
    parts.sorts->setChoices(section->sorts(), here.rows.sort);
  for (SelectorMenu* each : parts.selectors) each->setSection(parts.guide.section());
  parts.showAround();
  parts.sidebar->view().select(parts.target());
  parts.app.show(parts.page->app());
  parts.watch.follow();
  parts.sidebar->foot().setState(parts.host.checks());
  parts.sections->noteChecks(parts.host.checks());
  setWindowTitle(parts.windowTitle());
  parts.updateMenus();
  parts.actions.update();
}

/// From the page to the list, from the list to the field, and from elsewhere to the list.
void MainWindow::leave() {
  Parts& parts = *parts_;
  if (parts.content->showsPageAlone()) {
    parts.guide.closePage();
  } else if (PaneRing::hasFocus(*parts.sections)) {
    parts.toolbar->goToField();
  } else {
    parts.guide.section()->takeFocus();
  }
}

/// Delete is for what the focus is on: a saved search or a collection in the sidebar, or the rows
/// of a list.
bool MainWindow::keepsKey(QKeyEvent& key) const {
  const bool deletes = key.key() == Qt::Key_Delete && key.modifiers() == Qt::NoModifier;
  if (!deletes || !isActiveWindow()) return false;
  const bool isInSidebar = PaneRing::hasFocus(*parts_->sidebar);
  const Section* section = parts_->guide.section();
  const bool isInRows = section != nullptr && !section->removalText().isEmpty() &&
                        PaneRing::hasFocus(*parts_->sections) &&
                        qobject_cast<QAbstractItemView*>(QApplication::focusWidget()) != nullptr;
  const bool isListed = parts_->saved.current() != 0 || parts_->collections.shown() != 0;
  if (isInRows || (isInSidebar && isListed)) return false;
  key.accept();
  return true;
}

void MainWindow::restoreGeometry() {
  setGeometry(windowGeometry(parts_->memory.geometry(), screenRects()));
  if (parts_->memory.isMaximized()) setWindowState(Qt::WindowMaximized);
}

void MainWindow::keepGeometry() {
  const bool isPlain = !(windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen));
  if (parts_ != nullptr && isPlain) parts_->memory.setGeometry(geometry());
}

void MainWindow::closeEvent(QCloseEvent* event) {
  QMainWindow::closeEvent(event);
  if (event->isAccepted()) Q_EMIT closed();
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange || parts_ == nullptr) return;
  if (!isFullScreen()) parts_->memory.setMaximized(isMaximized());
  parts_->actions.update();
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  keepGeometry();
  if (wasPainted_) paintLater();
}

/// Laid out, given its memory and painted in an event each.
void MainWindow::paintLater() {
  setUpdatesEnabled(false);
  QTimer::singleShot(0, this, [this] {
    layCanvas();
    QTimer::singleShot(0, this, [this] {
      setUpdatesEnabled(true);
      repaint();
    });
  });
}

void MainWindow::moveEvent(QMoveEvent* event) {
  QMainWindow::moveEvent(event);
  keepGeometry();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  const QMimeData& data = *event->mimeData();
  if (libraryFileIn(data) || storeLinkIn(data) || !bundlesIn(data).empty())
    event->acceptProposedAction();
}

/// An exported library is previewed, installed apps are offered to My Apps, a link to an app opens
/// it.
void MainWindow::dropEvent(QDropEvent* event) {
  if (const auto file = libraryFileIn(*event->mimeData())) {
    event->acceptProposedAction();
    return parts_->files.previewImport(*file);
  }
  if (const FolderList bundles = bundlesIn(*event->mimeData()); !bundles.empty()) {
    event->acceptProposedAction();
    return parts_->scans.look(bundles);
  }
  const std::optional<std::string> link = storeLinkIn(*event->mimeData());
  if (!link) return;
  event->acceptProposedAction();
  parts_->opener.open(*link);
}

void MainWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), lookOf(*this)[Token::side]);
  if (!std::exchange(wasPainted_, true)) QTimer::singleShot(0, this, &MainWindow::paintContent);
}

/// List and page in an event each: with nothing shaped or drawn yet, all at once would be longer
/// than a frame.
void MainWindow::paintContent() {
  const auto late = parts_->paintedLate();
  const auto next =
      std::ranges::find_if(late, [](QWidget* each) { return !each->updatesEnabled(); });
  if (next == late.end()) return Q_EMIT painted();
  (*next)->setUpdatesEnabled(true);
  (*next)->repaint();
  QTimer::singleShot(0, this, &MainWindow::paintContent);
}

/// The pointer's own buttons for back and forward, wherever in the window it is; and no key that
/// deletes what the focus is not on.
bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) return keepsKey(*static_cast<QKeyEvent*>(event));
  if (event->type() != QEvent::MouseButtonPress) return false;
  const auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || widget->window() != this) return false;
  switch (static_cast<QMouseEvent*>(event)->button()) {
    case Qt::BackButton: parts_->guide.back(); return true;
    case Qt::ForwardButton: parts_->guide.forward(); return true;
    default: return false;
  }
}

}  // namespace quillet

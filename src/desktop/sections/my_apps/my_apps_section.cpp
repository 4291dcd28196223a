// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/my_apps/my_apps_section.h"

#include <QPointer>
#include <algorithm>

#include "analysis/search_presets.h"
#include "desktop/lists/list_section.h"
#include "desktop/models/new_search.h"
#include "desktop/models/row_filter_model.h"
#include "desktop/models/scan_words.h"
#include "desktop/sections/my_apps/my_apps_foot.h"
#include "desktop/sections/my_apps/my_apps_rows.h"
#include "desktop/sections/my_apps/my_apps_tools.h"
#include "desktop/sections/my_apps/scan_button.h"
#include "desktop/sections/my_apps/upgrade_chooser.h"
#include "desktop/sections/my_apps/upkeep_board.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

// Stored; never change.
const QString kSightKey = QStringLiteral("myAppsSight");
const QString kBoardWord = QStringLiteral("upkeep");
const QString kListWord = QStringLiteral("list");
const QString kSystemKey = QStringLiteral("upgradeTo");

// A board needs all of the width: the page of an app stands in its place.
constexpr int kNeverBesidePage = 100'000;

RowSource rowSource(const Place& /*place*/, const ViewWorld& world) {
  const std::optional<LastScan> scan = world.installed.last();
  return myAppsSource(rowContext(world), scan ? scan->folders : FolderScans());
}

ListSectionRow sectionRow() {
  return {SectionId::myApps,
          QT_TRANSLATE_NOOP("Sections", "My Apps"),
          QT_TRANSLATE_NOOP("Sections", "Find in My Apps"),
          myAppsTable(),
          rowSource,
          {std::string(kSlowingAfterMonths.key), std::string(kStaleAfterMonths.key),
           std::string(kAbandonedAfterMonths.key)},
          nullptr,
          {QT_TRANSLATE_NOOP("Sections", "Remove from My Apps"),
           QT_TRANSLATE_NOOP("Sections", "%n apps"),
           [](const Place& /*place*/, const std::vector<RowKey>& rows) {
             return disowning(appsOf(rows));
           }}};
}

/// The list, or in its place the board; below both, what was paid and what is told of scans.
class MyAppsSection final : public ListSection {
 public:
  explicit MyAppsSection(const ViewWorld& world);
  ~MyAppsSection() override { delete tools_; }

  QWidget* tools() override { return tools_; }
  [[nodiscard]] ToolsPlace toolsPlace() const override { return ToolsPlace::beside; }
  [[nodiscard]] std::span<const SortChoice> sorts() const override {
    return isBoard_ ? std::span<const SortChoice>() : ListSection::sorts();
  }
  [[nodiscard]] int leastWidth() const override {
    return isBoard_ ? kNeverBesidePage : ListSection::leastWidth();
  }
  [[nodiscard]] bool canDo(std::string_view action) const override;
  void perform(std::string_view action) override;
  void refresh() override {
    ListSection::refresh();
    tellLastScan();
  }

 private:
  void listen();
  void listenToScans();
  void tellScan();
  void tellLastScan();
  void see(MyAppsSight sight);
  void followRows();
  void tellRows();
  [[nodiscard]] std::vector<const AppRow*> chosenRows() const;
  [[nodiscard]] bool canReplace() const;
  void replace(const AppRow& row);
  void skip(SkipUpdates what);

  ViewWorld world_;
  LocaleFormats formats_;
  QPointer<MyAppsTools> tools_;
  UpkeepBoard* board_;       ///< the pane's, as the next two
  UpgradeChooser* upgrade_;  //
  MyAppsFoot* foot_;
  bool isBoard_ = false;
  QString problem_;   ///< of the last scan of this run
  QTimer tellTimer_;  ///< rows come in bursts
};

MyAppsSection::MyAppsSection(const ViewWorld& world)
    : ListSection(sectionRow(), world),
      world_(world),
      formats_(world.locale),
      tools_(new MyAppsTools),
      board_(new UpkeepBoard(pane().rows(), world.images,
                             [clock = &world.clock] { return clock->now(); })),
      upgrade_(new UpgradeChooser),
      foot_(new MyAppsFoot) {
  pane().setBoard(board_);
  pane().setBehindChips(upgrade_);
  pane().setFoot(foot_);
  upgrade_->choose(world.state.value(kSystemKey).toString());
  upgrade_->hide();
  tellTimer_.setSingleShot(true);
  tellTimer_.setInterval(0);
  listen();
  listenToScans();
  if (world.state.value(kSightKey).toString() == kBoardWord) see(MyAppsSight::board);
}

void MyAppsSection::listen() {
  connect(tools_, &MyAppsTools::sightChosen, this, &MyAppsSection::see);
  connect(board_, &UpkeepBoard::chosen, this, [this](const RowKey& row) { choose(row); });
  connect(board_, &UpkeepBoard::opened, this, &Section::opens);
  connect(board_, &UpkeepBoard::menuAsked, this, &Section::menuAsked);
  connect(board_, &UpkeepBoard::replacementAsked, this,
          [this](const RowKey& /*row*/) { perform("find-replacement"); });
  connect(&pane(), &ListPane::changed, this, [this] { board_->choose(pane().current()); });
  connect(upgrade_, &UpgradeChooser::systemChosen, this, [this](const QString& system) {
    world_.state.setValue(kSystemKey, system);
    upgrade_->show(pane().rows());
  });
  connect(upgrade_, &UpgradeChooser::appChosen, this, [this](const RowKey& row) {
    choose(row);
    board_->choose(row);
  });
  connect(&tellTimer_, &QTimer::timeout, this, &MyAppsSection::tellRows);
  followRows();
}

void MyAppsSection::listenToScans() {
  auto* scan = new ScanButton(world_.installed);
  tools_->setButton(scan);
  connect(scan, &QPushButton::clicked, this,
          [this] { Q_EMIT actionAsked(QStringLiteral("scan-applications")); });
  connect(&world_.installed, &InstalledApps::changed, this, &MyAppsSection::tellScan);
  connect(&world_.installed, &InstalledApps::scanned, this, [this](const ScanOutcome& outcome) {
    // By itself, a disk that is not mounted is nothing to speak of.
    if (outcome.cause != ScanCause::start) problem_ = scanProblem(outcome);
    tellScan();
    refresh();
  });
  tellScan();
}

void MyAppsSection::tellScan() {
  ListState state = scanState(world_.installed);
  if (world_.installed.isScanning()) {
    problem_.clear();
  } else if (!problem_.isEmpty()) {
    state = Failed{problem_};
  }
  pane().setRemark(state, QStringLiteral("scan-applications"));
  tellLastScan();
}

void MyAppsSection::tellLastScan() {
  foot_->showScan(lastScanText(world_.installed.last(), world_.clock.now(), world_.zone));
}

void MyAppsSection::followRows() {
  const auto later = [this] { tellTimer_.start(); };
  const RowFilterModel* rows = &pane().rows();
  connect(rows, &QAbstractItemModel::rowsInserted, this, later);
  connect(rows, &QAbstractItemModel::rowsRemoved, this, later);
  connect(rows, &QAbstractItemModel::dataChanged, this, later);
  connect(rows, &QAbstractItemModel::modelReset, this, later);
}

void MyAppsSection::tellRows() {
  foot_->showPaid(paidText(*pane().rows().sourceModel(), formats_));
  if (isBoard_) upgrade_->show(pane().rows());
}

void MyAppsSection::see(MyAppsSight sight) {
  tools_->show(sight);
  const bool isBoard = sight == MyAppsSight::board;
  if (std::exchange(isBoard_, isBoard) == isBoard) return;
  world_.state.setValue(kSightKey, isBoard ? kBoardWord : kListWord);
  upgrade_->setVisible(isBoard);
  pane().useBoard(isBoard);
  board_->choose(pane().current());
  tellRows();
  // The list is as narrow or as wide as another one.
  Q_EMIT placeChanged();
}

std::vector<const AppRow*> MyAppsSection::chosenRows() const {
  std::vector<const AppRow*> rows;
  for (const AppKey& app : chosen()) {
    const int row = this->rows()->find({app});
    if (row >= 0) rows.push_back(&this->rows()->at(row));
  }
  return rows;
}

bool MyAppsSection::canReplace() const {
  const auto rows = chosenRows();
  return rows.size() == 1 && isReplaceable(*rows.front());
}

/// What else there is of its kind, to be bought once and cared for.
void MyAppsSection::replace(const AppRow& row) {
  const std::string& category = row.care->category;
  Place search{.section = SectionId::search};
  StoreQuery query = newSearch(world_.settings, category);
  query.request.platform = row.platform;
  query.request.filters = searchPresets().front().filters;
  query.request.filters.genre = category;
  search.what = std::move(query);
  Q_EMIT goes(search);
}

bool MyAppsSection::canDo(std::string_view action) const {
  const auto has = [this](RowMark mark) {
    return std::ranges::any_of(chosenRows(),
                               [mark](const AppRow* row) { return row->marks.testFlag(mark); });
  };
  if (action == "show-upkeep") return !isBoard_;
  if (action == "show-list") return isBoard_;
  if (action == "find-replacement") return canReplace();
  if (action == "skip-version") return has(RowMark::updateAvailable);
  if (action == "unskip-version") return has(RowMark::updateSkipped);
  return false;
}

void MyAppsSection::perform(std::string_view action) {
  if (action == "show-upkeep") see(MyAppsSight::board);
  if (action == "show-list") see(MyAppsSight::list);
  if (action == "find-replacement" && canReplace()) replace(*chosenRows().front());
  if (action == "skip-version") skip(SkipUpdates::skip);
  if (action == "unskip-version") skip(SkipUpdates::heed);
}

void MyAppsSection::skip(SkipUpdates what) {
  const bool skips = what == SkipUpdates::skip;
  const RowMark mark = skips ? RowMark::updateAvailable : RowMark::updateSkipped;
  std::vector<AppKey> apps;
  QString name;
  for (const AppRow* row : chosenRows()) {
    if (!row->marks.testFlag(mark)) continue;
    apps.push_back(row->key.app);
    name = row->name;
  }
  if (apps.empty()) return;
  const QString whose = apps.size() == 1 ? tr("“%1”").arg(name) : appsText(apps.size());
  world_.edits.perform(
      skips ? LibraryEdit{tr("Skip Version of %1").arg(whose),
                          tr("The update of %1 is skipped; a later one is shown again.").arg(whose),
                          tr("The update of %1 was not skipped.").arg(whose),
                          skippingUpdates(std::move(apps), what)}
            : LibraryEdit{tr("Show Update of %1").arg(whose),
                          tr("The update of %1 is shown again.").arg(whose),
                          tr("The update of %1 is still skipped.").arg(whose),
                          skippingUpdates(std::move(apps), what)});
}

}  // namespace

std::unique_ptr<Section> makeMyApps(const ViewWorld& world) {
  return std::make_unique<MyAppsSection>(world);
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/compare/compare_section.h"

#include <QClipboard>
#include <QDateTime>
#include <QEvent>
#include <QFile>
#include <QGuiApplication>
#include <QPointer>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "base/errors.h"
#include "desktop/lists/list_placeholder.h"
#include "desktop/lists/list_strip.h"
#include "desktop/models/compare_edits.h"
#include "desktop/sections/compare/compare_feed.h"
#include "desktop/sections/compare/compare_notice.h"
#include "desktop/sections/compare/compare_table.h"
#include "desktop/sections/compare/compare_tools.h"
#include "desktop/sections/compare/comparison_document.h"
#include "desktop/services/last_folders.h"
#include "system/settings_keys.h"
#include "system/whole_file.h"

namespace quillet {

namespace {

// A table needs all of the width: the page of an app stands in its place.
constexpr int kNeverBesidePage = 100'000;
constexpr int kInset = 24;
constexpr int kRight = 8;
constexpr int kAbove = 20;
const QString kFolderKey = QStringLiteral("comparisons");
constexpr std::string_view kExport = "export-comparison-";

constexpr EmptyList kEmpty{
    "layout-three-columns", QT_TRANSLATE_NOOP("Rows", "Compare two to eight apps."),
    QT_TRANSLATE_NOOP("Rows", "Press Ctrl+T on any app, or drag apps onto Compare."),
    QT_TRANSLATE_NOOP("Rows", "Add App…"), "compare-another"};

class CompareSection final : public Section {
 public:
  explicit CompareSection(const ViewWorld& world);
  ~CompareSection() override;

  QWidget* view() override { return view_; }
  void show(const Place& place) override;
  [[nodiscard]] Place place() const override;
  [[nodiscard]] std::vector<AppKey> chosen() const override;
  [[nodiscard]] std::vector<NamedKey> named() const override;
  void refresh() override { feed_.refresh(); }
  [[nodiscard]] QString title() const override { return tr("Compare"); }
  [[nodiscard]] QString findText() const override { return {}; }
  void setRowView(const RowView& /*view*/) override {}
  [[nodiscard]] std::span<const SortChoice> sorts() const override { return {}; }
  [[nodiscard]] const RowFilterModel* rows() const override { return nullptr; }
  void choose(const RowKey& row) override { table_->choose(row.app); }
  void takeFocus() override;
  QWidget* tools() override { return tools_; }
  [[nodiscard]] int leastWidth() const override { return kNeverBesidePage; }
  [[nodiscard]] QString removalText() const override { return tr("Remove Column"); }
  [[nodiscard]] std::optional<LibraryEdit> removal() const override;
  [[nodiscard]] bool canDo(std::string_view action) const override;
  void perform(std::string_view action) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void listen();
  void showSheet();
  void showNotice();
  void remove(const std::vector<AppKey>& apps);
  void move(const AppKey& app, std::size_t to);
  void moveBy(int columns);
  [[nodiscard]] std::optional<std::size_t> chosenColumn() const;
  [[nodiscard]] QString nameOf(const AppKey& app) const;
  [[nodiscard]] ComparisonReport document() const;
  void exportAs(ComparisonFormat format);
  void write(const std::filesystem::path& file, ComparisonFormat format);

  ViewWorld world_;
  LocaleFormats formats_;
  CompareFeed feed_;
  QPointer<QWidget> view_;
  QPointer<CompareTools> tools_;
  ListStrip* strip_;
  CompareNotice* notice_;
  ListPlaceholder* empty_;
  QWidget* sheet_;
  CompareTable* table_;
  std::optional<QString> failure_;  ///< of writing a file, until other apps are compared
};

CompareSection::CompareSection(const ViewWorld& world)
    : world_(world),
      formats_(world.locale),
      feed_(world),
      view_(new QWidget),
      tools_(new CompareTools),
      strip_(new ListStrip(world.clock)),
      notice_(new CompareNotice),
      empty_(new ListPlaceholder(tr("Compare"), kEmpty)),
      sheet_(new QWidget),
      table_(new CompareTable(world.images, *sheet_)) {
  auto* inner = new QVBoxLayout(sheet_);
  const bool isMirrored = view_->layoutDirection() == Qt::RightToLeft;
  inner->setContentsMargins(isMirrored ? kRight : kInset, kAbove, isMirrored ? kInset : kRight, 0);
  inner->addWidget(table_);
  auto* column = new QVBoxLayout(view_);
  column->setContentsMargins({});
  column->setSpacing(0);
  column->addWidget(strip_);
  column->addWidget(notice_);
  column->addWidget(empty_, 1);
  column->addWidget(sheet_, 1);
  view_->installEventFilter(this);
  listen();
  showSheet();
}

// Those that the window has not taken with it.
CompareSection::~CompareSection() {
  delete tools_;
  delete view_;
}

void CompareSection::listen() {
  connect(&feed_, &CompareFeed::changed, this, &CompareSection::showSheet);
  connect(&feed_, &CompareFeed::stateChanged, this, [this] {
    strip_->setState(feed_.state());
    Q_EMIT placeChanged();
  });
  connect(&world_.compared, &CompareList::changed, this, [this] {
    failure_.reset();
    showNotice();
  });
  connect(&world_.settings, &LiveSettings::changed, this, &CompareSection::showSheet);
  connect(strip_, &ListStrip::acted, &feed_, &CompareFeed::act);
  connect(tools_, &CompareTools::yearsChosen, &world_.compared, &CompareList::setYears);
  connect(tools_, &CompareTools::actionAsked, this, &Section::actionAsked);
  connect(empty_, &ListPlaceholder::actionAsked, this, &Section::actionAsked);
  connect(notice_, &CompareNotice::addAsked, this,
          [this] { Q_EMIT actionAsked(QStringLiteral("compare-another")); });
  connect(notice_, &CompareNotice::removeAsked, this, [this] {
    std::vector<AppKey> missing;
    for (const auto& [app, name] : table_->sheet().missing) missing.push_back(app);
    remove(missing);
  });
  connect(table_, &CompareTable::chosenChanged, this, &Section::placeChanged);
  connect(table_, &CompareTable::seenChanged, this, [this] { feed_.showReleases(table_->seen()); });
  connect(table_, &CompareTable::opened, this,
          [this](const AppKey& app) { Q_EMIT opens(RowKey{app, 0}); });
  connect(table_, &CompareTable::menuAsked, this, &Section::menuAsked);
  connect(table_, &CompareTable::removeAsked, this, [this](const AppKey& app) { remove({app}); });
  connect(table_, &CompareTable::moveAsked, this, &CompareSection::move);
}

void CompareSection::show(const Place& place) {
  if (place.chosen) table_->choose(place.chosen->app);
  strip_->setState(feed_.state());
}

Place CompareSection::place() const {
  Place place;
  place.section = SectionId::compare;
  if (const auto app = table_->chosen()) place.chosen = RowKey{*app, 0};
  return place;
}

std::vector<AppKey> CompareSection::chosen() const {
  const auto app = table_->chosen();
  return app ? std::vector<AppKey>{*app} : std::vector<AppKey>();
}

std::vector<NamedKey> CompareSection::named() const {
  std::vector<NamedKey> named;
  for (const AppKey& app : chosen()) named.push_back({app, nameOf(app)});
  return named;
}

void CompareSection::takeFocus() {
  if (!sheet_->isHidden()) return table_->setFocus(Qt::OtherFocusReason);
  if (QWidget* button = empty_->findChild<QWidget*>()) button->setFocus(Qt::OtherFocusReason);
}

bool CompareSection::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show) feed_.setSeen(true);
  if (event->type() == QEvent::Hide) feed_.setSeen(false);
  return Section::eventFilter(watched, event);
}

void CompareSection::showSheet() {
  CompareTerms terms{.formats = formats_,
                     .maintenance = {},
                     .zone = world_.zone,
                     .now = world_.clock.now(),
                     .years = world_.compared.years()};
  if (readSetting(world_.settings, kShowMaintenanceRating))
    terms.maintenance = readMaintenanceThresholds(world_.settings);
  table_->show(sheetOf(feed_.apps(), terms));
  const bool hasTable = !table_->sheet().columns.empty();
  sheet_->setVisible(hasTable);
  empty_->setVisible(!hasTable);
  empty_->setKind(hasTable ? ListPlaceholder::Kind::nothing : ListPlaceholder::Kind::empty);
  tools_->setState(world_.compared.apps().size(), CompareList::kMost, hasTable);
  tools_->setYears(world_.compared.years());
  showNotice();
  Q_EMIT placeChanged();
}

void CompareSection::showNotice() {
  QStringList missing;
  for (const auto& [app, name] : table_->sheet().missing) {
    const QString id = QString::number(app.trackId);
    missing << (name == id ? id : QStringLiteral("%1 (%2)").arg(name, id));
  }
  if (failure_) {
    notice_->tell(*failure_);
  } else if (!missing.isEmpty()) {
    notice_->tellMissing(
        tr("Not found in this storefront: %1").arg(missing.join(QStringLiteral(", "))));
  } else if (world_.compared.apps().size() == 1) {
    notice_->tellOneMore(tr("One more app is needed to compare."));
  } else {
    notice_->hide();
  }
}

QString CompareSection::nameOf(const AppKey& app) const {
  for (const CompareColumn& column : table_->sheet().columns) {
    if (column.app == app) return column.name;
  }
  for (const auto& [missing, name] : table_->sheet().missing) {
    if (missing == app) return name;
  }
  return QString::number(app.trackId);
}

std::optional<LibraryEdit> CompareSection::removal() const {
  const auto app = table_->chosen();
  if (!app) return {};
  return removeFromCompare(world_.compared, {*app}, nameOf(*app));
}

void CompareSection::remove(const std::vector<AppKey>& apps) {
  if (apps.empty()) return;
  const QString name = nameOf(apps.front());
  world_.edits.perform(removeFromCompare(world_.compared, apps, name));
}

/// `to`: among the columns; the list has those that are missing, too.
void CompareSection::move(const AppKey& app, std::size_t to) {
  const auto& columns = table_->sheet().columns;
  if (to >= columns.size()) return;
  const auto& apps = world_.compared.apps();
  const auto at = std::ranges::find(apps, columns[to].app, &ComparedKey::app);
  world_.edits.perform(
      moveCompared(world_.compared, app, static_cast<std::size_t>(at - apps.begin()), nameOf(app)));
}

/// Among those that are shown.
std::optional<std::size_t> CompareSection::chosenColumn() const {
  const auto app = table_->chosen();
  const auto& columns = table_->sheet().columns;
  const auto found = std::ranges::find(
      columns, app, [](const CompareColumn& column) { return std::optional<AppKey>(column.app); });
  if (!app || found == columns.end()) return {};
  return static_cast<std::size_t>(found - columns.begin());
}

void CompareSection::moveBy(int columns) {
  const auto at = chosenColumn();
  if (at) move(*table_->chosen(), *at + static_cast<std::size_t>(columns));
}

bool CompareSection::canDo(std::string_view action) const {
  const bool hasTable = !table_->sheet().columns.empty();
  const auto at = chosenColumn();
  if (action == "move-column-left") return at && *at > 0;
  if (action == "move-column-right") return at && *at + 1 < table_->sheet().columns.size();
  if (action == "copy-cell") return at.has_value();
  return hasTable && (action == "copy-comparison" || action.starts_with(kExport));
}

void CompareSection::perform(std::string_view action) {
  if (!canDo(action)) return;
  if (action == "move-column-left") return moveBy(-1);
  if (action == "move-column-right") return moveBy(1);
  if (action == "copy-cell") return table_->copyCurrent();
  if (action == "copy-comparison") {
    const std::string text = comparisonText(document(), ComparisonFormat::markdown);
    return QGuiApplication::clipboard()->setText(QString::fromStdString(text));
  }
  if (const auto format = valueOf(kComparisonFormatWords, action.substr(kExport.size())))
    exportAs(*format);
}

ComparisonReport CompareSection::document() const {
  const Instant now = world_.clock.now();
  const auto local = std::chrono::floor<std::chrono::seconds>(now + world_.zone(now));
  const QDate day = QDateTime::fromSecsSinceEpoch(local.time_since_epoch().count(), Qt::UTC).date();
  return documentOf(table_->sheet(), world_.compared.storefront(), day.toString(Qt::ISODate));
}

void CompareSection::exportAs(ComparisonFormat format) {
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  const std::filesystem::path folder =
      lastFolder(world_.state, kFolderKey, QFile::encodeName(documents).toStdString());
  const std::string ending(textOf(kComparisonFormatWords, format));
  const FileQuestion question{tr("Export Comparison"), folder / ("Comparison." + ending)};
  world_.prompts.chooseSaveFile(question, this, [this, format](const std::filesystem::path& file) {
    rememberFolder(world_.state, kFolderKey, file.parent_path());
    write(file, format);
  });
}

void CompareSection::write(const std::filesystem::path& file, ComparisonFormat format) {
  failure_.reset();
  try {
    replaceFile(file, comparisonText(document(), format));
  } catch (const FileError& error) {
    failure_ = QString::fromUtf8(error.what());
  }
  showNotice();
}

}  // namespace

std::unique_ptr<Section> makeCompare(const ViewWorld& world) {
  return std::make_unique<CompareSection>(world);
}

}  // namespace quillet

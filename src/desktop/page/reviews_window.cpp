// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/reviews_window.h"

#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QStandardPaths>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "base/errors.h"
#include "base/file_names.h"
#include "desktop/lists/chip.h"
#include "desktop/lists/list_placeholder.h"
#include "desktop/lists/list_strip.h"
#include "desktop/lists/text_label.h"
#include "desktop/look/button_look.h"
#include "desktop/look/look.h"
#include "desktop/look/search_field.h"
#include "desktop/look/segmented_control.h"
#include "desktop/look/wrapped_tip.h"
#include "desktop/page/kept_size.h"
#include "desktop/page/review_list_view.h"
#include "desktop/page/viewer_notice.h"
#include "desktop/services/last_folders.h"
#include "net/worker.h"
#include "store/records/storefronts.h"
#include "system/whole_file.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr QSize kUsualSize(760, 660);
constexpr QSize kLeastSize(520, 360);
constexpr auto kTyping = 120ms;
constexpr int kMargin = 20;
constexpr int kScrollBar = 8;
constexpr int kBarHeight = 52;
constexpr int kBarAir = 10;
constexpr int kChipAir = 7;
constexpr double kMostGrowth = 1.4;  // of the window along with its texts
constexpr int kGap = 8;
constexpr int kChipGap = 6;
constexpr int kFieldWidth = 190;
constexpr int kLeastFieldWidth = 96;
constexpr int kBeforeTitle = 100;  // the share of the room; the title stands in the frame too
constexpr int kMostNamed = 3;      // storefronts, by their codes

constexpr EmptyList kEmpty{
    "star", QT_TRANSLATE_NOOP("Rows", "No reviews published for this app in this storefront"),
    QT_TRANSLATE_NOOP("Rows", "Another storefront may have some.")};

const QKeySequence kExportKeys(Qt::CTRL | Qt::Key_E);

// Stored; never change.
QString folderKey() { return QStringLiteral("reviews"); }
QString sizeKey() { return QStringLiteral("reviewsWindow"); }

/// "gb, United Kingdom"
QString nameOf(const std::string& country) {
  const QString code = QString::fromStdString(country);
  const QLocale::Territory territory = QLocale::codeToTerritory(code.toUpper());
  if (territory == QLocale::AnyTerritory) return code;
  return ReviewsWindow::tr("%1, %2").arg(code, QLocale::territoryToString(territory));
}

std::vector<std::string> tracked() {
  return {kTrackedStorefronts.begin(), kTrackedStorefronts.end()};
}

std::vector<std::string> offeredWith(const std::string& own) {
  std::vector<std::string> offered = tracked();
  std::erase(offered, own);
  offered.insert(offered.begin(), own);
  return offered;
}

bool contains(const std::vector<std::string>& countries, const std::string& country) {
  return std::ranges::find(countries, country) != countries.end();
}

/// `air`: above what stands in it, and below.
QWidget* bar(QHBoxLayout*& row, int height, int air) {
  auto* widget = new QWidget;
  row = new QHBoxLayout(widget);
  // The list's texts end before its scroll bar.
  row->setContentsMargins(kMargin, air, kMargin + kScrollBar, air);
  row->setSpacing(kGap);
  row->addStrut(height - 2 * air);
  return widget;
}

}  // namespace

ReviewsWindow::ReviewsWindow(const ReviewsOf& reviews, const ViewWorld& world, QWidget* parent)
    : QWidget(parent, Qt::Window),
      world_(world),
      name_(reviews.name),
      offered_(offeredWith(reviews.country)),
      chosen_{reviews.country},
      reader_(reviews.subject, reviews.releases, world.store, world.clock),
      reviews_(world.clock, world.zone),
      strip_(new ListStrip(world.clock)),
      list_(new ReviewListView(tr("Reviews"), reviews_)),
      placeholder_(new ListPlaceholder(tr("Reviews"), kEmpty)),
      notice_(new ViewerNotice(this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(tr("Reviews of %1").arg(reviews.name));
  setMinimumSize(kLeastSize);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  lay(reviews.name);
  typing_.setSingleShot(true);
  typing_.setInterval(kTyping);
  connect(&typing_, &QTimer::timeout, this, &ReviewsWindow::filter);
  connect(&reader_, &ReviewReader::changed, this, [this] { take(); });
  connect(strip_, &ListStrip::acted, this, [this](StripAction action) {
    action == StripAction::stop ? reader_.stop() : reader_.tryAgain();
  });
  connect(list_, &ReviewListView::moreAsked, this,
          [this](int storefront) { reader_.readMore(static_cast<std::size_t>(storefront)); });
  connect(list_, &ReviewListView::endNear, this, &ReviewsWindow::readEnd);
  connect(placeholder_, &ListPlaceholder::clearAsked, this, [this] {
    for (Chip* chip : chips_) chip->setChecked(false);
    text_->clear();
    filter();
  });
  const double growth = std::min(lookOf(*this).growth(), kMostGrowth);
  resize(keptSize(world.state, sizeKey(), kUsualSize * growth, kLeastSize));
  reader_.know(reviews.country, reviews.first);
  choose();
  list_->setFocus();
}

// Before the reviews, which it shows.
ReviewsWindow::~ReviewsWindow() { delete list_; }

void ReviewsWindow::lay(const QString& name) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->setSpacing(0);
  column->addWidget(makeTools(name));
  column->addWidget(makeChips());
  column->addWidget(strip_);
  column->addWidget(list_, 1);
  column->addWidget(placeholder_, 1);
  auto* exporting = new QShortcut(kExportKeys, this);
  connect(exporting, &QShortcut::activated, exports_, &QToolButton::click);
  for (const auto keys : {QKeySequence::Find, QKeySequence::Close}) {
    auto* shortcut = new QShortcut(keys, this);
    connect(shortcut, &QShortcut::activated, this, [this, keys] {
      if (keys == QKeySequence::Close) return void(close());
      text_->setFocus(Qt::ShortcutFocusReason);
      text_->selectAll();
    });
  }
}

QWidget* ReviewsWindow::makeTools(const QString& name) {
  QHBoxLayout* row = nullptr;
  QWidget* tools = bar(row, kBarHeight, kBarAir);
  tools->setAccessibleName(tr("Which reviews"));
  auto* title = new TextLabel(kBlockType, Token::text);
  title->setText(name);
  title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  storefronts_ = new QPushButton;
  storefronts_->setMenu(new QMenu(this));
  connect(storefronts_->menu(), &QMenu::aboutToShow, this, &ReviewsWindow::fillMenu);
  order_ = new SegmentedControl(tr("Order"), {tr("As the Store Has Them"), tr("Most Recent")});
  connect(order_, &SegmentedControl::chosenChanged, this, &ReviewsWindow::choose);
  text_ = new SearchField(tr("Find in Reviews"),
                          QKeySequence(QKeySequence::Find).toString(QKeySequence::NativeText));
  text_->setMinimumWidth(kLeastFieldWidth);
  text_->setMaximumWidth(kFieldWidth);
  connect(text_, &QLineEdit::textChanged, &typing_, qOverload<>(&QTimer::start));
  order_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  row->addWidget(title, 1);
  row->addWidget(order_);
  row->addWidget(storefronts_);
  row->addWidget(text_, kBeforeTitle);
  return tools;
}

QWidget* ReviewsWindow::makeChips() {
  constexpr int kChipsHeight = 40;
  QHBoxLayout* row = nullptr;
  QWidget* chips = bar(row, kChipsHeight, kChipAir);
  chips->setAccessibleName(tr("Stars"));
  row->setSpacing(kChipGap);
  for (int stars = kMostStars; stars > 0; --stars) {
    auto* chip = new Chip({}, chips);
    connect(chip, &Chip::toggled, this, &ReviewsWindow::filter);
    connect(chip, &Chip::stepped, this, [this, chip](int by) { step(chip, by); });
    row->addWidget(chip);
    chips_.push_back(chip);
  }
  tally_ = new TextLabel(kFactType.tabular(), Token::tertiary, TextAnchor::right);
  row->addWidget(tally_, 1);
  exports_ = new QToolButton;
  setIconName(*exports_, QStringLiteral("box-arrow-up"));
  exports_->setAccessibleName(tr("Export Reviews…"));
  exports_->setToolTip(
      tr("Export Reviews… (%1)").arg(kExportKeys.toString(QKeySequence::NativeText)));
  exports_->setFocusPolicy(Qt::TabFocus);
  connect(exports_, &QToolButton::clicked, this, &ReviewsWindow::exportReviews);
  exports_->setFixedSize(kChipsHeight - 2 * kChipAir, kChipsHeight - 2 * kChipAir);
  row->addWidget(exports_);
  return chips;
}

void ReviewsWindow::step(Chip* from, int by) {
  const auto next = std::ranges::find(chips_, from) - chips_.begin() + by;
  if (next < 0 || next >= std::ssize(chips_)) return;
  chips_[static_cast<std::size_t>(next)]->setFocus(by < 0 ? Qt::BacktabFocusReason
                                                          : Qt::TabFocusReason);
}

void ReviewsWindow::fillMenu() {
  QMenu& menu = *storefronts_->menu();
  menu.clear();
  for (const std::string& country : offered_) {
    QAction* action = menu.addAction(nameOf(country));
    action->setCheckable(true);
    action->setChecked(contains(chosen_, country));
    connect(action, &QAction::toggled, this,
            [this, country](bool isWanted) { setStorefront(country, isWanted); });
  }
  menu.addSeparator();
  menu.addAction(tr("All Ten Tracked"), this, [this] { setStorefronts(tracked()); });
  menu.addAction(tr("Only %1").arg(QString::fromStdString(offered_.front())), this,
                 [this] { setStorefronts({offered_.front()}); });
}

void ReviewsWindow::setStorefront(const std::string& country, bool isWanted) {
  std::vector<std::string> countries;
  for (const std::string& each : offered_) {
    if (each == country ? isWanted : contains(chosen_, each)) countries.push_back(each);
  }
  // One there has to be.
  if (!countries.empty()) setStorefronts(std::move(countries));
}

void ReviewsWindow::setStorefronts(std::vector<std::string> countries) {
  chosen_ = std::move(countries);
  choose();
}

/// Reads what is chosen, as far as it is not known.
void ReviewsWindow::choose() {
  QStringList codes;
  for (const std::string& each : chosen_) codes << QString::fromStdString(each);
  const int count = static_cast<int>(codes.size());
  storefronts_->setText(count <= kMostNamed ? codes.join(QStringLiteral(", "))
                                            : tr("%n storefronts", nullptr, count));
  storefronts_->setAccessibleName(tr("Storefronts: %1").arg(codes.join(QStringLiteral(", "))));
  reader_.choose(order_->chosen() == 1 ? ReviewOrder::mostRecent : ReviewOrder::asTheStoreHasThem,
                 chosen_);
}

void ReviewsWindow::filter() {
  typing_.stop();
  ReviewFilter filter;
  filter.text = text_->text();
  for (int stars = kMostStars; stars > 0; --stars) {
    if (chips_[static_cast<std::size_t>(kMostStars - stars)]->isChecked())
      filter.stars.insert(stars);
  }
  reviews_.setFilter(filter);
  showTally();
  showPlaceholder();
}

void ReviewsWindow::take() {
  reviews_.take(reader_);
  strip_->setState(stateOf(reader_));
  showTally();
  showPlaceholder();
}

void ReviewsWindow::showTally() {
  const ReviewTally tally = reviews_.tally();
  const QLocale locale;
  for (int stars = kMostStars; stars > 0; --stars) {
    Chip* chip = chips_[static_cast<std::size_t>(kMostStars - stars)];
    const QString count = locale.toString(
        static_cast<qulonglong>(tally.stars.at(static_cast<std::size_t>(stars) - 1)));
    const QString name = stars == 1 ? tr("%1 star, %2 read") : tr("%1 stars, %2 read");
    chip->setPlainText(QStringLiteral("%1 ★ %2").arg(QString::number(stars), count));
    chip->setAccessibleName(name.arg(QString::number(stars), count));
    chip->updateGeometry();
  }
  tally_->setText(tallyText(tally.fetched, tally.matching, reviews_.filter()));
  exports_->setEnabled(tally.matching > 0);
}

void ReviewsWindow::showPlaceholder() {
  using Kind = ListPlaceholder::Kind;
  const bool hasFetched = reviews_.tally().fetched > 0;
  const bool isRead = std::holds_alternative<Ready>(stateOf(reader_));
  Kind kind = hasFetched ? Kind::noMatch : Kind::empty;
  if (!hasFetched && !isRead) kind = Kind::nothing;
  const bool hasRows = reviews_.rowCount() > 0;
  placeholder_->setKind(hasRows ? Kind::nothing : kind);
  placeholder_->setVisible(!hasRows);
  // The focus stays with the list, whatever stands in its place for a while.
  if (!hasRows) wasFocused_ = wasFocused_ || list_->hasFocus();
  list_->setVisible(hasRows);
  if (hasRows && std::exchange(wasFocused_, false) && !text_->hasFocus()) list_->setFocus();
}

/// Of several storefronts, scrolling reads on in the last alone: in the others, what came would
/// push away those below.
void ReviewsWindow::readEnd() {
  const std::size_t last = reader_.count() - 1;
  if (std::holds_alternative<Ready>(reader_.sample(last).state)) reader_.readMore(last);
}

/// Those that are shown: what was read, as far as the filter lets it through.
bool ReviewsWindow::canExport() const { return exports_->isEnabled(); }

void ReviewsWindow::exportReviews() {
  std::vector<ReviewTableRow> rows;
  for (const ReviewRow& each : reviews_.shownReviews()) {
    const ReviewSample& sample = reader_.sample(static_cast<std::size_t>(each.storefront));
    const VersionedReview& shown = sample.reviews.at(static_cast<std::size_t>(each.review));
    rows.push_back({sample.country, shown.version, shown.review});
  }
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  const auto folder =
      lastFolder(world_.state, folderKey(), QFile::encodeName(documents).toStdString());
  const std::string own = fileNameOf(name_.toStdString());
  const std::string file = (own.empty() ? "app" : own) + "-reviews.csv";
  world_.prompts.chooseSaveFile(
      {tr("Export Reviews"), folder / file}, this,
      [this, rows = std::move(rows)](const std::filesystem::path& chosen) {
        rememberFolder(world_.state, folderKey(), chosen.parent_path());
        detach(exportTo(this, chosen, rows), "An export");
      });
}

Task<> ReviewsWindow::exportTo(QPointer<ReviewsWindow> window, std::filesystem::path file,
                               std::vector<ReviewTableRow> reviews) {
  const QString name = QFile::decodeName(file.filename().c_str());
  const int count = static_cast<int>(reviews.size());
  QString text = count == 1 ? tr("Exported 1 review to “%1”.").arg(name)
                            : tr("Exported %1 reviews to “%2”.").arg(QString::number(count), name);
  NoticeKind kind = NoticeKind::passing;
  auto write = [file, reviews = std::move(reviews)] { replaceFile(file, reviewTable(reviews)); };
  try {
    co_await onWorker(std::move(write));
  } catch (const FileError& error) {
    text = QString::fromUtf8(error.what());
    kind = NoticeKind::staying;
  }
  if (window) window->notice_->say(text, kind);
}

void ReviewsWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
  if (!text_->hasFocus()) return void(close());
  text_->clear();
  list_->setFocus(Qt::OtherFocusReason);
}

void ReviewsWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (isVisible()) keepSize(world_.state, sizeKey(), size());
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/scan_result_window.h"

#include <QListView>
#include <QLocale>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "desktop/look/checked_row.h"
#include "desktop/look/dialog_button.h"
#include "desktop/look/framed.h"
#include "desktop/look/look.h"
#include "desktop/look/wrapped_tip.h"
#include "desktop/models/row_parts.h"
#include "desktop/models/scan_words.h"
#include "desktop/page/page_text.h"

namespace quillet {

namespace {

constexpr QSize kUsualSize(640, 592);
constexpr double kMostGrowth = 1.4;  // of the window along with its texts
constexpr int kRow = 32;
constexpr int kInset = 12;
constexpr int kGap = 16;

constexpr int kDetailRole = Qt::UserRole;
constexpr int kPlaceRole = Qt::UserRole + 1;  ///< among what was found; absent of a heading

bool isHeading(const QModelIndex& index) { return !index.data(kPlaceRole).isValid(); }

/// A row: whether it is wanted, its name, and at the right what is to be said of it.
class FoundDelegate : public CheckedRowDelegate {
 public:
  explicit FoundDelegate(QObject* parent) : CheckedRowDelegate(kRow, parent) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    CheckedRowDelegate::paint(painter, option, index);
    paintTexts(*painter, option, index);
  }

 private:
  static void paintTexts(QPainter& painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) {
    Look& look = lookOf(*option.widget);
    const bool isMirrored = option.direction == Qt::RightToLeft;
    const TypeStyle type = isHeading(index) ? kControlType.weighing(kBold) : kControlType;
    const QString detail = index.data(kDetailRole).toString();
    const int inner = option.rect.width() - kTextLeft - kInset;
    const int asked = static_cast<int>(std::ceil(look.text.width(detail, kFactType)));
    const int its = std::min(asked, inner / 2);
    const int left = option.rect.left() + (isHeading(index) ? kInset : kTextLeft);
    const auto place = [&](int x, int width) {
      return QRectF(QStyle::visualRect(option.direction, option.rect,
                                       QRect(x, option.rect.top(), width, option.rect.height())));
    };
    const int right = option.rect.right() - kInset - its;
    look.text.drawElided(
        painter,
        {place(left, right - kGap - left), isMirrored ? TextAnchor::right : TextAnchor::left},
        index.data().toString(), type, look[Token::text]);
    look.text.drawElided(painter,
                         {place(right, its), isMirrored ? TextAnchor::left : TextAnchor::right},
                         detail, kFactType, look[Token::secondary]);
  }
};

QString countText(std::size_t count) { return QLocale().toString(static_cast<qulonglong>(count)); }

bool isNew(const FoundApp& app) { return app.as == FoundAs::added || app.as == FoundAs::offered; }

bool isUnmatched(const FoundApp& app) {
  return !app.row && app.as != FoundAs::known && app.as != FoundAs::ignored;
}

/// What is only offered is none of the user's yet.
bool hasOwnUpdate(const FoundApp& app) { return app.as != FoundAs::offered && hasUpdate(app); }

QString versionsText(const FoundApp& app) {
  return QStringLiteral("%1 → %2").arg(plainLine(app.row->installedVersion),
                                       plainLine(app.row->storeVersion));
}

/// What was handed in by the user is wanted; what the store put there is in My Apps already.
Qt::CheckState tickOf(const FoundApp& app, ScanCause cause) {
  const bool isWanted = app.as == FoundAs::added || cause == ScanCause::drop;
  return isWanted ? Qt::Checked : Qt::Unchecked;
}

}  // namespace

ScanResultWindow::ScanResultWindow(ScanOutcome outcome, std::string country, QWidget* parent)
    : QDialog(parent),
      outcome_(std::move(outcome)),
      country_(std::move(country)),
      list_(new QListView),
      search_(new DialogButton(tr("Search the Store"))),
      link_(new DialogButton(tr("Set Link…"))),
      ignore_(new DialogButton(tr("Ignore"))) {
  setWindowTitle(tr("Scan Result"));
  setAttribute(Qt::WA_DeleteOnClose);
  resize(kUsualSize * std::min(lookOf(*this).growth(), kMostGrowth));
  auto* title = new PageText({.type = kSectionType});
  title->show(tr("Scan Result"));
  auto* counts = new PageText({.type = kBodyType, .ink = Token::secondary});
  const QString problem = scanProblem(outcome_);
  counts->show(scanCounts(outcome_.apps.size(), outcome_.matched) + u'.' +
               (problem.isEmpty() ? QString() : u' ' + problem));
  list_->setAccessibleName(tr("Found apps"));
  list_->setModel(&rows_);
  list_->setItemDelegate(new FoundDelegate(list_));
  list_->setUniformItemSizes(true);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  auto* cancel = new DialogButton(tr("Cancel"));
  auto* done = new DialogButton(tr("Done"), ButtonKind::primary);
  done->setDefault(true);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(24, 20, 24, 20);
  column->setSpacing(12);
  column->addWidget(title);
  column->addWidget(counts);
  column->addWidget(new Framed(list_), 1);
  column->addLayout(buttonRow({search_, link_, ignore_}, {cancel, done}));
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(done, &QPushButton::clicked, this, &QDialog::accept);
  connect(search_, &QPushButton::clicked, this,
          [this] { Q_EMIT searched(nameLine(found(*chosen()).bundle.name)); });
  connect(link_, &QPushButton::clicked, this, [this] { Q_EMIT linkAsked(*chosen()); });
  connect(ignore_, &QPushButton::clicked, this, [this] { Q_EMIT ignored(*chosen()); });
  fill();
  connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          &ScanResultWindow::follow);
  follow();
  list_->setFocus(Qt::OtherFocusReason);
}

void ScanResultWindow::fill() {
  const std::vector<FoundApp>& apps = outcome_.apps;
  const auto group = [this, &apps](const QString& title, auto belongs, auto addOne) {
    const auto count = static_cast<std::size_t>(std::ranges::count_if(apps, belongs));
    if (count == 0) return;
    addHeading(title, count);
    for (std::size_t i = 0; i < apps.size(); ++i) {
      if (belongs(apps[i])) addOne(i);
    }
  };
  group(tr("Matched"), isNew, [this, &apps](std::size_t i) {
    addRow(i, reasonText(apps[i], country_), tickOf(apps[i], outcome_.cause));
  });
  group(tr("Updates"), hasOwnUpdate,
        [this, &apps](std::size_t i) { addRow(i, versionsText(apps[i]), {}); });
  const auto isThere = [this](const FoundApp& app) {
    return outcome_.cause == ScanCause::drop && app.as == FoundAs::known && !hasOwnUpdate(app);
  };
  group(tr("Nothing to add"), isThere,
        [this, &apps](std::size_t i) { addRow(i, reasonText(apps[i], country_), {}); });
  group(tr("Not matched"), isUnmatched,
        [this, &apps](std::size_t i) { addRow(i, reasonText(apps[i], country_), {}); });
}

void ScanResultWindow::addHeading(const QString& text, std::size_t count) {
  auto* item = new QStandardItem(text);
  item->setFlags(Qt::ItemIsEnabled);
  setCount(*item, count);
  rows_.appendRow(item);
}

void ScanResultWindow::setCount(QStandardItem& heading, std::size_t count) {
  heading.setData(countText(count), kDetailRole);
  heading.setData(heading.text() + QStringLiteral(", ") + countText(count), Qt::AccessibleTextRole);
}

void ScanResultWindow::addRow(std::size_t place, const QString& detail,
                              std::optional<Qt::CheckState> tick) {
  const QString name = nameLine(found(place).bundle.name);
  auto* item = new QStandardItem(name);
  item->setEditable(false);
  item->setData(detail, kDetailRole);
  item->setData(static_cast<qulonglong>(place), kPlaceRole);
  item->setData(name + QStringLiteral(", ") + detail, Qt::AccessibleTextRole);
  item->setToolTip(wrappedTip(plainLine(found(place).bundle.path.string())));
  if (tick) {
    item->setCheckable(true);
    item->setCheckState(*tick);
  }
  rows_.appendRow(item);
}

std::vector<const FoundApp*> ScanResultWindow::foundWith(Qt::CheckState tick) const {
  std::vector<const FoundApp*> apps;
  for (int row = 0; row < rows_.rowCount(); ++row) {
    const QStandardItem& item = *rows_.item(row);
    if (item.isCheckable() && item.checkState() == tick)
      apps.push_back(&found(item.data(kPlaceRole).toULongLong()));
  }
  return apps;
}

std::vector<OwnedApp> ScanResultWindow::wanted() const {
  std::vector<OwnedApp> apps;
  for (const FoundApp* each : foundWith(Qt::Checked)) {
    const auto isListed = [&](const OwnedApp& app) { return keyOf(app) == keyOf(*each->row); };
    if (each->as == FoundAs::offered && std::ranges::none_of(apps, isListed))
      apps.push_back(*each->row);
  }
  return apps;
}

/// Of several copies of an app one that is ticked keeps it.
std::vector<AppKey> ScanResultWindow::unwanted() const {
  std::set<AppKey> keys;
  for (const FoundApp* each : foundWith(Qt::Unchecked)) {
    if (each->as == FoundAs::added) keys.insert(each->keys.begin(), each->keys.end());
  }
  for (const FoundApp* each : foundWith(Qt::Checked)) keys.erase(keyOf(*each->row));
  return {keys.begin(), keys.end()};
}

void ScanResultWindow::settle(std::size_t place) {
  for (int row = 0; row < rows_.rowCount(); ++row) {
    const QVariant its = rows_.item(row)->data(kPlaceRole);
    if (its.isValid() && its.toULongLong() == place) {
      rows_.removeRow(row);
      recount(row - 1);
      return follow();
    }
  }
}

/// Of the group in which `row` stands, after one of its rows went; one without any goes as well.
void ScanResultWindow::recount(int row) {
  int heading = row;
  while (!isHeading(rows_.index(heading, 0))) --heading;
  int end = heading + 1;
  while (end < rows_.rowCount() && !isHeading(rows_.index(end, 0))) ++end;
  if (end == heading + 1) return void(rows_.removeRow(heading));
  setCount(*rows_.item(heading), static_cast<std::size_t>(end - heading - 1));
}

std::optional<std::size_t> ScanResultWindow::chosen() const {
  const QVariant place = list_->currentIndex().data(kPlaceRole);
  if (!place.isValid()) return {};
  return place.toULongLong();
}

/// What can be done about the row that is chosen.
void ScanResultWindow::follow() {
  const auto place = chosen();
  const bool isOpen = place && isUnmatched(found(*place));
  search_->setEnabled(isOpen);
  link_->setEnabled(isOpen);
  ignore_->setEnabled(isOpen && found(*place).bundle.bundleId.has_value());
}

void ScanResultWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), lookOf(*this)[Token::base]);
}

}  // namespace quillet

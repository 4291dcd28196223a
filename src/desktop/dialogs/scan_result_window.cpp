// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/scan_result_window.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListView>
#include <QLocale>
#include <QPainter>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <cmath>
#include <utility>

#include "desktop/look/dialog_button.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/models/row_parts.h"
#include "desktop/models/scan_words.h"
#include "desktop/page/page_text.h"

namespace quillet {

namespace {

constexpr QSize kUsualSize(640, 592);
constexpr double kMostGrowth = 1.4;  // of the window along with its texts
constexpr int kRow = 32;
constexpr int kInset = 12;
constexpr int kCheck = 16;
constexpr int kTextLeft = 40;
constexpr int kGap = 16;
constexpr QMargins kFrame(1, 5, 1, 5);  // around the rows
constexpr double kFrameCorner = 8;

constexpr int kDetailRole = Qt::UserRole;
constexpr int kPlaceRole = Qt::UserRole + 1;  ///< among what was found; absent of a heading

bool isHeading(const QModelIndex& index) { return !index.data(kPlaceRole).isValid(); }

/// A row: whether it is wanted, its name, and at the right what is to be said of it.
class FoundDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& /*index*/) const override {
    return {0, static_cast<int>(std::ceil(kRow * lookOf(*option.widget).growth()))};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    paintGround(*painter, option);
    if (index.data(Qt::CheckStateRole).isValid()) paintCheck(*painter, option, index);
    paintTexts(*painter, option, index);
  }

  /// A click on the box or before it; elsewhere the row is chosen.
  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
    if (!index.data(Qt::CheckStateRole).isValid()) return false;
    if (event->type() == QEvent::MouseButtonRelease) {
      const QRect box = checkRect(option).adjusted(-kInset, -kRow, kInset / 2, kRow);
      return box.contains(static_cast<QMouseEvent*>(event)->pos()) && toggle(*model, index);
    }
    if (event->type() != QEvent::KeyPress) return false;
    return static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space && toggle(*model, index);
  }

 private:
  static bool toggle(QAbstractItemModel& model, const QModelIndex& index) {
    const bool isOn = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    return model.setData(index, isOn ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
  }

  static QRect checkRect(const QStyleOptionViewItem& option) {
    const QRect& row = option.rect;
    const QRect box(row.left() + kInset, row.top() + (row.height() - kCheck) / 2, kCheck, kCheck);
    return QStyle::visualRect(option.direction, row, box);
  }

  static void paintGround(QPainter& painter, const QStyleOptionViewItem& option) {
    Look& look = lookOf(*option.widget);
    const QRectF box = QRectF(option.rect).adjusted(4, 1, -4, -1);
    if (option.state.testFlag(QStyle::State_Selected))
      paintBox(painter, box, 6, look[Token::selection]);
    if (option.state.testFlag(QStyle::State_HasFocus) &&
        option.widget->window()->testAttribute(Qt::WA_KeyboardFocusChange))
      paintBox(painter, box, 6, Qt::transparent, {look[Token::accentText], 2});
  }

  static void paintCheck(QPainter& painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) {
    const bool isOn = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    QStyleOption check;
    check.initFrom(option.widget);
    check.rect = checkRect(option);
    check.state = QStyle::State_Enabled | (isOn ? QStyle::State_On : QStyle::State_Off);
    option.widget->style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &check, &painter,
                                          option.widget);
  }

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
  list_->setFrameShape(QFrame::NoFrame);
  auto* framed = new QVBoxLayout;
  framed->setContentsMargins(kFrame);
  framed->addWidget(list_);
  auto* cancel = new DialogButton(tr("Cancel"));
  auto* done = new DialogButton(tr("Done"), ButtonKind::primary);
  done->setDefault(true);
  auto* buttons = new QHBoxLayout;
  for (QPushButton* each : {search_, link_, ignore_}) buttons->addWidget(each);
  buttons->addStretch(1);
  buttons->addWidget(cancel);
  buttons->addWidget(done);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(24, 20, 24, 20);
  column->setSpacing(12);
  column->addWidget(title);
  column->addWidget(counts);
  column->addLayout(framed, 1);
  column->addLayout(buttons);
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
  group(tr("Not matched"), isUnmatched,
        [this, &apps](std::size_t i) { addRow(i, reasonText(apps[i], country_), {}); });
}

void ScanResultWindow::addHeading(const QString& text, std::size_t count) {
  auto* item = new QStandardItem(text);
  item->setFlags(Qt::ItemIsEnabled);
  item->setData(countText(count), kDetailRole);
  item->setData(text + QStringLiteral(", ") + countText(count), Qt::AccessibleTextRole);
  rows_.appendRow(item);
}

void ScanResultWindow::addRow(std::size_t place, const QString& detail,
                              std::optional<Qt::CheckState> tick) {
  const QString name = nameLine(found(place).bundle.name);
  auto* item = new QStandardItem(name);
  item->setEditable(false);
  item->setData(detail, kDetailRole);
  item->setData(static_cast<qulonglong>(place), kPlaceRole);
  item->setData(name + QStringLiteral(", ") + detail, Qt::AccessibleTextRole);
  item->setToolTip(plainLine(found(place).bundle.path.string()));
  if (tick) {
    item->setCheckable(true);
    item->setCheckState(*tick);
  }
  rows_.appendRow(item);
}

std::vector<OwnedApp> ScanResultWindow::wanted() const {
  std::vector<OwnedApp> apps;
  for (int row = 0; row < rows_.rowCount(); ++row) {
    const QStandardItem& item = *rows_.item(row);
    if (!item.isCheckable() || item.checkState() != Qt::Checked) continue;
    const FoundApp& app = found(item.data(kPlaceRole).toULongLong());
    if (app.as == FoundAs::offered) apps.push_back(*app.row);
  }
  return apps;
}

std::vector<AppKey> ScanResultWindow::unwanted() const {
  std::vector<AppKey> keys;
  for (int row = 0; row < rows_.rowCount(); ++row) {
    const QStandardItem& item = *rows_.item(row);
    if (!item.isCheckable() || item.checkState() == Qt::Checked) continue;
    const FoundApp& app = found(item.data(kPlaceRole).toULongLong());
    if (app.as == FoundAs::added) keys.insert(keys.end(), app.keys.begin(), app.keys.end());
  }
  return keys;
}

void ScanResultWindow::settle(std::size_t place) {
  for (int row = 0; row < rows_.rowCount(); ++row) {
    const QVariant its = rows_.item(row)->data(kPlaceRole);
    if (its.isValid() && its.toULongLong() == place) {
      rows_.removeRow(row);
      return follow();
    }
  }
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
  QPainter painter(this);
  Look& look = lookOf(*this);
  painter.fillRect(rect(), look[Token::base]);
  paintBox(painter, list_->geometry() + kFrame, kFrameCorner, Qt::transparent, {look[Token::edge]});
}

}  // namespace quillet

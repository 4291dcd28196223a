// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/settings_index.h"

#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/search_field.h"
#include "desktop/look/widgets.h"

namespace quillet {

namespace {

constexpr int kWidth = 184;
constexpr int kInset = 8;
constexpr int kItem = 30;
constexpr int kItemGap = 2;
constexpr int kHit = 44;
constexpr double kText = 18;  // of a line's height
constexpr double kPadding = 8;
constexpr double kIcon = 16;
constexpr double kGap = 8;

enum Role {
  IconRole = Qt::UserRole,  ///< of a page
  PageRole,                 ///< of a row that was found: on which page it is
};

int grown(const Look& look, int height, double texts) {
  return height + static_cast<int>(std::ceil(texts * (look.growth() - 1)));
}

class IndexDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    Look& look = lookOf(*option.widget);
    const bool isChosen = option.state.testFlag(QStyle::State_Selected);
    const bool isMirrored = option.direction == Qt::RightToLeft;
    const QRectF box = QRectF(option.rect).adjusted(0, 0, 0, -kItemGap);
    if (isChosen) {
      paintBox(*painter, box, 7, look[Token::sideSelection]);
    } else if (option.state.testFlag(QStyle::State_MouseOver)) {
      paintBox(*painter, box, 7, look[Token::sideHover]);
    }
    if (isChosen && option.state.testFlag(QStyle::State_HasFocus) &&
        option.state.testFlag(QStyle::State_KeyboardFocusChange))
      paintBox(*painter, box, 7, Qt::transparent, {look[Token::accentText], 2});
    const TextAnchor start = isMirrored ? TextAnchor::right : TextAnchor::left;
    QRectF line = box.adjusted(kPadding, 0, -kPadding, 0);
    const QString icon = index.data(IconRole).toString();
    if (!icon.isEmpty()) {
      const double left = isMirrored ? line.right() - kIcon : line.left();
      look.icons.draw(*painter, {left, line.center().y() - kIcon / 2}, icon, kIcon,
                      look[isChosen ? Token::accentText : Token::secondary]);
      const double taken = kIcon + kGap;
      line.adjust(isMirrored ? 0 : taken, 0, isMirrored ? -taken : 0, 0);
    }
    const QString page = index.data(PageRole).toString();
    if (!page.isEmpty()) {
      const QRectF second(line.left(), line.center().y(), line.width(), line.height() / 2 - 4);
      look.text.drawElided(*painter, {second, start}, page, kCaptionType,
                           look[isChosen ? Token::secondary : Token::tertiary]);
      line = QRectF(line.left(), line.top() + 4, line.width(), line.height() / 2 - 4);
    }
    look.text.drawElided(*painter, {line, start}, index.data().toString(),
                         isChosen ? kControlType.weighing(600) : kControlType, look[Token::text]);
  }

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override {
    const Look& look = lookOf(*option.widget);
    const bool isHit = index.data(PageRole).isValid();
    return {0, isHit ? grown(look, kHit, 2 * kText) : grown(look, kItem, kText) + kItemGap};
  }
};

/// The list, with a word where there is nothing in it.
class IndexView : public QListView {
 protected:
  void paintEvent(QPaintEvent* event) override {
    QListView::paintEvent(event);
    if (model()->rowCount() > 0) return;
    QPainter painter(viewport());
    Look& look = lookOf(*this);
    look.text.drawElided(
        painter,
        {QRectF(kPadding, 0, viewport()->width() - 2 * kPadding, grown(look, kItem, kText))},
        SettingsIndex::tr("No setting is called that"), kFactType, look[Token::tertiary]);
  }
};

}  // namespace

SettingsIndex::SettingsIndex(std::vector<SettingsPage*> pages)
    : pages_(std::move(pages)),
      field_(new SearchField(tr("Search settings"))),
      list_(new IndexView) {
  setAccessibleName(tr("Pages"));
  list_->setAccessibleName(tr("Pages of settings"));
  list_->setModel(&shown_);
  list_->setItemDelegate(new IndexDelegate(list_));
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_->setFrameShape(QFrame::NoFrame);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  list_->viewport()->setAutoFillBackground(false);
  list_->viewport()->setAttribute(Qt::WA_Hover);
  for (QWidget* part : {static_cast<QWidget*>(field_), static_cast<QWidget*>(list_)})
    part->installEventFilter(this);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kInset, 12, kInset + 1, kInset);
  column->setSpacing(12);
  column->addWidget(field_);
  column->addWidget(list_, 1);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
  fit();
  connect(field_, &QLineEdit::textChanged, this, &SettingsIndex::fill);
  connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& current) {
            // What was found is only gone to when that is said.
            if (!isSearching() && current.isValid()) takeRow(current.row());
          });
  connect(list_, &QListView::clicked, this,
          [this](const QModelIndex& index) { takeRow(index.row()); });
  showPages();
}

bool SettingsIndex::isSearching() const { return !field_->text().trimmed().isEmpty(); }

void SettingsIndex::stopSearching() { field_->clear(); }

void SettingsIndex::takeFocus() { list_->setFocus(Qt::OtherFocusReason); }

void SettingsIndex::takeSearchFocus() {
  field_->setFocus(Qt::ShortcutFocusReason);
  field_->selectAll();
}

void SettingsIndex::choose(const SettingsPage& page) {
  chosen_ = &page;
  if (!isSearching()) showPages();
}

void SettingsIndex::fill() { isSearching() ? showHits() : showPages(); }

void SettingsIndex::showPages() {
  const QSignalBlocker quiet(list_->selectionModel());
  for (const Hit& hit : hits_) hit.row->setFound(false);
  hits_.clear();
  shown_.clear();
  for (SettingsPage* page : pages_) {
    auto* item = new QStandardItem(page->title());
    item->setData(page->icon(), IconRole);
    shown_.appendRow(item);
    if (page == chosen_) list_->setCurrentIndex(item->index());
  }
  list_->viewport()->update();
}

void SettingsIndex::showHits() {
  const QString sought = field_->text().toCaseFolded();
  const QSignalBlocker quiet(list_->selectionModel());
  for (const Hit& hit : hits_) hit.row->setFound(false);
  hits_.clear();
  shown_.clear();
  for (SettingsPage* page : pages_) {
    for (SettingRow* row : page->rows()) {
      if (!row->matches(sought)) continue;
      hits_.push_back({page, row});
      row->setFound(true);
      auto* item = new QStandardItem(row->title());
      item->setData(page->title(), PageRole);
      item->setData(QStringLiteral("%1, %2").arg(row->title(), page->title()),
                    Qt::AccessibleTextRole);
      shown_.appendRow(item);
    }
  }
  if (!hits_.empty()) list_->setCurrentIndex(shown_.index(0, 0));
  list_->viewport()->update();
}

void SettingsIndex::takeRow(int row) {
  const auto at = static_cast<std::size_t>(row);
  if (isSearching()) {
    if (at < hits_.size()) Q_EMIT rowChosen(hits_[at].page, hits_[at].row);
  } else if (at < pages_.size()) {
    Q_EMIT pageChosen(pages_[at]);
  }
}

/// The field is as high as the rows below it.
void SettingsIndex::fit() {
  field_->setFixedHeight(grown(lookOf(*this), kItem, kText));
  updateGeometry();
}

void SettingsIndex::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) fit();
}

/// As wide as the names of the pages need, and what the field says.
QSize SettingsIndex::sizeHint() const {
  constexpr double kInField = 12;
  TextPainter& text = lookOf(*this).text;
  double widest = text.width(field_->placeholderText(), kBodyType) + kInField;
  for (const SettingsPage* page : pages_)
    widest = std::max(widest, text.width(page->title(), kControlType.weighing(600)));
  const double around = 2 * kInset + 1 + 2 * kPadding + kIcon + kGap;
  return {std::max(kWidth, static_cast<int>(std::ceil(widest + around))), 0};
}

bool SettingsIndex::eventFilter(QObject* watched, QEvent* event) {
  if (steers(*list_, watched, *event)) return true;
  if (!isReturn(*event)) return QWidget::eventFilter(watched, event);
  if (list_->currentIndex().isValid()) takeRow(list_->currentIndex().row());
  return true;
}

void SettingsIndex::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  painter.fillRect(rect(), look[Token::side]);
  const double edge = layoutDirection() == Qt::RightToLeft ? 0 : width() - 1;
  PixelGrid(painter).vertical(edge, 0, height(), look[Token::line]);
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/search/hint_list.h"

#include <QApplication>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

#include "desktop/lists/chip.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr int kRowHeight = 32;
constexpr int kPadding = 4;
constexpr int kLeastWidth = 280;
constexpr int kGapBelow = 4;
constexpr double kCorner = 8;
constexpr double kRowCorner = 5;
constexpr double kIcon = 14;
constexpr double kIconLeft = 10;
constexpr double kTextLeft = 32;
constexpr double kRight = 10;
constexpr double kGap = 12;

constexpr int kIconRole = Qt::UserRole;
constexpr int kAsideRole = Qt::UserRole + 1;

class HintDelegate final : public QStyledItemDelegate {
 public:
  explicit HintDelegate(QWidget& list) : QStyledItemDelegate(&list), list_(list) {}

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                               const QModelIndex& /*index*/) const override {
    return {kLeastWidth, grownLine(list_, kRowHeight)};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    Look& look = lookOf(list_);
    const QRectF row(option.rect);
    const bool isCurrent = option.state.testFlag(QStyle::State_Selected);
    if (isCurrent) {
      paintBox(*painter, row, kRowCorner, look[Token::selection]);
    } else if (option.state.testFlag(QStyle::State_MouseOver)) {
      paintBox(*painter, row, kRowCorner, look[Token::hover]);
    }
    const bool isMirrored = option.direction == Qt::RightToLeft;
    const auto placed = [&](double left, double width) {
      const double x = isMirrored ? row.right() - left - width : row.left() + left;
      return QRectF(x, row.top(), width, row.height());
    };
    const TextAnchor start = isMirrored ? TextAnchor::right : TextAnchor::left;
    const Token quiet = isCurrent ? Token::secondary : Token::tertiary;
    look.icons.draw(*painter,
                    placed(kIconLeft, kIcon).topLeft() + QPointF(0, (row.height() - kIcon) / 2),
                    index.data(kIconRole).toString(), kIcon, look[quiet]);
    const QString aside = index.data(kAsideRole).toString();
    const double asideWidth = look.text.width(aside, kCaptionType);
    const double asideLeft = row.width() - kRight - asideWidth;
    look.text.draw(*painter, {placed(asideLeft, asideWidth), start}, aside, kCaptionType,
                   look[quiet]);
    look.text.drawElided(*painter, {placed(kTextLeft, asideLeft - kGap - kTextLeft), start},
                         index.data(Qt::DisplayRole).toString(), kBodyType, look[Token::text]);
  }

 private:
  QWidget& list_;
};

QString asideText(const SearchHint& hint, const std::string& storefront) {
  const QString kind = kindText(hint.kind);
  const bool isSearch = hint.kind == HintKind::recent || hint.kind == HintKind::saved;
  const QString where = isSearch ? asideOf(hint.query.request, storefront) : QString();
  return where.isEmpty() ? kind : where + QStringLiteral(" · ") + kind;
}

}  // namespace

HintList::HintList(QWidget& field) : QListView(&field), field_(field) {
  setFocusPolicy(Qt::NoFocus);
  setFocusProxy(&field);  // so that a screen reader is told of the current one
  setAccessibleName(tr("Suggestions"));
  setModel(&items_);
  setItemDelegate(new HintDelegate(*this));
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setFrameShape(QFrame::NoFrame);
  setUniformItemSizes(true);
  setMouseTracking(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setViewportMargins(kPadding, kPadding, kPadding, kPadding);
  setAutoFillBackground(false);
  viewport()->setAutoFillBackground(false);
  hide();
  connect(this, &QListView::clicked, this, [this](const QModelIndex& index) {
    const SearchHint hint = hints_[static_cast<std::size_t>(index.row())];
    hide();
    Q_EMIT picked(hint);
  });
}

void HintList::show(std::vector<SearchHint> hints, const std::string& storefront) {
  if (hints.empty()) {
    hide();
    return;
  }
  if (hints_ != hints || !isVisible()) {
    hints_ = std::move(hints);
    items_.clear();
    for (const SearchHint& hint : hints_) {
      auto* item = new QStandardItem(hint.text);
      const QString aside = asideText(hint, storefront);
      item->setData(iconOf(hint.kind), kIconRole);
      item->setData(aside, kAsideRole);
      item->setData(hint.text + QStringLiteral(", ") + aside, Qt::AccessibleTextRole);
      items_.appendRow(item);
    }
  }
  setCurrentIndex({});
  place();
  QListView::show();
}

void HintList::place() {
  QWidget& window = *field_.window();
  if (parentWidget() != &window) setParent(&window);
  const int rows = static_cast<int>(hints_.size()) * grownLine(*this, kRowHeight);
  const QSize size(std::min(std::max(kLeastWidth, field_.width()), window.width()),
                   rows + 2 * kPadding);
  QPoint corner = field_.mapTo(&window, QPoint(0, field_.height() + kGapBelow));
  if (field_.layoutDirection() == Qt::RightToLeft) corner.rx() += field_.width() - size.width();
  corner.setX(std::clamp(corner.x(), 0, window.width() - size.width()));
  setGeometry(QRect(corner, size));
  raise();
}

void HintList::step(int by) {
  const int count = items_.rowCount();
  const int here = currentIndex().isValid() ? currentIndex().row() : (by > 0 ? -1 : count);
  const int next = here + by;
  setCurrentIndex(next >= 0 && next < count ? items_.index(next, 0) : QModelIndex());
}

const SearchHint* HintList::current() const {
  const int row = currentIndex().row();
  return row < 0 || !isVisible() ? nullptr : &hints_[static_cast<std::size_t>(row)];
}

void HintList::showEvent(QShowEvent* event) {
  QListView::showEvent(event);
  qApp->installEventFilter(this);
}

void HintList::hideEvent(QHideEvent* event) {
  QListView::hideEvent(event);
  qApp->removeEventFilter(this);
}

bool HintList::eventFilter(QObject* watched, QEvent* event) {
  const auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress: {
      const bool isOurs = widget == this || isAncestorOf(widget) || widget == &field_ ||
                          field_.isAncestorOf(widget);
      if (!isOurs) hide();
      break;
    }
    case QEvent::FocusOut:
    case QEvent::Hide:
    case QEvent::Move:
      if (widget == &field_) hide();
      break;
    case QEvent::Resize:
      if (widget == &field_ || widget == parentWidget()) hide();
      break;
    default: break;
  }
  return false;
}

bool HintList::event(QEvent* event) {
  if (event->type() != QEvent::Paint) return QListView::event(event);
  QPainter painter(this);
  Look& look = lookOf(*this);
  const bool isDark = look.palette.scheme() == Scheme::dark;
  paintBox(painter, rect(), kCorner, look[isDark ? Token::raised : Token::base],
           {look[Token::edge]});
  return true;
}

}  // namespace quillet

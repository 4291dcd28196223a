// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/review_list_view.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr int kKeptCards = 128;
constexpr int kWheelStep = 20;
constexpr int kInset = 8;     // of what a row's ground covers
constexpr int kPadding = 12;  // between it and the texts
constexpr int kAbove = 12;
constexpr int kBelow = 14;
constexpr int kWidestText = 720;
constexpr double kCorner = 8;
constexpr double kRing = 2;
constexpr int kFoldedLines = 12;
constexpr int kTitleLines = 3;
constexpr int kFoldLine = 20;
constexpr int kHeadingHeight = 36;
constexpr int kMoreHeight = 44;
constexpr qint64 kSlice = 6;     // ms of measuring at a time
constexpr double kLetter = 6.6;  // how wide one is, about
constexpr int kTries = 4;

int grown(const QWidget& widget, int height) {
  return static_cast<int>(std::ceil(height * lookOf(widget).growth()));
}

/// Paints a row as its view has measured it.
class ReviewDelegate : public QStyledItemDelegate {
 public:
  ReviewDelegate(ReviewListView& view, const ReviewListModel& reviews)
      : QStyledItemDelegate(&view), view_(view), reviews_(reviews) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    Look& look = lookOf(view_);
    painter->save();
    paintGround(*painter, look, option, index.row());
    if (reviews_.row(index.row()).kind == ReviewRowKind::review) {
      paintReview(*painter, look, option, index.row());
    } else {
      paintLine(*painter, look, option, index.row());
    }
    painter->restore();
  }

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                               const QModelIndex& index) const override {
    return {1, view_.heightOf(index.row())};
  }

 private:
  static bool isSelected(const QStyleOptionViewItem& option) {
    return option.state.testFlag(QStyle::State_Selected);
  }

  void paintGround(QPainter& painter, Look& look, const QStyleOptionViewItem& option,
                   int row) const {
    const QRectF ground = QRectF(option.rect).adjusted(kInset, 0, -kInset, 0);
    if (isSelected(option)) paintBox(painter, ground, kCorner, look[Token::selection]);
    const bool showsRing = option.state.testFlag(QStyle::State_HasFocus) &&
                           option.state.testFlag(QStyle::State_KeyboardFocusChange);
    if (showsRing) {
      paintBox(painter, ground, kCorner, Qt::transparent, {look[Token::accentText], kRing});
    } else if (isSelected(option)) {
      paintBar(painter, look, ground, option.direction);
    }
    if (isSelected(option) || showsRing || !hasHairline(row)) return;
    const QRectF content = view_.contentOf(option.rect);
    PixelGrid(painter).horizontal(content.left(), content.right(), option.rect.bottom(),
                                  look[Token::line]);
  }

  static void paintBar(QPainter& painter, Look& look, const QRectF& ground,
                       Qt::LayoutDirection direction) {
    constexpr double kWidth = 3;
    constexpr double kLeft = 4;
    constexpr double kInside = 18;
    QRectF bar(ground.left() + kLeft, ground.top() + kInside, kWidth,
               ground.height() - 2 * kInside);
    if (direction == Qt::RightToLeft) bar.moveRight(ground.right() - kLeft);
    if (bar.height() > 0) paintBox(painter, bar, 2, look[Token::accentText]);
  }

  /// Between two reviews that are not chosen.
  [[nodiscard]] bool hasHairline(int row) const {
    if (row + 1 >= reviews_.rowCount()) return false;
    const QModelIndex next = reviews_.index(row + 1);
    return reviews_.row(row).kind == ReviewRowKind::review &&
           reviews_.row(row + 1).kind == ReviewRowKind::review &&
           !view_.selectionModel()->isSelected(next);
  }

  void paintReview(QPainter& painter, Look& look, const QStyleOptionViewItem& option,
                   int row) const {
    const QRect content = view_.contentOf(option.rect);
    const ReviewCard& card = view_.cardOf(row);
    const bool isMirrored = option.direction == Qt::RightToLeft;
    card.paint(painter, look, content.topLeft(),
               isSelected(option) ? ReviewGround::selection : ReviewGround::sheet, isMirrored);
    const QString fold = view_.foldTextOf(row);
    const QRectF line(content.left(), content.top() + card.height(), content.width(),
                      grown(view_, kFoldLine));
    look.text.draw(painter, {line, isMirrored ? TextAnchor::right : TextAnchor::left}, fold,
                   kSmallControlType, look[Token::accentText]);
  }

  void paintLine(QPainter& painter, Look& look, const QStyleOptionViewItem& option, int row) const {
    const bool isHeading = reviews_.row(row).kind == ReviewRowKind::storefront;
    QRectF line = view_.contentOf(option.rect);
    line.setTop(option.rect.top());
    line.setHeight(option.rect.height());
    const bool isMirrored = option.direction == Qt::RightToLeft;
    const TextAnchor anchor = isMirrored ? TextAnchor::right : TextAnchor::left;
    look.text.drawElided(painter, {line, anchor}, reviews_.lineOf(row),
                         isHeading ? kSmallControlType.weighing(600).tabular() : kSmallControlType,
                         look[reviews_.isQuiet(row) ? Token::secondary : Token::accentText]);
    if (isHeading && row > 0) {
      PixelGrid(painter).horizontal(line.left(), line.right(), option.rect.top(),
                                    look[Token::line]);
    }
  }

  ReviewListView& view_;
  const ReviewListModel& reviews_;
};

}  // namespace

ReviewListView::ReviewListView(const QString& name, ReviewListModel& reviews)
    : reviews_(reviews), cards_(kKeptCards) {
  setAccessibleName(name);
  setFrameShape(QFrame::NoFrame);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  verticalScrollBar()->setSingleStep(kWheelStep);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setItemDelegate(new ReviewDelegate(*this, reviews));
  spare_.setSingleShot(true);
  connect(&spare_, &QTimer::timeout, this, &ReviewListView::measureSome);
  setModel(&reviews);
}

ReviewListView::Key ReviewListView::keyOf(int row) const {
  constexpr int kHalf = 32;
  const ReviewRow& shown = reviews_.row(row);
  return static_cast<Key>(shown.storefront) << kHalf | static_cast<quint32>(shown.review);
}

QRect ReviewListView::contentOf(const QRect& row) const {
  QRect content = row.adjusted(kInset + kPadding, kAbove, -kInset - kPadding, -kBelow);
  const int unused = std::max(0, content.width() - grown(*this, kWidestText));
  return layoutDirection() == Qt::RightToLeft ? content.adjusted(unused, 0, 0, 0)
                                              : content.adjusted(0, 0, -unused, 0);
}

int ReviewListView::contentWidth() const {
  return contentOf(QRect(0, 0, viewport()->width(), 0)).width();
}

const ReviewCard& ReviewListView::cardOf(int row) const {
  const Key key = keyOf(row);
  if (const ReviewCard* kept = cards_.object(key)) return *kept;
  ReviewFold fold{.title = kTitleLines};
  if (!isUnfolded(row)) fold.body = kFoldedLines;
  auto* card = new ReviewCard(reviews_.review(row), contentWidth(), fold, lookOf(*this));
  cards_.insert(key, card);
  return *card;
}

QString ReviewListView::foldTextOf(int row) const {
  if (isUnfolded(row)) return tr("Less");
  return cardOf(row).isCut() ? tr("More") : QString();
}

int ReviewListView::measured(int row) const {
  const int fold = foldTextOf(row).isEmpty() ? 0 : grown(*this, kFoldLine);
  return kAbove + cardOf(row).height() + fold + kBelow;
}

/// By the number of letters.
int ReviewListView::guessOf(int row) const {
  const ReviewText& text = reviews_.review(row);
  constexpr int kLine = 18;
  constexpr int kHead = 38;
  const double perLine = std::max(1.0, contentWidth() / (kLetter * lookOf(*this).text.scale()));
  const auto linesOf = [&](const QString& each) {
    const int lines = static_cast<int>(std::ceil(static_cast<double>(each.size()) / perLine));
    return std::min(lines, kFoldedLines);
  };
  int lines = linesOf(text.body);
  if (!text.reply.isEmpty()) lines += 1 + linesOf(text.reply);
  return kAbove + grown(*this, kHead + kLine * lines) + kBelow;
}

int ReviewListView::heightOf(int row) const {
  switch (reviews_.row(row).kind) {
    case ReviewRowKind::storefront: return grown(*this, kHeadingHeight);
    case ReviewRowKind::more: return grown(*this, kMoreHeight);
    case ReviewRowKind::review: break;
  }
  const auto known = heights_.constFind(keyOf(row));
  return known != heights_.cend() ? *known : guessOf(row);
}

bool ReviewListView::isMeasured() const {
  for (int row = 0; row < reviews_.rowCount(); ++row) {
    if (reviews_.row(row).kind == ReviewRowKind::review && !heights_.contains(keyOf(row)))
      return false;
  }
  return true;
}

/// Measures what is seen. Whether a row has another height than it was given.
bool ReviewListView::measureSeen() {
  const int first = std::max(0, indexAt(QPoint(viewport()->width() / 2, 0)).row());
  bool isOther = false;
  int top = visualRect(reviews_.index(first)).top();
  for (int row = first; row < reviews_.rowCount() && top <= viewport()->height(); ++row) {
    const bool isNew =
        reviews_.row(row).kind == ReviewRowKind::review && !heights_.contains(keyOf(row));
    if (isNew) isOther = measure(row) || isOther;
    top += heightOf(row);
  }
  return isOther;
}

/// Whether its height was guessed wrong.
bool ReviewListView::measure(int row) {
  const int guess = guessOf(row);
  const int height = measured(row);
  heights_.insert(keyOf(row), height);
  return height != guess;
}

/// Measures others while there is time.
void ReviewListView::measureSome() {
  QElapsedTimer time;
  time.start();
  bool isOther = false;
  for (int row = 0; row < reviews_.rowCount() && time.elapsed() < kSlice; ++row) {
    if (reviews_.row(row).kind != ReviewRowKind::review || heights_.contains(keyOf(row))) continue;
    isOther = measure(row) || isOther;
  }
  if (isOther) layOutAnew();
  if (!isMeasured()) spare_.start();
}

void ReviewListView::layOutAnew() {
  doItemsLayout();
  viewport()->update();
}

void ReviewListView::doItemsLayout() {
  const QScopedValueRollback placing(isPlacing_, true);
  QListView::doItemsLayout();
  restoreAnchor();
  // Where rows were lower than guessed, others are seen too.
  for (int i = 0; i < kTries && measureSeen(); ++i) {
    QListView::doItemsLayout();
    restoreAnchor();
  }
  rememberAnchor();
  if (!isMeasured()) spare_.start();
}

/// Of what changed above them, those who look at a later review see nothing.
void ReviewListView::rememberAnchor() {
  anchor_ = QPersistentModelIndex();
  if (verticalScrollBar()->value() == 0) return;
  const QModelIndex first = indexAt(QPoint(viewport()->width() / 2, 0));
  if (!first.isValid()) return;
  anchor_ = first;
  anchorTop_ = visualRect(first).top();
}

void ReviewListView::restoreAnchor() {
  if (!anchor_.isValid()) return;
  QScrollBar& bar = *verticalScrollBar();
  bar.setValue(bar.value() + visualRect(anchor_).top() - anchorTop_);
}

void ReviewListView::scrollContentsBy(int dx, int dy) {
  QListView::scrollContentsBy(dx, dy);
  if (isPlacing_) return;
  // Where the user went counts, not where he was before a layout that is still to come.
  anchor_ = QPersistentModelIndex();
  executeDelayedItemsLayout();
  rememberAnchor();
  if (measureSeen()) doItemsLayout();
  const QScrollBar& bar = *verticalScrollBar();
  if (dy < 0 && bar.maximum() - bar.value() < viewport()->height()) Q_EMIT endNear();
}

void ReviewListView::scrollTo(const QModelIndex& index, ScrollHint hint) {
  executeDelayedItemsLayout();
  QListView::scrollTo(index, hint);
  if (measureSeen()) {
    doItemsLayout();
    QListView::scrollTo(index, hint);
  }
}

void ReviewListView::rowsInserted(const QModelIndex& parent, int start, int end) {
  const bool wasEnd = currentIndex().isValid() && currentIndex().row() == end + 1 &&
                      reviews_.row(end + 1).kind == ReviewRowKind::more;
  QListView::rowsInserted(parent, start, end);
  // Who asked for more goes on with what came.
  if (wasEnd) {
    setAutoScroll(false);
    setCurrentIndex(reviews_.index(start));
    setAutoScroll(true);
  }
}

void ReviewListView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                 const QList<int>& roles) {
  QListView::dataChanged(topLeft, bottomRight, roles);
  if (roles.contains(Qt::SizeHintRole)) forgetMeasures();
}

void ReviewListView::reset() {
  anchor_ = QPersistentModelIndex();
  unfolded_.clear();
  heights_.clear();
  cards_.clear();
  QListView::reset();
}

void ReviewListView::forgetMeasures() {
  heights_.clear();
  cards_.clear();
  scheduleDelayedItemsLayout();
}

void ReviewListView::resizeEvent(QResizeEvent* event) {
  if (const int width = contentWidth(); std::exchange(laidWidth_, width) != width) forgetMeasures();
  QListView::resizeEvent(event);
}

void ReviewListView::changeEvent(QEvent* event) {
  QListView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) forgetMeasures();
}

void ReviewListView::setUnfolded(int row, bool isUnfolded) {
  if (isUnfolded) {
    unfolded_.insert(keyOf(row));
  } else {
    unfolded_.erase(keyOf(row));
  }
  cards_.remove(keyOf(row));
  heights_.remove(keyOf(row));
  layOutAnew();
}

/// What Enter does, or a click on a link.
void ReviewListView::press(const QModelIndex& index) {
  if (!index.isValid()) return;
  const int row = index.row();
  switch (reviews_.row(row).kind) {
    case ReviewRowKind::storefront: return;
    case ReviewRowKind::more: Q_EMIT moreAsked(reviews_.row(row).storefront); return;
    case ReviewRowKind::review: break;
  }
  if (!foldTextOf(row).isEmpty()) setUnfolded(row, !isUnfolded(row));
}

void ReviewListView::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return copyCurrent();
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space: press(currentIndex()); return;
    default: break;
  }
  QListView::keyPressEvent(event);
}

void ReviewListView::mouseReleaseEvent(QMouseEvent* event) {
  QListView::mouseReleaseEvent(event);
  if (event->button() != Qt::LeftButton) return;
  const QModelIndex index = indexAt(event->pos());
  if (!index.isValid()) return;
  if (reviews_.row(index.row()).kind != ReviewRowKind::review) return press(index);
  const QRect place = visualRect(index);
  const QRect content = contentOf(place);
  const bool isOnLink = event->pos().y() >= content.top() + cardOf(index.row()).height();
  if (isOnLink && event->pos().y() < place.bottom() - kBelow / 2) press(index);
}

void ReviewListView::contextMenuEvent(QContextMenuEvent* event) {
  const bool isPointed = event->reason() == QContextMenuEvent::Mouse;
  const QModelIndex index = isPointed ? indexAt(event->pos()) : currentIndex();
  if (!index.isValid() || reviews_.row(index.row()).kind != ReviewRowKind::review) return;
  setCurrentIndex(index);
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  QAction* copy = menu->addAction(tr("Copy Review"), this, &ReviewListView::copyCurrent);
  copy->setShortcut(QKeySequence::Copy);
  if (const QString fold = foldTextOf(index.row()); !fold.isEmpty())
    menu->addAction(fold, this, [this] { press(currentIndex()); });
  menu->popup(isPointed ? event->globalPos() : viewport()->mapToGlobal(visualRect(index).center()));
}

void ReviewListView::copyCurrent() const {
  const QModelIndex index = currentIndex();
  if (!index.isValid() || reviews_.row(index.row()).kind != ReviewRowKind::review) return;
  QGuiApplication::clipboard()->setText(copyOf(reviews_.review(index.row())));
}

}  // namespace quillet

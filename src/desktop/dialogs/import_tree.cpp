// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/import_tree.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStyledItemDelegate>
#include <algorithm>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/marks.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/widgets.h"

namespace quillet {

namespace {

constexpr int kRow = 32;
constexpr double kText = 18;  // of a row's height
constexpr double kCorner = 8;
constexpr double kInset = 12;
constexpr double kChild = 24;
constexpr double kChevron = 10;
constexpr double kGap = 8;
constexpr double kBox = 16;
constexpr double kIcon = 16;
constexpr double kTile = 20;
constexpr double kMark = 13;  // of what is there already
constexpr double kPillGap = 10;
constexpr double kMostDetail = 0.5;  // of what the texts share

/// Where the parts of a row stand, as in a text from left to right.
struct RowPlaces {
  QRectF chevron;
  QRectF box;
  QRectF icon;
  QRectF texts;
};

QRectF squareIn(const QRectF& row, double left, double size) {
  return {left, row.top() + std::floor((row.height() - size) / 2), size, size};
}

RowPlaces placesIn(const QRectF& row, const ImportLine& line) {
  RowPlaces places;
  double left = row.left() + kInset + (line.isGroup ? 0 : kChild);
  places.chevron = squareIn(row, left, kChevron);
  left += kChevron + kGap;
  places.box = squareIn(row, left, kBox);
  left += kBox + kGap;
  const double icon = line.icon.isEmpty() ? kTile : kIcon;
  places.icon = squareIn(row, left, icon);
  left += icon + kGap;
  places.texts = QRectF(left, row.top(), row.right() - kInset - left, row.height());
  return places;
}

class ImportRowPainter {
 public:
  ImportRowPainter(QPainter& painter, Look& look, const QStyleOptionViewItem& option)
      : painter_(painter),
        look_(look),
        option_(option),
        isMirrored_(option.direction == Qt::RightToLeft) {}

  void paint(const ImportModel& model, const QModelIndex& index) {
    const ImportLine line = model.line(index);
    const RowPlaces places = placesIn(option_.rect, line);
    paintGround();
    if (line.isGroup) paintChevron(places.chevron);
    paintTick(places.box, line, model.stateOf(index));
    if (line.icon.isEmpty()) {
      const QPixmap tile =
          letterTile(look_, line.text, kTile, painter_.device()->devicePixelRatioF());
      painter_.setOpacity(line.canTick ? 1 : 0.6);
      painter_.drawPixmap(mirrored(places.icon).topLeft(), tile);
      painter_.setOpacity(1);
    } else {
      const Token ink = line.canTick ? Token::secondary : Token::tertiary;
      look_.icons.draw(painter_, mirrored(places.icon).topLeft(), line.icon, kIcon, look_[ink]);
    }
    paintTexts(places.texts, line);
  }

 private:
  [[nodiscard]] QRectF mirrored(const QRectF& part) const {
    if (!isMirrored_) return part;
    const QRectF row(option_.rect);
    return {row.left() + row.right() - part.right(), part.top(), part.width(), part.height()};
  }

  [[nodiscard]] double remarkGap() const { return kGap / 2 * look_.growth(); }

  void paintGround() {
    const QRectF box = QRectF(option_.rect).adjusted(kGap / 2, 0, -kGap / 2, 0);
    if (option_.state.testFlag(QStyle::State_MouseOver))
      paintBox(painter_, box, kCorner - 1, look_[Token::hover]);
    if (option_.state.testFlag(QStyle::State_HasFocus) &&
        option_.state.testFlag(QStyle::State_KeyboardFocusChange))
      paintBox(painter_, box, kCorner - 1, Qt::transparent, {look_[Token::accentText], 2});
  }

  void paintChevron(const QRectF& place) {
    const bool isOpen = option_.state.testFlag(QStyle::State_Open);
    const QString closed =
        isMirrored_ ? QStringLiteral("chevron-left") : QStringLiteral("chevron-right");
    look_.icons.draw(painter_, mirrored(place).topLeft(),
                     isOpen ? QStringLiteral("chevron-down") : closed, kChevron,
                     look_[Token::tertiary]);
  }

  void paintTick(const QRectF& place, const ImportLine& line, Qt::CheckState state) {
    if (!line.canTick) {
      const QRectF mark = squareIn(place, place.left() + (kBox - kMark) / 2, kMark);
      return look_.icons.draw(painter_, mirrored(mark).topLeft(), QStringLiteral("check2"), kMark,
                              look_[Token::tertiary]);
    }
    QStyleOptionButton box;
    box.state = QStyle::State_Enabled;
    box.state |= state == Qt::Checked     ? QStyle::State_On
                 : state == Qt::Unchecked ? QStyle::State_Off
                                          : QStyle::State_NoChange;
    box.rect = mirrored(place).toRect();
    option_.widget->style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter_,
                                           option_.widget);
  }

  void paintTexts(QRectF room, const ImportLine& line) {
    const TextAnchor start = isMirrored_ ? TextAnchor::right : TextAnchor::left;
    const TextAnchor end = isMirrored_ ? TextAnchor::left : TextAnchor::right;
    const QString detail =
        look_.text.elided(line.detail, kDetailType, std::floor(room.width() * kMostDetail));
    room.setRight(room.right() - look_.text.width(detail, kDetailType));
    QRectF last(room.right(), room.top(), option_.rect.right() + 1 - kInset - room.right(),
                room.height());
    look_.text.draw(painter_, {mirrored(last), end}, detail, kDetailType, look_[Token::tertiary]);
    room.setRight(room.right() - kGap);
    const Pill pill{PillKind::fresh, ImportTree::tr("new"), {}};
    const double pillRoom = line.isNew ? kPillGap + pillWidth(look_, pill, PillSize::small) : 0.0;
    const double remarkRoom =
        line.remark.isEmpty() ? 0.0 : remarkGap() + look_.text.width(line.remark, kBodyType);
    const TypeStyle type = line.isGroup ? kBodyType.weighing(600) : kBodyType;
    const double most = std::max(0.0, room.width() - pillRoom - remarkRoom);
    const QString text = look_.text.elided(line.text, type, most);
    const Token ink = line.canTick || line.isGroup ? Token::text : Token::tertiary;
    room.setLeft(room.left() +
                 look_.text.draw(painter_, {mirrored(room), start}, text, type, look_[ink]));
    if (!line.remark.isEmpty()) {
      const QRectF place = room.adjusted(remarkGap(), 0, 0, 0);
      look_.text.drawElided(painter_, {mirrored(place), start}, line.remark, kBodyType,
                            look_[Token::tertiary]);
    }
    if (line.isNew) paintNew(room, pill);
  }

  void paintNew(const QRectF& room, const Pill& pill) {
    const double height = pillHeight(look_, PillSize::small);
    const QRectF place(room.left() + kPillGap,
                       room.top() + std::floor((room.height() - height) / 2),
                       pillWidth(look_, pill, PillSize::small), height);
    paintPill(painter_, look_, mirrored(place).topLeft(), pill, PillSize::small);
  }

  static constexpr TypeStyle kDetailType = kFactType.tabular();

  QPainter& painter_;
  Look& look_;
  const QStyleOptionViewItem& option_;
  bool isMirrored_;
};

class ImportRowDelegate : public QStyledItemDelegate {
 public:
  ImportRowDelegate(const ImportModel& rows, QObject* parent)
      : QStyledItemDelegate(parent), rows_(rows) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    ImportRowPainter(*painter, lookOf(*option.widget), option).paint(rows_, index);
  }

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& /*index*/) const override {
    const double growth = lookOf(*option.widget).growth() - 1;
    return {0, kRow + static_cast<int>(std::ceil(kText * growth))};
  }

 private:
  const ImportModel& rows_;
};

}  // namespace

ImportTree::ImportTree(ImportModel& rows) : rows_(rows) {
  setModel(&rows);
  setItemDelegate(new ImportRowDelegate(rows, this));
  setAccessibleName(tr("What the file holds"));
  setHeaderHidden(true);
  setRootIsDecorated(false);
  setIndentation(0);
  setUniformRowHeights(true);
  setFrameShape(QFrame::NoFrame);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  viewport()->setAutoFillBackground(false);
  viewport()->setAttribute(Qt::WA_Hover);
  expandAll();
  setCurrentIndex(rows.index(0, 0, {}));
}

ImportTree::Part ImportTree::partAt(const QModelIndex& index, const QPoint& point) const {
  QRectF row(visualRect(index));
  QPointF at(point);
  if (layoutDirection() == Qt::RightToLeft) at.setX(row.left() + row.right() - at.x());
  const ImportLine line = rows_.line(index);
  const RowPlaces places = placesIn(row, line);
  const double reach = kGap / 2;
  const auto isIn = [&](const QRectF& part) {
    return at.x() >= part.left() - reach && at.x() < part.right() + reach;
  };
  if (line.isGroup && isIn(places.chevron)) return Part::chevron;
  return line.canTick && isIn(places.box) ? Part::box : Part::text;
}

void ImportTree::keyPressEvent(QKeyEvent* event) {
  const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (event->key() == Qt::Key_Space && isPlain) return rows_.toggle(currentIndex());
  // Return is the button's.
  if (isReturn(*event)) return event->ignore();
  QTreeView::keyPressEvent(event);
}

/// Whether the press did something by itself.
bool ImportTree::press(const QPoint& point) {
  const QModelIndex index = indexAt(point);
  if (!index.isValid()) return false;
  const Part part = partAt(index, point);
  if (part == Part::text) return false;
  setCurrentIndex(index);
  if (part == Part::box) {
    rows_.toggle(index);
  } else {
    setExpanded(index, !isExpanded(index));
  }
  return true;
}

void ImportTree::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && press(event->pos())) return;
  QTreeView::mousePressEvent(event);
}

void ImportTree::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && press(event->pos())) return;
  QTreeView::mouseDoubleClickEvent(event);
}

void ImportTree::changeEvent(QEvent* event) {
  QTreeView::changeEvent(event);
  if (changesSizes(*event)) scheduleDelayedItemsLayout();
}

}  // namespace quillet

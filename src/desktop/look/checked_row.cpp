// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/checked_row.h"

#include <QKeyEvent>
#include <QPainter>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr int kBox = 16;
constexpr int kReach = 6;  // of a click, behind the box
constexpr double kCorner = 8;
constexpr double kRing = 2;

bool isTicked(const QModelIndex& index) {
  return index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

bool toggle(QAbstractItemModel& model, const QModelIndex& index) {
  return model.setData(index, isTicked(index) ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

/// `left` and `width` as where texts run from left to right.
QRect partOf(const QStyleOptionViewItem& option, int left, int width, int height) {
  const QRect& row = option.rect;
  const QRect part(row.left() + left, row.top() + (row.height() - height) / 2, width, height);
  return QStyle::visualRect(option.direction, row, part);
}

void paintBoxOf(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) {
  QStyleOption check;
  check.initFrom(option.widget);
  check.rect = partOf(option, CheckedRowDelegate::kBoxLeft, kBox, kBox);
  check.state = QStyle::State_Enabled | (isTicked(index) ? QStyle::State_On : QStyle::State_Off);
  option.widget->style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &check, &painter,
                                        option.widget);
}

}  // namespace

QSize CheckedRowDelegate::sizeHint(const QStyleOptionViewItem& option,
                                   const QModelIndex& /*index*/) const {
  return {0, static_cast<int>(std::ceil(height_ * lookOf(*option.widget).growth()))};
}

void CheckedRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
  Look& look = lookOf(*option.widget);
  const QRectF ground = QRectF(option.rect).adjusted(0, 1, 0, -1);
  if (option.state.testFlag(QStyle::State_Selected))
    paintBox(*painter, ground, kCorner, look[Token::selection]);
  if (option.state.testFlag(QStyle::State_HasFocus) &&
      option.widget->window()->testAttribute(Qt::WA_KeyboardFocusChange))
    paintBox(*painter, ground, kCorner, Qt::transparent, {look[Token::accentText], kRing});
  if (index.data(Qt::CheckStateRole).isValid()) paintBoxOf(*painter, option, index);
}

/// A click before the box is one on it.
bool CheckedRowDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                     const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (!index.data(Qt::CheckStateRole).isValid()) return false;
  if (event->type() == QEvent::MouseButtonRelease) {
    const QRect reach = partOf(option, 0, kBoxLeft + kBox + kReach, option.rect.height());
    return reach.contains(static_cast<QMouseEvent*>(event)->pos()) && toggle(*model, index);
  }
  if (event->type() != QEvent::KeyPress) return false;
  return static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space && toggle(*model, index);
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QPainter>
#include <QStyle>
#include <cmath>

#include "desktop/look/pixel_grid.h"
#include "desktop/look/style_parts.h"

namespace quillet::parts {

namespace {

constexpr int kItemHeight = 28;
constexpr int kSeparatorHeight = 9;
constexpr int kTextLeft = 30;
constexpr int kTextRight = 26;  // room for a submenu's arrow
constexpr int kKeysGap = 24;

/// A menu's entry is its text, a tab and its keys.
struct ItemTexts {
  QString text;
  QString keys;
};

ItemTexts textsOf(const QStyleOptionMenuItem& option) {
  const qsizetype tab = option.text.indexOf(u'\t');
  if (tab < 0) return {withoutMnemonics(option.text), {}};
  return {withoutMnemonics(option.text.left(tab)), option.text.mid(tab + 1)};
}

void paintMark(QPainter& painter, Look& look, const QStyleOptionMenuItem& option,
               const QRectF& rect, const QColor& ink) {
  if (!option.checked || option.checkType == QStyleOptionMenuItem::NotCheckable) return;
  if (option.checkType == QStyleOptionMenuItem::Exclusive) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawEllipse(rect.center(), 3, 3);
  } else {
    look.icons.draw(painter, rect.center() - QPointF(7, 7), QStringLiteral("check2"), 14, ink);
  }
}

}  // namespace

void paintMenuItem(QPainter& painter, Look& look, const QStyleOptionMenuItem& option) {
  const QRectF rect(option.rect);
  if (option.menuItemType == QStyleOptionMenuItem::Separator) {
    PixelGrid(painter).horizontal(rect.left() + 8, rect.right() - 8, std::floor(rect.center().y()),
                                  look[Token::line]);
    return;
  }
  const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
  const bool isSelected = isEnabled && option.state.testFlag(QStyle::State_Selected);
  if (isSelected) paintBox(painter, rect, 5, look[Token::selection]);
  const auto placed = [&](int left, int width) {
    return QRectF(QStyle::visualRect(
        option.direction, option.rect,
        QRect(option.rect.left() + left, option.rect.top(), width, option.rect.height())));
  };
  const bool isMirrored = option.direction == Qt::RightToLeft;
  const TextAnchor start = isMirrored ? TextAnchor::right : TextAnchor::left;
  const TextAnchor end = isMirrored ? TextAnchor::left : TextAnchor::right;
  const ItemTexts texts = textsOf(option);
  const int width = option.rect.width();
  look.text.draw(painter, {placed(kTextLeft, width - kTextLeft), start}, texts.text, kBodyType,
                 look[isEnabled ? Token::text : Token::disabled]);
  Token keys = isSelected ? Token::secondary : Token::tertiary;
  if (!isEnabled) keys = Token::disabled;
  look.text.draw(painter, {placed(0, width - 10), end}, texts.keys, kFactType, look[keys]);
  paintMark(painter, look, option, placed(8, 14),
            look[isEnabled ? Token::accentText : Token::disabled]);
  if (option.menuItemType == QStyleOptionMenuItem::SubMenu) {
    look.icons.draw(painter, placed(width - 17, 10).topLeft() + QPointF(0, 9),
                    isMirrored ? QStringLiteral("chevron-left") : QStringLiteral("chevron-right"),
                    10, look[Token::tertiary]);
  }
}

QSize menuItemSize(Look& look, const QStyleOptionMenuItem& option) {
  if (option.menuItemType == QStyleOptionMenuItem::Separator) return {10, kSeparatorHeight};
  const ItemTexts texts = textsOf(option);
  double width = look.text.width(texts.text, kBodyType);
  // The menu itself adds the width of the longest keys.
  if (!texts.keys.isEmpty()) width += kKeysGap;
  return {static_cast<int>(std::ceil(width)) + kTextLeft + kTextRight, kItemHeight};
}

void paintMenuBarItem(QPainter& painter, Look& look, const QStyleOptionMenuItem& option) {
  const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
  const bool isSelected = isEnabled && option.state.testFlag(QStyle::State_Selected);
  const QRectF rect(option.rect);
  painter.fillRect(rect, look[Token::side]);
  if (isSelected) paintBox(painter, rect.adjusted(0, 3, 0, -3), 6, look[Token::sideHover]);
  Token ink = isSelected ? Token::text : Token::secondary;
  if (!isEnabled) ink = Token::disabled;
  look.text.draw(painter, {rect, TextAnchor::centre}, withoutMnemonics(option.text), kFactType,
                 look[ink]);
}

QSize menuBarItemSize(Look& look, const QStyleOptionMenuItem& option) {
  const double width = look.text.width(withoutMnemonics(option.text), kFactType);
  return {static_cast<int>(std::lround(width)) + 16, kItemHeight};
}

}  // namespace quillet::parts

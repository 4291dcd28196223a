// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/storefront_row.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr int kHeight = 36;
constexpr double kText = 18;  // of the height
constexpr double kInset = 12;
constexpr double kGap = 12;
constexpr double kMark = 16;

}  // namespace

void StorefrontRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const {
  Look& look = lookOf(*option.widget);
  const bool isChosen = option.state.testFlag(QStyle::State_Selected);
  const bool isMirrored = option.direction == Qt::RightToLeft;
  const QRectF box(option.rect);
  if (isChosen) {
    paintBox(*painter, box, 7, look[Token::selection]);
  } else if (option.state.testFlag(QStyle::State_MouseOver)) {
    paintBox(*painter, box, 7, look[Token::hover]);
  }
  if (isChosen && option.state.testFlag(QStyle::State_HasFocus) &&
      option.state.testFlag(QStyle::State_KeyboardFocusChange))
    paintBox(*painter, box, 7, Qt::transparent, {look[Token::accentText], 2});

  QStyleOptionButton mark;
  mark.state = QStyle::State_Enabled | (isChosen ? QStyle::State_On : QStyle::State_Off);
  const double left = isMirrored ? box.right() - kInset - kMark : box.left() + kInset;
  mark.rect = QRectF(left, box.center().y() - kMark / 2, kMark, kMark).toRect();
  option.widget->style()->drawPrimitive(QStyle::PE_IndicatorRadioButton, &mark, painter,
                                        option.widget);

  const TextAnchor start = isMirrored ? TextAnchor::right : TextAnchor::left;
  const TextAnchor end = isMirrored ? TextAnchor::left : TextAnchor::right;
  const QColor& quiet = look[isChosen ? Token::secondary : Token::tertiary];
  QRectF line = box.adjusted(kInset, 0, -kInset, 0);
  const auto take = [&](double width, bool atStart) {
    if (atStart != isMirrored) {
      line.setLeft(line.left() + width);
    } else {
      line.setRight(line.right() - width);
    }
  };
  take(kMark + kGap, true);
  const QString currency = index.data(StorefrontCurrencyRole).toString();
  if (!currency.isEmpty())
    take(look.text.draw(*painter, {line, end}, currency, kFactType, quiet) + kGap, false);
  const QString code = index.data(StorefrontCodeRole).toString();
  const double codeWidth = look.text.width(code, kFactType);
  const TypeStyle type = isChosen ? kBodyType.weighing(600) : kBodyType;
  const QString name =
      look.text.elided(index.data().toString(), type, line.width() - codeWidth - kGap);
  take(look.text.draw(*painter, {line, start}, name, type, look[Token::text]) + kGap, true);
  look.text.draw(*painter, {line, start}, code, kFactType, quiet);
}

QSize StorefrontRowDelegate::sizeHint(const QStyleOptionViewItem& option,
                                      const QModelIndex& /*index*/) const {
  const double growth = lookOf(*option.widget).growth() - 1;
  return {0, kHeight + static_cast<int>(std::ceil(kText * growth))};
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/quick_row.h"

#include <QPainter>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

void QuickRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
  constexpr double kInset = 10;
  constexpr double kGap = 12;
  Look& look = lookOf(*option.widget);
  const QRectF box(option.rect);
  const bool isSelected = option.state.testFlag(QStyle::State_Selected);
  if (isSelected) {
    paintBox(*painter, box, 7, look[Token::selection]);
  } else if (option.state.testFlag(QStyle::State_MouseOver)) {
    paintBox(*painter, box, 7, look[Token::hover]);
  }
  QRectF line = box.adjusted(kInset, 0, -kInset, 0);
  const QString list =
      look.text.elided(index.data(QuickListRole).toString(), kFactType, line.width() / 2);
  const double width = look.text.draw(*painter, {line, TextAnchor::right}, list, kFactType,
                                      look[isSelected ? Token::secondary : Token::tertiary]);
  line.setRight(line.right() - width - kGap);
  look.text.drawElided(*painter, {line}, index.data().toString(), kControlType, look[Token::text]);
}

QSize QuickRowDelegate::sizeHint(const QStyleOptionViewItem& /*option*/,
                                 const QModelIndex& /*index*/) const {
  return {0, kHeight};
}

}  // namespace quillet

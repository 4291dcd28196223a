// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/my_apps/upkeep_card.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <cmath>

#include "desktop/lists/row_pictures.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/wrapped_tip.h"
#include "desktop/sections/my_apps/upkeep_list.h"

namespace quillet {

namespace {

constexpr double kInset = 8;
constexpr double kGap = 8;
constexpr double kRight = 4;  // the scroll bar stands in the rest
constexpr double kCorner = 8;
constexpr double kRing = 2;
constexpr double kLine = 16;
constexpr double kOfferGap = 6;
constexpr TypeStyle kNameType{12.5, 600};
constexpr TypeStyle kAgeType = kCaptionType.tabular();
constexpr TypeStyle kOfferType{11.5, 500};

double lineIn(const Look& look) { return kLine * look.growth(); }
double textLeft() { return kInset + kCardArtwork + kGap; }
double plainHeight(const Look& look) {
  return 2 * kInset + std::max(kCardArtwork, 2 * lineIn(look));
}

QRectF mirroredIn(const QRectF& rect, const QRectF& card, bool isMirrored) {
  if (!isMirrored) return rect;
  return {card.left() + card.right() - rect.right(), rect.top(), rect.width(), rect.height()};
}

}  // namespace

UpkeepCard::UpkeepCard(UpkeepList& list, RowPictures& pictures)
    : QStyledItemDelegate(&list), list_(list), pictures_(pictures) {}

QSize UpkeepCard::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const {
  const Look& look = lookOf(list_);
  double height = plainHeight(look);
  if (list_.isReplaced(index)) height += kOfferGap + lineIn(look);
  // As wide as the list is, which it decides itself.
  return {1, static_cast<int>(std::ceil(height))};
}

QRect UpkeepCard::offerIn(const QRect& card, const QWidget& list) {
  const Look& look = lookOf(list);
  const QRectF offer(card.left() + textLeft(), card.bottom() + 1 - kInset - lineIn(look),
                     card.width() - textLeft(), lineIn(look));
  return mirroredIn(offer, card, list.isRightToLeft()).toAlignedRect();
}

void UpkeepCard::paint(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
  const auto* row = index.data(RowRole).value<const AppRow*>();
  if (row == nullptr) return;
  Look& look = lookOf(list_);
  const QRectF card = option.rect;
  const bool isSelected = option.state.testFlag(QStyle::State_Selected);
  const bool isMirrored = option.direction == Qt::RightToLeft;
  const bool showsRing = option.state.testFlag(QStyle::State_HasFocus) &&
                         option.state.testFlag(QStyle::State_KeyboardFocusChange);
  painter->save();
  if (isSelected || option.state.testFlag(QStyle::State_MouseOver))
    paintBox(*painter, card, kCorner, look[isSelected ? Token::selection : Token::hover]);
  if (showsRing)
    paintBox(*painter, card, kCorner, Qt::transparent, {look[Token::accentText], kRing});
  const PixelGrid grid(*painter);
  const double line = lineIn(look);
  const double top = card.top() + kInset;
  const double middle = top + std::max(kCardArtwork, 2 * line) / 2;
  const QRectF artwork =
      mirroredIn({card.left() + kInset, middle - kCardArtwork / 2, kCardArtwork, kCardArtwork},
                 card, isMirrored);
  const QPixmap& picture =
      pictures_.pictureOf(*row, kCardArtwork, grid.ratio(), look, Token::sideSelection);
  painter->drawPixmap(QPointF(grid.x(artwork.left()), grid.y(artwork.top())), picture);
  const auto text = [&](double at, const QString& shown, const TypeStyle& style, Token color) {
    const QRectF place(card.left() + textLeft(), at, card.width() - textLeft() - kRight, line);
    look.text.drawElided(
        *painter,
        {mirroredIn(place, card, isMirrored), isMirrored ? TextAnchor::right : TextAnchor::left},
        shown, style, look[color]);
  };
  const auto* cards = static_cast<const UpkeepCards*>(index.model());
  text(middle - line, cardName(row->name), kNameType, Token::text);
  text(middle, cardText(*row, cards->column()), kAgeType,
       isSelected ? Token::secondary : Token::tertiary);
  if (list_.isReplaced(index))
    text(card.bottom() - kInset - line, tr("Find a replacement"), kOfferType, Token::accentText);
  painter->restore();
}

bool UpkeepCard::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                           const QStyleOptionViewItem& option, const QModelIndex& index) {
  const auto* row = index.data(RowRole).value<const AppRow*>();
  if (event->type() != QEvent::ToolTip || row == nullptr)
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  const double room = option.rect.width() - textLeft() - kRight;
  const QString shown = cardName(row->name);
  if (shown != row->name || lookOf(list_).text.width(shown, kNameType) > room) {
    QToolTip::showText(event->globalPos(), wrappedTip(row->name), view, option.rect);
  } else {
    QToolTip::hideText();
  }
  return true;
}

}  // namespace quillet

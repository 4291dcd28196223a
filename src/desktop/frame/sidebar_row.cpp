// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/sidebar_row.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/look/marks.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

// Of the sidebar.
constexpr int kInset = 8;
constexpr int kEdge = 1;  // the handle beside the sidebar, which counts as its own
constexpr int kItem = 28;
constexpr int kItemGap = 2;
constexpr int kGroup = 36;
constexpr int kFirstGroup = 28;
constexpr double kPadding = 8;
constexpr double kIcon = 16;
constexpr double kIconGap = 8;
constexpr double kChild = 24;
constexpr double kCorner = 7;
// Of the rail.
constexpr int kRailItem = 36;
constexpr int kRailGap = 4;
constexpr int kRailGroup = 17;
constexpr int kRailFirst = 8;
constexpr double kRailIcon = 20;

int grown(const Look& look, int line) {
  constexpr double kText = 18;  // of the height
  return line + static_cast<int>(std::ceil(kText * (look.growth() - 1)));
}

bool isGroup(const QModelIndex& index) { return !index.data(SectionRole).isValid(); }
bool isCollection(const QModelIndex& index) { return index.data(CollectionRole).toLongLong() != 0; }

void paintGroup(QPainter& painter, Look& look, const QRectF& rect, const QModelIndex& index,
                SidebarShape shape) {
  if (shape == SidebarShape::full) {
    const QRectF line(rect.left() + kInset + kPadding, rect.bottom() - grown(look, 20),
                      rect.width(), grown(look, 16));
    look.text.draw(painter, {line}, index.data().toString().toUpper(), kGroupType,
                   look[Token::tertiary]);
  } else if (index.row() > 0) {
    PixelGrid(painter).horizontal(16, rect.width() + kEdge - 16, rect.top() + 6, look[Token::line]);
  }
}

void paintGround(QPainter& painter, Look& look, const QRectF& box, const SidebarRow& row) {
  if (row.isSelected || row.isTarget) {
    paintBox(painter, box, kCorner, look[Token::sideSelection]);
  } else if (row.isHovered) {
    paintBox(painter, box, kCorner, look[Token::sideHover]);
  }
  if (row.hasRing || row.isTarget)
    paintBox(painter, box, kCorner, Qt::transparent, {look[Token::accentText], 2});
}

/// A badge so small that it stands on an icon, with a rim that parts the two. The icon does not
/// grow with the texts, so the badge grows little.
void paintRailBadge(QPainter& painter, Look& look, const QRectF& box, const QString& text) {
  constexpr double kMostGrowth = 1.2;
  const double share = std::min(1.0, kMostGrowth / look.text.scale());
  const TypeStyle type{9.5 * share, 600, 0, Digits::tabular};
  const double height = 14 * std::min(kMostGrowth, look.growth());
  const double width = std::max(height + 1, look.text.width(text, type) + 6);
  const QRectF badge(box.right() - 1 - width, box.top() + 1, width, height);
  paintBox(painter, badge.adjusted(-2, -2, 2, 2), height / 2 + 2, look[Token::side]);
  paintBox(painter, badge, height / 2, look[Token::accent]);
  look.text.draw(painter, {badge, TextAnchor::centre}, text, type, look[Token::onAccent]);
}

void paintRailItem(QPainter& painter, Look& look, const QRect& rect, const QModelIndex& index,
                   const SidebarRow& row) {
  const QRectF box(kInset, rect.top(), rect.width() + kEdge - 2 * kInset, kRailItem);
  paintGround(painter, look, box, row);
  look.icons.draw(painter, box.center() - QPointF(kRailIcon, kRailIcon) / 2,
                  index.data(SymbolRole).toString(), kRailIcon,
                  look[row.isSelected ? Token::accentText : Token::secondary]);
  const QString badge = index.data(BadgeRole).toString();
  if (!badge.isEmpty()) paintRailBadge(painter, look, box, badge);
}

/// What stands at the end of an item. Returns how wide it is.
double paintCount(QPainter& painter, Look& look, const QRectF& box, const QModelIndex& index,
                  const SidebarRow& row) {
  const QString badge = index.data(BadgeRole).toString();
  if (!badge.isEmpty()) {
    return paintBadge(painter, look, {box.right() - kPadding, box.center().y()}, badge);
  }
  const QRectF line = box.adjusted(kPadding, 0, -kPadding, 0);
  return look.text.draw(painter, {line, TextAnchor::right}, index.data(CountRole).toString(),
                        kCaptionType.tabular(),
                        look[row.isSelected ? Token::secondary : Token::tertiary]);
}

void paintItem(QPainter& painter, Look& look, const QRect& rect, const QModelIndex& index,
               const SidebarRow& row) {
  const QRectF box(kInset, rect.top(), rect.width() + kEdge - 2 * kInset, grown(look, kItem));
  paintGround(painter, look, box, row);
  const double left = box.left() + kPadding + (isCollection(index) ? kChild : 0);
  look.icons.draw(painter, {left, box.center().y() - kIcon / 2}, index.data(SymbolRole).toString(),
                  kIcon, look[row.isSelected ? Token::accentText : Token::secondary]);
  const double count = paintCount(painter, look, box, index, row);
  QRectF line(box);
  line.setLeft(left + kIcon + kIconGap);
  line.setRight(box.right() - kPadding - (count > 0 ? count + kIconGap : 0));
  TypeStyle type = isCollection(index) ? kBodyType : kControlType;
  if (row.isSelected) type = type.weighing(600);
  look.text.drawElided(painter, {line}, index.data().toString(), type, look[Token::text]);
}

}  // namespace

void paintSidebarRow(QPainter& painter, Look& look, const QRect& rect, const QModelIndex& index,
                     const SidebarRow& row) {
  if (isGroup(index)) {
    paintGroup(painter, look, rect, index, row.shape);
  } else if (row.shape == SidebarShape::rail) {
    paintRailItem(painter, look, rect, index, row);
  } else {
    paintItem(painter, look, rect, index, row);
  }
}

QSize SidebarDelegate::sizeHint(const QStyleOptionViewItem& /*option*/,
                                const QModelIndex& index) const {
  const bool isRail = view_->shape() == SidebarShape::rail;
  const Look& look = lookOf(*view_);
  if (!isGroup(index)) return {0, isRail ? kRailItem + kRailGap : grown(look, kItem) + kItemGap};
  if (index.row() == 0) return {0, isRail ? kRailFirst : grown(look, kFirstGroup)};
  return {0, isRail ? kRailGroup : grown(look, kGroup)};
}

}  // namespace quillet

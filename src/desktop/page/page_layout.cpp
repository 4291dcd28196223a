// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/page_layout.h"

#include <QStyle>
#include <QWidget>
#include <algorithm>

#include "desktop/page/page_metrics.h"

namespace quillet {

namespace {

constexpr int kAboveBlock = 16;
constexpr int kAboveWideBlock = 20;

int heightOf(const QLayoutItem& item, int width) {
  return item.hasHeightForWidth() ? item.heightForWidth(width) : item.sizeHint().height();
}

}  // namespace

PageLayout::PageLayout(const QWidget& view, QWidget* page) : ItemLayout(page), view_(view) {}

int PageLayout::inset() const { return std::max(kPageInset, (view_.width() - kPageWidest) / 2); }

template <typename Place>
int PageLayout::arrange(Place place) const {
  const int left = inset();
  const int width = std::max(1, view_.width() - 2 * left);
  const bool isWide = width >= kWideContent;
  const int column = isWide ? (width - kColumnGap) / 2 : width;
  int y = kPageInset;
  int lowest = y;  // of the pair that is being filled
  int x = left;
  for (QLayoutItem* item : items()) {
    if (item->isEmpty()) continue;
    const bool isHeader = item == items().front();
    const int itemWidth = isHeader ? width : column;
    const QRect rect(x, y, itemWidth, heightOf(*item, itemWidth));
    place(item, rect);
    lowest = std::max(lowest, rect.bottom() + 1);
    if (!isHeader && isWide && x == left) {
      x = left + column + kColumnGap;
      continue;
    }
    x = left;
    y = lowest + (isWide ? kAboveWideBlock : kAboveBlock);
  }
  return lowest + kPageInset;
}

int PageLayout::heightForWidth(int /*width*/) const {
  return arrange([](QLayoutItem* /*item*/, const QRect& /*rect*/) {});
}

QSize PageLayout::sizeHint() const { return {kWideContent, heightForWidth(kWideContent)}; }

// The page is as high as its content and as wide as its view.
QSize PageLayout::minimumSize() const { return {0, heightForWidth(0)}; }

void PageLayout::setGeometry(const QRect& rect) {
  QLayout::setGeometry(rect);
  const QRect whole(0, 0, view_.width(), rect.height());
  const Qt::LayoutDirection direction = parentWidget()->layoutDirection();
  arrange([&](QLayoutItem* item, const QRect& place) {
    item->setGeometry(QStyle::visualRect(direction, whole, place));
  });
}

}  // namespace quillet

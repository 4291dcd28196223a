// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/page_layout.h"

#include <QStyle>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "desktop/page/block.h"
#include "desktop/page/page_metrics.h"
#include "desktop/page/text_growth.h"

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
  const bool isPaired = width >= grownBy(lookOf(view_), kWideContent);
  const int between = isPaired ? kAboveWideBlock : kAboveBlock;
  const int column = isPaired ? (width - kColumnGap) / 2 : width;
  int top = kPageInset;     // of the line that is being filled
  int lowest = kPageInset;  // of all that was placed
  int filled = 0;           // of that line
  const auto endLine = [&] {
    if (std::exchange(filled, 0) > 0) top = lowest + between;
  };
  for (QLayoutItem* item : items()) {
    const bool isHeader = item == items().front();
    const auto* block = qobject_cast<const Block*>(item->widget());
    const bool isWide = block != nullptr && block->isWide();
    if (isWide) endLine();
    const int itemWidth = isHeader ? width : isWide ? width + left : column;
    const int x = left + (filled > 0 ? column + kColumnGap : 0);
    const int height = item->isEmpty() ? 0 : heightOf(*item, itemWidth);
    place(item, QRect(x, top, itemWidth, height));
    if (item->isEmpty()) continue;
    lowest = std::max(lowest, top + height);
    ++filled;
    if (isHeader || isWide || !isPaired || filled == 2) endLine();
  }
  return lowest + kPageInset;
}

int PageLayout::topOf(const QWidget* widget) const {
  int top = -1;
  const int height = arrange([&](const QLayoutItem* item, const QRect& rect) {
    if (widget != nullptr && item->widget() == widget) top = rect.top();
  });
  return top < 0 ? height - kPageInset : top;
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
    if (item->isEmpty()) return;
    item->setGeometry(QStyle::visualRect(direction, whole, place));
  });
}

}  // namespace quillet

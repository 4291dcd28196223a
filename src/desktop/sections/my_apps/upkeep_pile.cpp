// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/my_apps/upkeep_pile.h"

#include <QLocale>
#include <QPainter>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/widgets.h"

namespace quillet {

namespace {

constexpr int kHead = 40;
constexpr int kLine = 20;
constexpr int kRule = 2;
constexpr int kBelowHead = 8;
constexpr int kOverhang = 8;  // of cards beside the title
constexpr int kLeast = 150;
constexpr int kLeastHeight = 160;
constexpr TypeStyle kTitle{13, 600};
constexpr TypeStyle kCount = kFactType.tabular();

}  // namespace

UpkeepPile::UpkeepPile(const RowFilterModel& rows, UpkeepColumn column, RowPictures& pictures,
                       QWidget* parent)
    : QWidget(parent),
      cards_(new UpkeepCards(rows, column, this)),
      list_(new UpkeepList(*cards_, pictures, this)) {}

void UpkeepPile::take(std::vector<RowKey> keys) {
  list_->take(std::move(keys));
  list_->setAccessibleDescription(appsText(static_cast<std::size_t>(cards_->rowCount())));
  // The tab key passes by what holds nothing.
  list_->setFocusPolicy(cards_->rowCount() > 0 ? Qt::StrongFocus : Qt::ClickFocus);
  update();
}

QSize UpkeepPile::minimumSizeHint() const {
  const double growth = lookOf(*this).growth();
  return {static_cast<int>(kLeast * growth) + 2 * kOverhang,
          headHeight() + static_cast<int>(kLeastHeight * growth)};
}

int UpkeepPile::headHeight() const {
  const double more = kLine * (lookOf(*this).growth() - 1);
  return kHead + static_cast<int>(std::ceil(more));
}

void UpkeepPile::arrange() {
  const int top = headHeight() + kBelowHead;
  list_->setGeometry(0, top, width(), std::max(0, height() - top));
}

void UpkeepPile::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  const PixelGrid grid(painter);
  const double left = kOverhang;
  const double wide = width() - 2 * kOverhang;
  const double bottom = headHeight();
  const bool isMirrored = isRightToLeft();
  const auto lead = isMirrored ? TextAnchor::right : TextAnchor::left;
  const auto trail = isMirrored ? TextAnchor::left : TextAnchor::right;
  const double line = kLine * look.growth();
  const double top = bottom - kRule - line - kBelowHead;
  const QString count = QLocale().toString(cards_->rowCount());
  const double countWidth = look.text.width(count, kCount) + kOverhang;
  const QRectF title(isMirrored ? left + countWidth : left, top, wide - countWidth, line);
  look.text.drawElided(painter, {title, lead}, upkeepTitle(cards_->column()), kTitle,
                       look[Token::text]);
  look.text.draw(painter, {QRectF(left, top, wide, line), trail}, count, kCount,
                 look[Token::secondary]);
  painter.fillRect(grid.rect({left, bottom - kRule, wide, kRule}),
                   look[upkeepColor(cards_->column())]);
}

void UpkeepPile::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

void UpkeepPile::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (!changesSizes(*event)) return;
  updateGeometry();
  arrange();
}

}  // namespace quillet

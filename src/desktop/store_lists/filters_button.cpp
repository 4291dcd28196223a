// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/filters_button.h"

#include <QLocale>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/marks.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr int kHeight = 32;
constexpr double kPadding = 12;
constexpr double kShortPadding = 9;
constexpr double kGap = 8;
constexpr double kIcon = 14;
constexpr double kCorner = 8;
constexpr double kBadgePadding = 10;
constexpr double kHovered = 0.05;
constexpr double kPressed = 0.09;

QString badgeText(int active) { return active > 0 ? QLocale().toString(active) : QString(); }

double badgeWidth(Look& look, const QString& text) {
  constexpr double kLeast = 18;
  if (text.isEmpty()) return 0;
  return std::max(kLeast * look.growth(),
                  std::ceil(look.text.width(text, kBadgeType)) + kBadgePadding);
}

}  // namespace

FiltersButton::FiltersButton(QWidget* parent) : QPushButton(tr("Filters"), parent) {
  setCheckable(true);
  setAttribute(Qt::WA_Hover);
  setState(0, false);
}

void FiltersButton::setState(int active, bool areShown) {
  active_ = active;
  setChecked(areShown);
  setToolTip(areShown ? tr("Hide Filters") : tr("Show Filters"));
  setAccessibleName(active > 0 ? tr("Filters, %1 set").arg(active) : tr("Filters"));
  updateGeometry();
  update();
}

void FiltersButton::setShort(bool isShort) {
  isShort_ = isShort;
  update();
}

/// Whether they are shown is told, not taken.
void FiltersButton::nextCheckState() {}

QSize FiltersButton::sizeOf(bool isShort) const {
  Look& look = lookOf(*this);
  const double badge = badgeWidth(look, badgeText(active_));
  double width = kIcon + 2 * (isShort ? kShortPadding : kPadding);
  if (!isShort) width += kGap + look.text.width(tr("Filters"), kControlType);
  if (badge > 0) width += kGap + badge;
  return {static_cast<int>(std::ceil(width)), kHeight};
}

void FiltersButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  const bool isDark = look.palette.scheme() == Scheme::dark;
  QColor fill = look[isChecked() ? Token::neutralTint : (isDark ? Token::raised : Token::base)];
  if (isDown() || underMouse())
    fill = mixed(fill, isDark ? Qt::white : Qt::black, isDown() ? kPressed : kHovered);
  // Where tints are gone, a border says that it is on.
  const bool isPlain = look.palette.contrast() == Contrast::more;
  QColor border = look[Token::edge];
  if (isChecked()) border = isPlain ? look[Token::text] : QColor(Qt::transparent);
  paintBox(painter, rect(), kCorner, fill, {border});
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const auto placed = [&](double left, double width) {
    return QRectF(isMirrored ? this->width() - left - width : left, 0, width, height());
  };
  double left = isShort_ ? kShortPadding : kPadding;
  look.icons.draw(painter, placed(left, kIcon).topLeft() + QPointF(0, (height() - kIcon) / 2),
                  QStringLiteral("sliders2"), kIcon, look[Token::secondary]);
  left += kIcon + kGap;
  if (!isShort_) {
    const QString text = tr("Filters");
    const double width = look.text.width(text, kControlType);
    look.text.draw(painter, {placed(left, width)}, text, kControlType, look[Token::text]);
    left += width + kGap;
  }
  const QString badge = badgeText(active_);
  if (badge.isEmpty()) return;
  const QRectF place = placed(left, badgeWidth(look, badge));
  paintBadge(painter, look, {place.right(), height() / 2.0}, badge);
}

}  // namespace quillet

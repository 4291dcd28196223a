// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/link_button.h"

#include <QKeyEvent>
#include <QPainter>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/widgets.h"

namespace quillet {

namespace {

constexpr double kIcon = 14;
constexpr double kGap = 6;
constexpr int kHeight = 18;

}  // namespace

LinkButton::LinkButton(const QString& text, const TypeStyle& type, const QString& icon,
                       QWidget* parent)
    : QAbstractButton(parent), type_(type), icon_(icon), iconSize_(kIcon), gap_(kGap) {
  setText(text);
  setCursor(Qt::PointingHandCursor);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void LinkButton::setPlainText(const QString& text) {
  setText(controlText(text));
  setAccessibleName(text);
  updateGeometry();
  update();
}

QString LinkButton::shownText() const { return textOfControl(text()); }

void LinkButton::setIconMetrics(double size, double gap) {
  iconSize_ = size;
  gap_ = gap;
  updateGeometry();
}

QSize LinkButton::sizeHint() const {
  double width = lookOf(*this).text.width(shownText(), type_);
  if (!icon_.isEmpty()) width += gap_ + iconSize_;
  return {static_cast<int>(std::ceil(width)),
          static_cast<int>(std::ceil(kHeight * lookOf(*this).text.scale()))};
}

void LinkButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
  QAbstractButton::keyPressEvent(event);
}

void LinkButton::paintEvent(QPaintEvent* /*event*/) {
  Look& look = lookOf(*this);
  QPainter painter(this);
  const QColor& ink = look[isEnabled() ? Token::accentText : Token::control];
  const double icon = icon_.isEmpty() ? 0 : gap_ + iconSize_;
  const QRectF line(0, 0, width() - icon, height());
  const double end = look.text.drawElided(painter, {line}, shownText(), type_, ink);
  if (underMouse() && isEnabled()) {
    const double below = look.text.baseline(0, height(), type_) + 2;
    PixelGrid(painter).horizontal(0, end, below, ink);
  }
  if (!icon_.isEmpty()) {
    look.icons.draw(painter, {end + gap_, (height() - iconSize_) / 2}, icon_, iconSize_, ink);
  }
}

}  // namespace quillet

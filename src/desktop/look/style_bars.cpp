// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QPainter>
#include <QSlider>
#include <QStyle>
#include <algorithm>

#include "desktop/look/pixel_grid.h"
#include "desktop/look/style_parts.h"

namespace quillet::parts {

namespace {

constexpr double kGroove = 4;
constexpr int kKnob = 16;

QRectF grooveIn(const QRectF& rect) {
  return {rect.left(), rect.center().y() - kGroove / 2, rect.width(), kGroove};
}

/// The part of a groove that is reached: from the left, or from the right where all is mirrored.
QRectF reached(QRectF groove, double share, Qt::LayoutDirection direction) {
  const double width = groove.width() * share;
  if (direction == Qt::RightToLeft) groove.setLeft(groove.right() - width);
  groove.setWidth(width);
  return groove;
}

QRectF knobIn(const QStyleOptionSlider& option) {
  const QRectF rect(option.rect);
  const int position =
      QStyle::sliderPositionFromValue(option.minimum, option.maximum, option.sliderPosition,
                                      option.rect.width() - kKnob, option.upsideDown);
  return {rect.left() + position, rect.center().y() - kKnob / 2.0, kKnob, kKnob};
}

QColor knobFill(Look& look, const State& state) {
  if (!state.isEnabled) return look[Token::raised];
  if (state.isPressed) return mixed(look[Token::base], look[Token::accent], 0.18);
  if (look.palette.scheme() == Scheme::light) {
    return look[state.isHovered ? Token::hover : Token::base];
  }
  return state.isHovered ? QColor(Qt::white) : look[Token::text];
}

}  // namespace

QRectF sliderKnob(const QSlider& slider) {
  QStyleOptionSlider option;
  option.initFrom(&slider);
  option.minimum = slider.minimum();
  option.maximum = slider.maximum();
  option.sliderPosition = slider.sliderPosition();
  option.upsideDown = slider.invertedAppearance() != (slider.layoutDirection() == Qt::RightToLeft);
  return knobIn(option);
}

void paintSlider(QPainter& painter, Look& look, const QStyleOptionSlider& option) {
  State state = stateOf(option);
  state.isPressed = state.isPressed && option.activeSubControls == QStyle::SC_SliderHandle;
  const QRectF rect(option.rect);
  const QRectF knob = knobIn(option);
  const QPointF middle = knob.center();
  QRectF filled = grooveIn(rect);
  if (option.upsideDown) {
    filled.setLeft(middle.x());
  } else {
    filled.setRight(middle.x());
  }
  paintBox(painter, grooveIn(rect), kGroove / 2, look[Token::emptyStar]);
  paintBox(painter, filled, kGroove / 2, look[state.isEnabled ? Token::accent : Token::disabled]);
  QColor border = look[state.isPressed ? Token::accent : Token::control];
  if (!state.isEnabled) border = faintColor(look, Token::edge);
  paintBox(painter, knob, kKnob / 2.0, knobFill(look, state), borderOf(look, border));
}

void paintScrollBar(QPainter& painter, Look& look, const QStyleOptionSlider& option,
                    const QRect& handle) {
  if (option.maximum == option.minimum) return;
  const State state = stateOf(option);
  const bool isUsed = state.isHovered || state.isPressed;
  const double thickness = isUsed ? 6 : 5;
  const QRectF rect(option.rect);
  const QRectF bar = option.orientation == Qt::Vertical
                         ? QRectF(rect.right() - 1 - thickness, handle.top() + 2.0, thickness,
                                  handle.height() - 4.0)
                         : QRectF(handle.left() + 2.0, rect.bottom() - 1 - thickness,
                                  handle.width() - 4.0, thickness);
  QColor fill = look[Token::control];
  fill.setAlphaF(state.isPressed ? 0.9F : isUsed ? 0.7F : 0.45F);
  paintBox(painter, bar, thickness / 2, fill);
}

void paintProgressBar(QPainter& painter, Look& look, const QStyleOptionProgressBar& option) {
  const QRectF groove = grooveIn(option.rect);
  const int range = std::max(1, option.maximum - option.minimum);
  const double share = std::clamp((option.progress - option.minimum) / double(range), 0.0, 1.0);
  paintBox(painter, groove, kGroove / 2, look[Token::emptyStar]);
  paintBox(painter, reached(groove, share, option.direction), kGroove / 2, look[Token::accent]);
}

void paintHeaderSection(QPainter& painter, Look& look, const QRect& rect) {
  painter.fillRect(rect, look[Token::base]);
  PixelGrid(painter).horizontal(rect.left(), rect.right() + 1, rect.bottom(), look[Token::line]);
}

void paintHeaderLabel(QPainter& painter, Look& look, const QStyleOptionHeader& option) {
  constexpr double kArrow = 8;
  constexpr double kGap = 4;
  const bool isSorted = option.sortIndicator != QStyleOptionHeader::None;
  const TypeStyle type = kCaptionType.weighing(isSorted ? 600 : 500);
  const QColor& ink = look[isSorted ? Token::secondary : Token::tertiary];
  const Qt::Alignment side = QStyle::visualAlignment(option.direction, option.textAlignment);
  QRectF line(option.rect);
  const double arrow = isSorted ? kArrow + kGap : 0;
  const QString text = look.text.elided(option.text, type, line.width() - arrow);
  const double width = look.text.width(text, type);
  if (side.testFlag(Qt::AlignRight)) line.setLeft(line.right() - width - arrow);
  if (side.testFlag(Qt::AlignHCenter)) {
    line.setLeft(line.left() + (line.width() - width - arrow) / 2);
  }
  look.text.draw(painter, {line}, text, type, ink);
  if (!isSorted) return;
  // Qt's arrow down is what it calls an ascending order.
  const bool isUp = option.sortIndicator == QStyleOptionHeader::SortUp;
  look.icons.draw(painter, {line.left() + width + kGap, line.center().y() - kArrow / 2},
                  isUp ? QStringLiteral("chevron-up") : QStringLiteral("chevron-down"), kArrow,
                  ink);
}

void paintTabShape(QPainter& painter, Look& look, const QStyleOption& option) {
  const State state = stateOf(option);
  const bool isSelected = option.state.testFlag(QStyle::State_Selected);
  const QRectF rect(option.rect);
  if (state.isHovered && !isSelected) {
    paintBox(painter, rect.adjusted(2, 4, -2, -4), 6, look[Token::hover]);
  }
  if (isSelected) {
    painter.fillRect(QRectF(rect.left() + 8, rect.bottom() - 2, rect.width() - 16, 2),
                     look[Token::accentText]);
  }
  if (state.showsRing) {
    paintBox(painter, rect.adjusted(2, 3, -2, -3), 6, Qt::transparent,
             {look[Token::accentText], 2});
  }
}

void paintTabLabel(QPainter& painter, Look& look, const QStyleOptionTab& option) {
  const bool isSelected = option.state.testFlag(QStyle::State_Selected);
  Token ink = isSelected ? Token::text : Token::secondary;
  if (!option.state.testFlag(QStyle::State_Enabled)) ink = Token::disabled;
  look.text.draw(painter, {QRectF(option.rect), TextAnchor::centre}, withoutMnemonics(option.text),
                 kControlType.weighing(isSelected ? 600 : 500), look[ink]);
}

}  // namespace quillet::parts

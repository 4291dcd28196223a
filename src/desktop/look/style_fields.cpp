// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QAbstractSpinBox>
#include <QPainter>
#include <QStyle>

#include "desktop/look/pixel_grid.h"
#include "desktop/look/style_parts.h"

namespace quillet::parts {

namespace {

constexpr double kRadius = 8;
constexpr double kChevron = 10;

void paintStepper(QPainter& painter, Look& look, const QRectF& rect, bool isUp, bool canStep,
                  const State& state, bool isUnderPointer) {
  constexpr double kSize = 8;
  if (isUnderPointer && canStep && (state.isHovered || state.isPressed)) {
    paintBox(painter, rect.adjusted(1, 1, -2, -1), 5,
             look[state.isPressed ? Token::emptyStar : Token::neutralTint]);
  }
  // The two stand a pixel nearer to each other than the middles of their halves.
  const double shift = isUp ? 1 : -1;
  look.icons.draw(painter, rect.center() + QPointF(-kSize / 2 - 0.5, -kSize / 2 + shift),
                  isUp ? QStringLiteral("chevron-up") : QStringLiteral("chevron-down"), kSize,
                  look[canStep ? Token::secondary : Token::disabled]);
}

QColor comboFill(Look& look, const State& state, bool isFlat) {
  const bool isOpen = state.isPressed || state.isOn;
  if (isFlat) {
    if (isOpen) return look[Token::neutralTint];
    return state.isHovered ? look[Token::hover] : QColor(Qt::transparent);
  }
  if (!state.isEnabled) return Qt::transparent;
  const bool isDark = look.palette.scheme() == Scheme::dark;
  const QColor& fill = look[isDark ? Token::raised : Token::base];
  const QColor over = isDark ? Qt::white : Qt::black;
  if (isOpen) return mixed(fill, over, 0.09);
  if (!state.isHovered) return fill;
  return isDark ? mixed(fill, over, 0.05) : look[Token::hover];
}

}  // namespace

void paintField(QPainter& painter, Look& look, const QStyleOption& option, Token border) {
  const State state = stateOf(option);
  if (state.isHovered) border = border == Token::edge ? Token::control : Token::secondary;
  const QColor& shown = state.isEnabled ? look[border] : faintColor(look, Token::line);
  const QColor& fill = look[state.isEnabled ? Token::base : Token::raised];
  // A field shows its focus after a click too: it says where letters go.
  if (state.hasFocus) {
    paintBox(painter, option.rect, kRadius, fill, {look[Token::accentText], 2});
  } else {
    paintBox(painter, option.rect, kRadius, fill, borderOf(look, shown));
  }
}

void paintSpinBox(QPainter& painter, Look& look, const QStyleOptionSpinBox& option, const QRect& up,
                  const QRect& down) {
  paintField(painter, look, option, Token::control);
  const State state = stateOf(option);
  const auto canStep = [&](QAbstractSpinBox::StepEnabledFlag flag) {
    return state.isEnabled && option.stepEnabled.testFlag(flag);
  };
  paintStepper(painter, look, up, true, canStep(QAbstractSpinBox::StepUpEnabled), state,
               option.activeSubControls == QStyle::SC_SpinBoxUp);
  paintStepper(painter, look, down, false, canStep(QAbstractSpinBox::StepDownEnabled), state,
               option.activeSubControls == QStyle::SC_SpinBoxDown);
}

void paintComboBox(QPainter& painter, Look& look, const QStyleOptionComboBox& option,
                   ButtonKind kind) {
  const State state = stateOf(option);
  const bool isFlat = kind == ButtonKind::flat;
  if (option.editable) {
    paintField(painter, look, option, Token::control);
  } else {
    const QColor border = isFlat            ? QColor(Qt::transparent)
                          : state.isEnabled ? look[Token::edge]
                                            : faintColor(look, Token::line);
    paintBox(painter, option.rect, cornerOf(option.rect), comboFill(look, state, isFlat),
             borderOf(look, border));
  }
  const QRect arrow = QStyle::visualRect(
      option.direction, option.rect,
      QRect(option.rect.right() + 1 - 16, option.rect.top(), 10, option.rect.height()));
  look.icons.draw(painter, {arrow.left() + 0.0, QRectF(arrow).center().y() - kChevron / 2},
                  QStringLiteral("chevron-down"), kChevron,
                  look[state.isEnabled ? Token::tertiary : Token::disabled]);
}

void paintComboBoxLabel(QPainter& painter, Look& look, const QStyleOptionComboBox& option,
                        const QRect& field, ButtonKind kind) {
  // An editable one's text is a field's of its own.
  if (option.editable) return;
  const bool isFlat = kind == ButtonKind::flat;
  TypeStyle type = option.rect.height() < 32 ? kSmallControlType : kControlType;
  Token ink = isFlat ? Token::secondary : Token::text;
  if (!option.state.testFlag(QStyle::State_Enabled)) ink = Token::disabled;
  const QRectF line(field.left() + 1.0, option.rect.top(), field.width(), option.rect.height());
  const TextAnchor side =
      option.direction == Qt::RightToLeft ? TextAnchor::right : TextAnchor::left;
  look.text.drawElided(painter, {line, side}, option.currentText, type, look[ink]);
}

}  // namespace quillet::parts

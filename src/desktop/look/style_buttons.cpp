// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QPainter>
#include <QPainterPath>
#include <cmath>

#include "desktop/look/pixel_grid.h"
#include "desktop/look/style_parts.h"

namespace quillet::parts {

namespace {

constexpr double kPressed = 0.16;
constexpr double kHovered = 0.08;
constexpr double kPlainPressed = 0.09;
constexpr double kPlainHovered = 0.05;
constexpr double kIconGap = 8;
constexpr double kChevron = 10;
constexpr int kControlHeight = 32;
constexpr double kIndicator = 16;  // with texts of 100 %, for which ticks are drawn

bool isDark(const Look& look) { return look.palette.scheme() == Scheme::dark; }

/// What a fill gets upon it under the pointer: light on dark schemes, dark on light ones.
QColor over(const Look& look) { return isDark(look) ? Qt::white : Qt::black; }

QColor shaded(const QColor& fill, const State& state, const QColor& pressed,
              const QColor& hovered) {
  if (state.isPressed || state.isOn) return mixed(fill, pressed, kPressed);
  return state.isHovered ? mixed(fill, hovered, kHovered) : fill;
}

struct Panel {
  QColor fill;
  QColor border = Qt::transparent;
};

Panel plainPanel(Look& look, const State& state) {
  if (!state.isEnabled) return {Qt::transparent, faintColor(look, Token::line)};
  const QColor& fill = look[isDark(look) ? Token::raised : Token::base];
  const QColor& border = look[Token::edge];
  if (state.isPressed || state.isOn) return {mixed(fill, over(look), kPlainPressed), border};
  if (!state.isHovered) return {fill, border};
  return {isDark(look) ? mixed(fill, over(look), kPlainHovered) : look[Token::hover], border};
}

Panel flatPanel(Look& look, const State& state) {
  if (state.isPressed || state.isOn) return {look[Token::neutralTint]};
  return {state.isHovered ? look[Token::hover] : QColor(Qt::transparent)};
}

Panel panelOf(Look& look, const State& state, ButtonKind kind) {
  if (kind == ButtonKind::flat) return flatPanel(look, state);
  if (kind == ButtonKind::plain || kind == ButtonKind::danger) return plainPanel(look, state);
  if (!state.isEnabled) {
    return {look[Token::neutralTint], faintColor(look, Token::neutralTint)};
  }
  if (kind == ButtonKind::tinted) {
    const QColor& ink = look[Token::accentText];
    return {shaded(look[Token::selection], state, ink, ink)};
  }
  return {shaded(look[Token::accent], state, Qt::black, over(look))};
}

Token inkOf(ButtonKind kind) {
  switch (kind) {
    case ButtonKind::primary: return Token::onAccent;
    case ButtonKind::tinted: return Token::tintedText;
    case ButtonKind::flat: return Token::accentText;
    case ButtonKind::danger: return Token::up;
    case ButtonKind::plain: break;
  }
  return Token::text;
}

/// A dialog's default button is its primary one, whatever it was made as.
ButtonKind shownKind(const QStyleOptionButton& option, ButtonKind kind) {
  const bool isDefault = option.features.testFlag(QStyleOptionButton::DefaultButton);
  return isDefault && kind == ButtonKind::plain ? ButtonKind::primary : kind;
}

const TypeStyle& typeOf(const QRect& control) {
  return control.height() < kControlHeight ? kSmallControlType : kControlType;
}

void paintTick(QPainter& painter, const QRectF& box, const QColor& color, bool isMixed) {
  QPainterPath path;
  if (isMixed) {
    path.moveTo(4, 8);
    path.lineTo(12, 8);
  } else {
    path.moveTo(3.7, 8.4);
    path.lineTo(6.7, 11.3);
    path.lineTo(12.3, 4.9);
  }
  painter.translate(box.topLeft());
  painter.scale(box.width() / kIndicator, box.height() / kIndicator);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(color, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(path);
}

}  // namespace

State stateOf(const QStyleOption& option) {
  const auto has = [&](QStyle::StateFlag flag) { return option.state.testFlag(flag); };
  State state;
  state.isEnabled = has(QStyle::State_Enabled);
  state.isHovered = state.isEnabled && has(QStyle::State_MouseOver);
  state.isPressed = has(QStyle::State_Sunken);
  state.isOn = has(QStyle::State_On);
  state.isMixed = has(QStyle::State_NoChange);
  state.hasFocus = has(QStyle::State_HasFocus);
  state.showsRing = state.hasFocus && has(QStyle::State_KeyboardFocusChange);
  return state;
}

QString withoutMnemonics(const QString& text) {
  QString result;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] == u'&' && i + 1 < text.size()) ++i;
    result += text[i];
  }
  return result;
}

double indicatorSide(const Look& look) { return std::round(kIndicator * look.growth()); }

QRectF indicatorIn(const QRect& rect) {
  const double side = std::min(rect.width(), rect.height());
  return {rect.left() + 0.0, rect.top() + (rect.height() - side) / 2, side, side};
}

Border borderOf(const Look& look, const QColor& color) {
  return {color, look.palette.contrast() == Contrast::more ? 2.0 : 1.0};
}

const QColor& faintColor(const Look& look, Token token) {
  return look[look.palette.contrast() == Contrast::more ? Token::disabled : token];
}

int controlHeight(const Look& look) {
  constexpr double kText = 18;
  return kControlHeight + static_cast<int>(std::ceil(kText * (look.growth() - 1)));
}

double cornerOf(const QRect& control) { return control.height() >= kControlHeight ? 8 : 7; }

void paintFocusRing(QPainter& painter, Look& look, const QRectF& control, double radius) {
  const PixelGrid grid(painter);
  const double width = grid.thickness(2);
  const double away = 1 + width / 2;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(look[Token::accentText], width));
  painter.drawRoundedRect(grid.rect(control).adjusted(-away, -away, away, away), radius + away,
                          radius + away);
}

void paintButtonPanel(QPainter& painter, Look& look, const QStyleOptionButton& option,
                      ButtonKind kind) {
  const State state = stateOf(option);
  const Panel panel = panelOf(look, state, shownKind(option, kind));
  paintBox(painter, option.rect, cornerOf(option.rect), panel.fill, borderOf(look, panel.border));
}

void paintButtonLabel(QPainter& painter, Look& look, const QStyleOptionButton& option,
                      ButtonKind kind, const ButtonIcon& icon) {
  const State state = stateOf(option);
  const ButtonKind shown = shownKind(option, kind);
  const QColor& ink = look[state.isEnabled ? inkOf(shown) : Token::disabled];
  const bool isQuiet = shown == ButtonKind::plain && state.isEnabled;
  const QString text = withoutMnemonics(option.text);
  const TypeStyle& type = typeOf(option.rect);
  const double iconWidth = icon.name.isEmpty() ? 0 : icon.size;
  const double gap = iconWidth > 0 && !text.isEmpty() ? kIconGap : 0;
  const bool hasMenu = option.features.testFlag(QStyleOptionButton::HasMenu);
  const double width =
      iconWidth + gap + look.text.width(text, type) + (hasMenu ? kIconGap + kChevron : 0);
  QRectF content(option.rect);
  content.setLeft(content.left() + (content.width() - width) / 2);
  if (iconWidth > 0) {
    look.icons.draw(painter, {content.left(), content.center().y() - icon.size / 2}, icon.name,
                    icon.size, isQuiet ? look[Token::secondary] : ink);
  }
  content.setLeft(content.left() + iconWidth + gap);
  content.setLeft(content.left() + look.text.draw(painter, {content}, text, type, ink) + kIconGap);
  if (!hasMenu) return;
  look.icons.draw(painter, {content.left(), content.center().y() - kChevron / 2},
                  QStringLiteral("chevron-down"), kChevron, isQuiet ? look[Token::tertiary] : ink);
}

QSize buttonSize(Look& look, const QStyleOptionButton& option, const ButtonIcon& icon) {
  constexpr int kPadding = 13;
  const QString text = withoutMnemonics(option.text);
  double width = look.text.width(text, kControlType);
  if (!icon.name.isEmpty()) width += icon.size + (text.isEmpty() ? 0 : kIconGap);
  if (option.features.testFlag(QStyleOptionButton::HasMenu)) width += kIconGap + kChevron;
  return {static_cast<int>(std::ceil(width)) + 2 * kPadding, controlHeight(look)};
}

void paintToolButton(QPainter& painter, Look& look, const QStyleOptionToolButton& option,
                     const ButtonIcon& icon) {
  constexpr float kFaint = 0.55F;
  const State state = stateOf(option);
  const QRectF rect(option.rect);
  const double radius = cornerOf(option.rect);
  if (state.isPressed) {
    paintBox(painter, rect, radius, look[Token::emptyStar]);
  } else if (state.isOn) {
    // Where tints are gone, a border says that it is on.
    const bool isPlain = look.palette.contrast() == Contrast::more;
    paintBox(painter, rect, radius, look[Token::neutralTint],
             borderOf(look, isPlain ? look[Token::text] : QColor(Qt::transparent)));
  } else if (state.isHovered) {
    paintBox(painter, rect, radius, look[Token::hover]);
  }
  QColor ink = look[state.isOn ? Token::text : Token::secondary];
  if (!state.isEnabled) {
    ink = look[Token::disabled];
    ink.setAlphaF(kFaint);
  }
  if (icon.name.isEmpty()) {
    // Of Qt's own dialogs.
    QRect place({}, option.iconSize);
    place.moveCenter(option.rect.center());
    option.icon.paint(&painter, place, Qt::AlignCenter,
                      state.isEnabled ? QIcon::Normal : QIcon::Disabled);
    return;
  }
  look.icons.draw(painter, rect.center() - QPointF(icon.size, icon.size) / 2, icon.name, icon.size,
                  ink);
}

void paintCheckBox(QPainter& painter, Look& look, const QStyleOption& option) {
  const State state = stateOf(option);
  const QRectF box = PixelGrid(painter).rect(indicatorIn(option.rect));
  if (state.isOn || state.isMixed) {
    QColor fill = faintColor(look, Token::emptyStar);
    if (state.isEnabled) {
      State pointer = state;
      pointer.isOn = false;
      fill = shaded(look[Token::accent], pointer, Qt::black, over(look));
    }
    paintBox(painter, box, kCheckBoxCorner, fill);
    paintTick(painter, box, state.isEnabled ? look[Token::onAccent] : look[Token::base],
              state.isMixed);
  } else {
    Token fill = Token::base;
    if (state.isPressed)
      fill = Token::neutralTint;
    else if (state.isHovered)
      fill = Token::hover;
    QColor border = look[state.isHovered ? Token::secondary : Token::control];
    if (!state.isEnabled) border = faintColor(look, Token::edge);
    paintBox(painter, box, kCheckBoxCorner, look[fill], borderOf(look, border));
  }
}

void paintRadioButton(QPainter& painter, Look& look, const QStyleOption& option) {
  constexpr double kRingShare = 5.0 / 16;
  const State state = stateOf(option);
  const PixelGrid grid(painter);
  const QRectF circle = grid.rect(indicatorIn(option.rect));
  QColor ring = look[state.isHovered ? Token::secondary : Token::control];
  QColor middle = look[Token::base];
  if (state.isOn) {
    State pointer = state;
    pointer.isOn = false;
    ring = shaded(look[Token::accent], pointer, Qt::black, over(look));
    middle = look[Token::onAccent];
  } else if (state.isPressed) {
    middle = look[Token::neutralTint];
  } else if (state.isHovered) {
    middle = look[Token::hover];
  }
  if (!state.isEnabled) ring = faintColor(look, state.isOn ? Token::emptyStar : Token::edge);
  const double width =
      state.isOn ? circle.width() * kRingShare : grid.thickness(borderOf(look, ring).width);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(ring, width));
  painter.setBrush(middle);
  painter.drawEllipse(circle.adjusted(width / 2, width / 2, -width / 2, -width / 2));
}

void paintSwitch(QPainter& painter, Look& look, const QRectF& rect, const State& state) {
  constexpr double kKnobShare = 0.8;
  const double radius = rect.height() / 2;
  const double knob = radius * kKnobShare;
  State pointer = state;
  pointer.isOn = false;
  QColor fill =
      shaded(look[state.isOn ? Token::accent : Token::control], pointer, Qt::black, over(look));
  if (!state.isEnabled) fill = faintColor(look, state.isOn ? Token::emptyStar : Token::line);
  paintBox(painter, rect, radius, fill);
  painter.setPen(Qt::NoPen);
  painter.setBrush(state.isEnabled ? QColor(Qt::white) : look[Token::raised]);
  const double x = state.isOn ? rect.right() - radius : rect.left() + radius;
  painter.drawEllipse(QPointF(x, rect.center().y()), knob, knob);
}

}  // namespace quillet::parts

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStyleOption>

#include "desktop/look/button_look.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

class QPainter;
class QSlider;

// The parts of which the style consists, each drawn whole from an option. They are the style's own
// and stand apart only so that each file is about one family.
namespace quillet::parts {

/// What the pointer and the keys do with a part.
struct State {
  bool isEnabled = false;
  bool isHovered = false;  ///< and enabled
  bool isPressed = false;
  bool isOn = false;
  bool isMixed = false;
  bool hasFocus = false;
  bool showsRing = false;  ///< inside itself: it has the focus, and a key was used last
};
[[nodiscard]] State stateOf(const QStyleOption& option);

/// Text of a button or menu without the marks of its mnemonics.
[[nodiscard]] QString withoutMnemonics(const QString& text);

[[nodiscard]] double cornerOf(const QRect& control);

/// How high fields, boxes and buttons are: they grow with the line of text in them.
[[nodiscard]] int controlHeight(const Look& look);

/// A control's border: twice as thick where the desktop asks for more contrast.
[[nodiscard]] Border borderOf(const Look& look, const QColor& color);

/// Of what cannot be used now: the token, or with more contrast, where that is as strong as any
/// other, the grey of such texts.
[[nodiscard]] const QColor& faintColor(const Look& look, Token token);

// What of a control is smaller than it, and alone gets the ring.
inline constexpr double kCheckBoxCorner = 4;
/// In pixels: it grows with the texts.
[[nodiscard]] double indicatorSide(const Look& look);
/// As large as the rectangle lets it be, at its left edge.
[[nodiscard]] QRectF indicatorIn(const QRect& rect);
[[nodiscard]] QRectF sliderKnob(const QSlider& slider);

/// Outside a control, one pixel away from it.
void paintFocusRing(QPainter& painter, Look& look, const QRectF& control, double radius);

void paintButtonPanel(QPainter& painter, Look& look, const QStyleOptionButton& option,
                      ButtonKind kind);
void paintButtonLabel(QPainter& painter, Look& look, const QStyleOptionButton& option,
                      ButtonKind kind, const ButtonIcon& icon);
[[nodiscard]] QSize buttonSize(Look& look, const QStyleOptionButton& option,
                               const ButtonIcon& icon);
void paintToolButton(QPainter& painter, Look& look, const QStyleOptionToolButton& option,
                     const ButtonIcon& icon);

void paintCheckBox(QPainter& painter, Look& look, const QStyleOption& option);
void paintRadioButton(QPainter& painter, Look& look, const QStyleOption& option);
void paintSwitch(QPainter& painter, Look& look, const QRectF& rect, const State& state);

/// `border`: the token of a field that the pointer is not over.
void paintField(QPainter& painter, Look& look, const QStyleOption& option, Token border);
void paintSpinBox(QPainter& painter, Look& look, const QStyleOptionSpinBox& option, const QRect& up,
                  const QRect& down);
void paintComboBox(QPainter& painter, Look& look, const QStyleOptionComboBox& option,
                   ButtonKind kind);
void paintComboBoxLabel(QPainter& painter, Look& look, const QStyleOptionComboBox& option,
                        const QRect& field, ButtonKind kind);

void paintMenuItem(QPainter& painter, Look& look, const QStyleOptionMenuItem& option);
[[nodiscard]] QSize menuItemSize(Look& look, const QStyleOptionMenuItem& option);
void paintMenuBarItem(QPainter& painter, Look& look, const QStyleOptionMenuItem& option);
[[nodiscard]] QSize menuBarItemSize(Look& look, const QStyleOptionMenuItem& option);

void paintSlider(QPainter& painter, Look& look, const QStyleOptionSlider& option);
void paintScrollBar(QPainter& painter, Look& look, const QStyleOptionSlider& option,
                    const QRect& handle);
void paintProgressBar(QPainter& painter, Look& look, const QStyleOptionProgressBar& option);
void paintHeaderSection(QPainter& painter, Look& look, const QRect& rect);
void paintHeaderLabel(QPainter& painter, Look& look, const QStyleOptionHeader& option);
void paintTabShape(QPainter& painter, Look& look, const QStyleOption& option);
void paintTabLabel(QPainter& painter, Look& look, const QStyleOptionTab& option);

}  // namespace quillet::parts

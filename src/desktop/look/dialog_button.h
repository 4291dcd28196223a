// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPushButton>
#include <initializer_list>

#include "desktop/look/button_look.h"

class QHBoxLayout;

namespace quillet {

/// A push button of a dialog: Return presses the one that has the focus, and from anywhere else the
/// dialog's default alone, which setDefault() names. No other looks like the default.
class DialogButton : public QPushButton {
  Q_OBJECT

 public:
  explicit DialogButton(const QString& text = {}, ButtonKind kind = ButtonKind::plain,
                        QWidget* parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

/// The last row of a dialog: what stands apart, and at the end what it is left by.
[[nodiscard]] QHBoxLayout* buttonRow(std::initializer_list<QWidget*> apart,
                                     std::initializer_list<QWidget*> leaving);

}  // namespace quillet

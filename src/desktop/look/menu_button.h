// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPushButton>

namespace quillet {

/// A word with an arrow behind it that opens a menu, for bars: no border, a fill under the pointer.
class MenuButton : public QPushButton {
  Q_OBJECT

 public:
  using QPushButton::QPushButton;

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPushButton>

namespace quillet {

/// A button that is a small text alone, with little around it.
class TextButton : public QPushButton {
  Q_OBJECT

 public:
  explicit TextButton(const QString& text = {}, QWidget* parent = nullptr);

  /// Between its text and its sides.
  static constexpr int kPadding = 10;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};

}  // namespace quillet

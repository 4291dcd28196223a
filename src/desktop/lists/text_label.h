// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>

#include "desktop/look/palette.h"
#include "desktop/look/text_painter.h"

namespace quillet {

/// A line of text as all painted ones are, in the colour of a token. Cut where it has no room. Its
/// sides are those of a text from left to right, and change where the widget is mirrored.
class TextLabel : public QLabel {
  Q_OBJECT

 public:
  TextLabel(const TypeStyle& style, Token color, TextAnchor anchor = TextAnchor::left,
            QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  TypeStyle style_;
  Token color_;
  TextAnchor anchor_;
};

}  // namespace quillet

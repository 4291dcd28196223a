// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>

#include "desktop/look/palette.h"
#include "desktop/look/type_styles.h"

namespace quillet {

/// A label of one line in the window's own types; what is too long for it ends in an ellipsis.
class TextLabel : public QLabel {
  Q_OBJECT

 public:
  TextLabel(const TypeStyle& type, Token ink, QWidget* parent = nullptr);

  void setType(const TypeStyle& type, Token ink);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  TypeStyle type_;
  Token ink_;
};

}  // namespace quillet

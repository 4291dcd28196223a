// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractButton>

#include "desktop/look/type_styles.h"

namespace quillet {

/// A button that looks like a link in a text, with an icon behind it or without.
class LinkButton : public QAbstractButton {
  Q_OBJECT

 public:
  explicit LinkButton(const QString& text, const TypeStyle& type, const QString& icon = {},
                      QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  TypeStyle type_;
  QString icon_;
};

}  // namespace quillet

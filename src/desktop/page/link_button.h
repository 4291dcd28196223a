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

  /// As it is: what would mark a letter does not.
  void setPlainText(const QString& text);
  /// Of the icon, and its distance from the text.
  void setIconMetrics(double size, double gap);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  [[nodiscard]] QString shownText() const;

  TypeStyle type_;
  QString icon_;
  double iconSize_;
  double gap_;
};

}  // namespace quillet

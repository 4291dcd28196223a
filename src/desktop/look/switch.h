// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractButton>

namespace quillet {

/// A setting that takes effect at once: a check box in another shape, its text before it and not
/// in it.
class Switch : public QAbstractButton {
  Q_OBJECT

 public:
  /// `name` is what it is called for those who do not see the text beside it.
  explicit Switch(const QString& name, QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace quillet

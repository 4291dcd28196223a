// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QVBoxLayout;

namespace quillet {

/// The sheet that all content stands on: light on the window's ground, its upper left corner round.
class Sheet : public QWidget {
  Q_OBJECT

 public:
  explicit Sheet(QWidget* parent = nullptr);

  /// Below those that were added before.
  void add(QWidget* part, int stretch = 0);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QVBoxLayout* layout_;
};

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractScrollArea>

namespace quillet {

/// A rounded frame around a view, in place of the view's own.
class Framed : public QWidget {
  Q_OBJECT

 public:
  explicit Framed(QAbstractScrollArea* view);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace quillet

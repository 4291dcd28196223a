// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/page/page_marks.h"

namespace quillet {

/// What a mark tells, over the page until a key or a click elsewhere. It goes when it is closed.
class MarkPopover : public QWidget {
  Q_OBJECT

 public:
  MarkPopover(const MarkDetails& details, QWidget* parent);

  /// Or above the widget where there is no room on the screen.
  void openBelow(const QWidget& widget);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace quillet

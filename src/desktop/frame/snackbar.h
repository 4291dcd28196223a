// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "net/clock.h"

namespace quillet {

/// A line that appears over the content for ten seconds, and is told to screen readers.
class Snackbar : public QWidget {
  Q_OBJECT

 public:
  /// Stands at the foot of `sheet`, whose child it is. The clock outlives it.
  Snackbar(Clock& clock, QWidget& sheet);

  void say(const QString& text);
  [[nodiscard]] const QString& text() const { return text_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void place();
  static Task<> hideLater(QPointer<Snackbar> bar, int generation);

  Clock& clock_;
  QWidget& sheet_;
  QString text_;
  int generation_ = 0;  ///< of the line that is shown
};

}  // namespace quillet

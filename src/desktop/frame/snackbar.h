// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>

#include "net/clock.h"

class QPushButton;

namespace quillet {

class Entrance;

/// A line that appears over the content for ten seconds, and is told to screen readers. It may
/// offer to do something about what it says; while its button has the focus, it stays.
class Snackbar : public QWidget {
  Q_OBJECT

 public:
  /// Stands at the foot of `sheet`, whose child it is. The clock outlives it.
  Snackbar(Clock& clock, QWidget& sheet);

  void say(const QString& text);
  /// With a button that says `action` and runs `run` once.
  void offer(const QString& text, const QString& action, std::function<void()> run);
  [[nodiscard]] const QString& text() const { return text_; }
  /// The button, where there is one.
  void takeFocus();

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void appear(const QString& text);
  void act();
  void leave();
  void place();
  static Task<> hideLater(QPointer<Snackbar> bar, int generation);

  Clock& clock_;
  QWidget& sheet_;
  QPushButton* button_;
  Entrance* entrance_;
  std::function<void()> run_;  ///< what the button does; null without one
  QPointer<QWidget> before_;   ///< had the focus before the button
  QString text_;
  int generation_ = 0;  ///< of the line that is shown
};

}  // namespace quillet

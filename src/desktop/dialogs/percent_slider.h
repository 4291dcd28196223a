// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QSlider;

namespace quillet {

class TextLabel;

/// A percentage that is chosen on a slider, with the figure beside it. What takes it at once would
/// move the slider under the hand that drags it: it is told where the hand lets go, while the
/// figure goes along.
class PercentSlider : public QWidget {
  Q_OBJECT

 public:
  PercentSlider(const QString& name, int lowest, int highest);

  void setValue(int percent);

 Q_SIGNALS:
  /// By the user.
  void chosen(int percent);

 private:
  void showFigure(int percent);

  QSlider* slider_;
  TextLabel* figure_;
};

}  // namespace quillet

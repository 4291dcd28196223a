// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QVariantAnimation>

class QWidget;

namespace quillet {

/// How something comes into sight: at once where motion is not wanted, else from nearby, in a
/// moment.
class Entrance : public QVariantAnimation {
  Q_OBJECT

 public:
  /// The widget owns it, and is asked for its look.
  explicit Entrance(QWidget& widget);

  /// Begins; valueChanged() tells each step.
  void begin();
  /// How much of its way is left, from 1 to 0.
  [[nodiscard]] double left() const;

 private:
  QWidget& widget_;
};

}  // namespace quillet

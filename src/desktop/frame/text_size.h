// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include "desktop/services/live_settings.h"

namespace quillet {

/// The size of all texts of the application, in steps; one of the settings, and as they have it
/// from each change on.
class TextSize : public QObject {
  Q_OBJECT

 public:
  /// The settings outlive this.
  explicit TextSize(LiveSettings& settings);

  [[nodiscard]] bool canGrow() const;
  [[nodiscard]] bool canShrink() const;
  [[nodiscard]] bool isNormal() const;
  void grow();
  void shrink();
  void reset();

 Q_SIGNALS:
  void changed();

 private:
  void set(int percent);
  void show(int percent);

  LiveSettings& settings_;
  int percent_;
};

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "system/settings.h"

namespace quillet {

/// The size of all texts of the application, in steps; one of the settings.
class TextSize {
 public:
  /// The settings outlive this.
  explicit TextSize(WritableSettings& settings);

  [[nodiscard]] bool canGrow() const;
  [[nodiscard]] bool canShrink() const;
  [[nodiscard]] bool isNormal() const;
  void grow();
  void shrink();
  void reset();

 private:
  void set(int percent);

  WritableSettings& settings_;
  int percent_;
};

}  // namespace quillet

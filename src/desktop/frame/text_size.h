// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/frame/window_memory.h"

namespace quillet {

/// The size of all texts of the application, in steps.
class TextSize {
 public:
  /// The memory outlives this. The remembered size is set.
  explicit TextSize(WindowMemory& memory);

  [[nodiscard]] bool canGrow() const;
  [[nodiscard]] bool canShrink() const;
  [[nodiscard]] bool isNormal() const;
  void grow();
  void shrink();
  void reset();

 private:
  void set(int percent);

  WindowMemory& memory_;
};

}  // namespace quillet

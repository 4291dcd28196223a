// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace quillet {

/// What windows ask of whoever sits before them, or of the desktop around them. Tests answer it.
class Prompts {
 public:
  virtual ~Prompts() = default;

  /// Opens a page of the web where the user reads such. Anything but an absolute http or https
  /// address is passed over: nothing in a record starts a program.
  virtual void openLink(const std::string& address) = 0;
};

/// The desktop's own. It has no state.
[[nodiscard]] Prompts& desktopPrompts();

}  // namespace quillet

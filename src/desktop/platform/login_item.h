// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <stdexcept>

namespace quillet {

/// The application's start that could not be added to the session's, or taken from it. The text is
/// a sentence for people.
class LoginItemError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Whether the application is started, without a window, when the user logs in. The system's own
/// record is the only one.
class LoginItem {
 public:
  virtual ~LoginItem() = default;

  [[nodiscard]] virtual bool isEnabled() const = 0;
  /// Both throw LoginItemError, and change nothing then.
  virtual void enable() = 0;
  virtual void disable() = 0;
};

}  // namespace quillet

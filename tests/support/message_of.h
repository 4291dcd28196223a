// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace quillet {

/// What the Error says that `action` throws, or that nothing was thrown.
template <typename Error, typename Action>
std::string messageOf(Action action) {
  try {
    action();
  } catch (const Error& error) {
    return error.what();
  }
  return "nothing was thrown";
}

}  // namespace quillet

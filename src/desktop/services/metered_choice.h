// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include "system/settings_keys.h"

namespace quillet {

/// Whether the network may be used for what nobody has just asked for. `isMetered`: whether the one
/// that is in use is; empty where nobody knows.
[[nodiscard]] inline bool mayAskUnbidden(const std::function<bool()>& isMetered,
                                         const Settings& settings) {
  return !isMetered || !isMetered() || readSetting(settings, kCheckOnMetered);
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/services/prompts.h"

namespace quillet {

/// The desktop's own: its dialogs and its browser. It has no state.
[[nodiscard]] Prompts& desktopPrompts();

}  // namespace quillet

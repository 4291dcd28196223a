// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "collector/command_call.h"

namespace quillet {

/// Goes on with the round under way, or begins one, and works on it to its end.
Task<int> collectCommand(CommandCall call);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/online/command_call.h"

namespace quillet {

/// `quillet compare`.
Task<CommandResult> runCompare(CommandCall call);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/online/command_call.h"

namespace quillet {

/// `quillet storefronts`.
Task<CommandResult> runStorefronts(CommandCall call);

}  // namespace quillet

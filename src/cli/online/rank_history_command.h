// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/online/command_call.h"

namespace quillet {

/// The online part of `quillet rank-history`: the name of an app that the library knows the ranks
/// of alone, which the executable prints with them. Empty where it could not be read, and that is
/// said.
Task<CommandResult> runRankHistory(CommandCall call);

}  // namespace quillet

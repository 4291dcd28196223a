// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/online/command_call.h"

namespace quillet {

/// `quillet rank-history` of an app whose name is to be asked of the store. The ranks are the
/// answer; that the name could not be read is said beside it.
Task<CommandResult> runRankHistory(CommandCall call);

}  // namespace quillet

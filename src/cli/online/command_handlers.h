// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/online/command_call.h"

namespace quillet {

// The handlers of the commands that need the network, each in a room by its name. They throw
// CLIError or what the clients throw.

Task<CommandResult> runCharts(CommandCall call);
Task<CommandResult> runCompare(CommandCall call);
Task<CommandResult> runDeals(CommandCall call);
Task<CommandResult> runInfo(CommandCall call);
Task<CommandResult> runPriceHistory(CommandCall call);
Task<CommandResult> runReviews(CommandCall call);
Task<CommandResult> runScreenshots(CommandCall call);
Task<CommandResult> runSearch(CommandCall call);
Task<CommandResult> runStorefronts(CommandCall call);
Task<CommandResult> runVersions(CommandCall call);

/// The online part of `rank-history`: the name of an app that the library knows the ranks of alone,
/// which the executable prints with them. Empty where it could not be read, and that is said.
Task<CommandResult> runRankHistory(CommandCall call);

}  // namespace quillet

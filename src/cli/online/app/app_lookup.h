// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "cli/online/command_call.h"

namespace quillet {

/// The one app that a command is about, as it was named. Throws CLIError where there is not exactly
/// one.
[[nodiscard]] std::string appOperand(std::string_view command,
                                     const std::vector<std::string>& operands);

/// The app that `operand` names in the storefront of the call, as findApp() finds it. Throws
/// CLIError (not found) that says how to find the app elsewhere.
Task<ITunesApp> lookUpApp(std::string operand, CommandCall call, StopToken stop = {});

/// One line for someone who asked for a build that there is not; empty where there is one.
[[nodiscard]] std::string missingBuildNotice(const ITunesApp& app, Platform platform,
                                             const AppEnrichment& enrichment);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/dispatcher.h"
#include "cli/local/local_call.h"

namespace quillet {

/// Makes a command's JSON, without a final line feed; throws CLIError.
using JsonHandler = std::string (*)(const LocalCall& call);

/// For those listings whose JSON needs nothing but SQLite: the executable makes them itself, and so
/// starts as fast as a database shell. Null for all others.
[[nodiscard]] JsonHandler findQuickJson(const CommandInvocation& invocation);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/dispatcher.h"
#include "cli/online/command_call.h"

namespace quillet {

/// Runs a command to its printed end: its result on standard output, or its error on standard
/// error after the waits that a rate limit asks for. Never throws for what a command does.
Task<ExitStatus> runCommand(CommandInvocation invocation, CommandServices services,
                            Streams streams);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <span>
#include <string>
#include <variant>

#include "cli/cli_error.h"
#include "cli/command_line_options.h"
#include "cli/command_table.h"
#include "cli/help.h"
#include "cli/streams.h"

namespace quillet {

/// A command to run.
struct CommandInvocation {
  const CommandRow* command;
  CLIOptions options;
  OutputForm form;
};

/// The arguments belong to the desktop application.
struct StartDesktop {};

/// What the arguments ask for: nothing more (the status says how it ended), the desktop
/// application, or a command.
using Dispatch = std::variant<ExitStatus, StartDesktop, CommandInvocation>;

/// What a person wants to know of a command before it runs: a sentence for each option that it was
/// given and does not heed.
[[nodiscard]] std::vector<std::string> ignoredRemarks(const CommandInvocation& invocation);

/// Decides on the arguments (the program's path removed). Help, versions and usage errors are
/// printed here. `defaultCountry` is asked only when a command's options are read.
[[nodiscard]] Dispatch dispatch(std::span<const std::string> arguments,
                                const std::function<std::string()>& defaultCountry,
                                const ProgramVersion& version, const Streams& streams);

}  // namespace quillet

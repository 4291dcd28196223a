// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "cli/cli_error.h"
#include "cli/dispatcher.h"
#include "system/environment.h"
#include "system/places.h"
#include "system/settings.h"

namespace quillet {

/// A command that the executable handed to a module, and what it is run with.
struct ModuleCall {
  const CommandInvocation& invocation;
  const Environment& environment;
  const Places& places;
  const Settings& settings;
  const Streams& streams;
};

/// Reads the arguments as the executable has, and runs the command that they name on the process's
/// own streams. What `run` throws is told as an error.
[[nodiscard]] ExitStatus runModuleCall(const std::vector<std::string>& arguments,
                                       ExitStatus (*run)(const ModuleCall& call));

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "app/module_loader.h"

namespace quillet {

/// Runs a module in a process of its own and returns what it prints there; its standard error is
/// ours. Empty where no process can be made or the module prints nothing.
[[nodiscard]] std::string outputOf(const Module& module, int argc, char** argv);

}  // namespace quillet

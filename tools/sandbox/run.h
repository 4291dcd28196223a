// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdio>
#include <span>
#include <string>

namespace quillet::sandbox {

/// The whole program: follows the arguments after its name and returns its exit status. To be
/// called before any thread is started.
[[nodiscard]] int runSandbox(std::span<const std::string> arguments);

}  // namespace quillet::sandbox

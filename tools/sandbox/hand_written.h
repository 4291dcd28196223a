// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "sandbox/app_sketch.h"

namespace quillet::sandbox {

// The apps written by hand, by theme. Their numbers never change: scripts and trials name them.

[[nodiscard]] std::vector<AppSketch> writingApps();
[[nodiscard]] std::vector<AppSketch> photoApps();
[[nodiscard]] std::vector<AppSketch> workApps();
[[nodiscard]] std::vector<AppSketch> leisureApps();
/// Names and texts that trip programs: other scripts, hostile bytes, great lengths.
[[nodiscard]] std::vector<AppSketch> oddApps();

/// All of them.
[[nodiscard]] std::vector<AppSketch> handWrittenApps();

}  // namespace quillet::sandbox

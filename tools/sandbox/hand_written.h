// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "sandbox/app_sketch.h"

namespace quillet::sandbox {

/// Reads data/apps.json. Throws DecodingError, which says where it is wrong.
[[nodiscard]] std::vector<AppSketch> readApps(const std::string& json);

/// The apps written by hand. Their IDs never change: scripts and trials name them.
[[nodiscard]] std::vector<AppSketch> handWrittenApps();

}  // namespace quillet::sandbox

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "collector/stop_watch.h"

namespace quillet {

/// All that a file holds, or standard input for "-"; of a pipe what comes until its end. Throws
/// BadUsage when it cannot be read, and Stopped.
[[nodiscard]] std::string inputText(const std::string& file, StopWatch stop);

}  // namespace quillet

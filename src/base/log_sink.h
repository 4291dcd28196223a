// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>

namespace quillet {

/// Where lines of a log go, one at a time and without their ends. Several threads may call it at
/// once. An empty one: nobody asked for the log.
using LogSink = std::function<void(const std::string& line)>;

}  // namespace quillet

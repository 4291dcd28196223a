// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>

#include "net/clock.h"
#include "system/environment.h"

namespace quillet {

/// Whether lines that are written to the descriptor are kept without anybody noting their time:
/// they go neither to a terminal nor to systemd's journal.
[[nodiscard]] bool lacksTimes(int descriptor, const Environment& environment);

/// Takes text of whole lines and writes it, each line after the clock's time in UTC.
[[nodiscard]] std::function<void(const std::string& text)> timedLines(
    std::function<void(const std::string& text)> write, const Clock& clock);

}  // namespace quillet

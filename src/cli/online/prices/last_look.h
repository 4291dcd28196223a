// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

#include "cli/online/command_call.h"

namespace quillet {

/// When the store last told the prices of a storefront that are published; absent where that is not
/// said, or cannot be had soon: it is worth no failure and little time.
Task<std::optional<Instant>> lastLookAt(CommandServices services, std::string country);

/// A sentence where the prices were not looked at for days; empty otherwise.
[[nodiscard]] std::string oldLookText(std::optional<Instant> looked, Instant now);

}  // namespace quillet

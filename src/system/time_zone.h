// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <functional>

#include "base/dates.h"

namespace quillet {

/// How far local time is ahead of UTC at an instant. Handed to whatever asks for calendar days.
using UtcOffsetAt = std::function<std::chrono::seconds(Instant)>;

/// The user's time zone (TZ, else the machine's).
[[nodiscard]] UtcOffsetAt localTimeZone();

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "base/dates.h"

namespace quillet {

/// How dates are stored: seconds since 2001-01-01T00:00:00Z, to the millisecond.
[[nodiscard]] double toReferenceSeconds(Instant instant);

/// Numbers beyond what an instant can hold, infinities too, give the earliest or latest one; no
/// number gives the reference date.
[[nodiscard]] Instant fromReferenceSeconds(double seconds);

}  // namespace quillet

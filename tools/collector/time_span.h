// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "base/dates.h"

namespace quillet {

/// From `begin` on, until before `end`.
struct TimeSpan {
  Instant begin;
  Instant end;
};

}  // namespace quillet

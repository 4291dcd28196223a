// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "analysis/maintenance_health.h"

namespace quillet {

/// One of the thresholds.
using Threshold = std::int64_t MaintenanceThresholds::*;

/// The thresholds with one of them at another value, which pushes those in its way just as far as
/// they must go to go on increasing. The value is clamped into the threshold's range.
[[nodiscard]] MaintenanceThresholds pushed(MaintenanceThresholds thresholds, Threshold moved,
                                           std::int64_t to);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

#include "analysis/maintenance_health.h"

namespace quillet {

/// What a badge says: "Actively updated".
[[nodiscard]] std::string_view maintenanceTitle(MaintenanceLevel level);

/// What the level means, in a few words: "6–12 months since an update". Empty for unknown.
[[nodiscard]] std::string maintenanceExplanation(MaintenanceLevel level,
                                                 const MaintenanceThresholds& thresholds);

/// What a buyer may conclude from it: a few sentences.
[[nodiscard]] std::string maintenanceAdvice(MaintenanceLevel level,
                                            const MaintenanceThresholds& thresholds);

}  // namespace quillet

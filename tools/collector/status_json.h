// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "collector/status_report.h"

namespace quillet {

/// One object, for other programs: docs/collector.md says what its keys mean.
[[nodiscard]] std::string statusJson(const StatusReport& report);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "collector/status_report.h"

namespace quillet {

/// In the text format that Prometheus' node exporter reads from files. What is not known has no
/// line.
[[nodiscard]] std::string statusMetrics(const StatusReport& report);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "collector/status_report.h"

namespace quillet {

/// For people: a line of verdict, then what it rests on.
[[nodiscard]] std::string statusText(const StatusReport& report);

}  // namespace quillet

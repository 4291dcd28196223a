// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "export/app_report.h"

namespace quillet {

[[nodiscard]] std::string jsonReport(const AppReport& report);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "analysis/filters.h"

namespace quillet {

/// Filters as the options of a command that has them, each with a blank before it.
[[nodiscard]] std::string filterOptions(const AppFilters& filters);

}  // namespace quillet

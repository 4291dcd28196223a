// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/dates.h"
#include "collector/sql_database.h"

namespace quillet {

/// Notes in the record that the worker is at it, and returns who else is, as far as is known. Those
/// that have ended are forgotten here, and those of a machine that never came back after a month.
/// Throws DatabaseError.
[[nodiscard]] std::vector<std::string> enterRecord(
    SqlTransaction& transaction, const std::string& worker, Instant now,
    const std::function<bool(const std::string& worker)>& hasEnded);

}  // namespace quillet

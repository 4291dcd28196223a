// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "queries/query_call.h"

namespace quillet {

/// A short clause for the progress line: "Looking up the app: 3 of 10 storefronts".
[[nodiscard]] std::string activityOf(const QueryProgress& reached);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "analysis/purchase_series.h"
#include "cli/local/local_store.h"

namespace quillet {

/// What the purchases in these apps have cost. Absent where the database is from a time before
/// purchases were recorded.
[[nodiscard]] std::optional<std::vector<PurchaseSeries>> readPurchaseSeries(
    const CLILocalStore& store, std::span<const std::int64_t> trackIds);

}  // namespace quillet

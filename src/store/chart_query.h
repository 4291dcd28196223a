// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

#include "store/records/chart_type.h"
#include "store/records/platform.h"

namespace quillet {

/// Which chart is meant.
struct ChartQuery {
  ChartType chart = ChartType::topFree;
  Platform platform = Platform::mac;
  std::string storefront;      ///< two letters, lower case
  std::optional<int> genreId;  ///< of a category; absent: the chart of the whole store
};

}  // namespace quillet

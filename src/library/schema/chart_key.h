// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "store/records/chart_type.h"
#include "store/records/platform.h"

namespace quillet {

/// How many places of a chart are recorded each day.
inline constexpr std::size_t kRecordedPlaces = 50;

/// What stands for the chart of the whole store among the stored categories.
inline constexpr int kWholeStoreGenre = 0;

/// The key under which orders of a chart are kept. Stored; never change.
[[nodiscard]] std::string chartKey(Platform platform, ChartType chart, std::string_view storefront,
                                   int genre = kWholeStoreGenre);

}  // namespace quillet

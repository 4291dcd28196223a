// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <span>
#include <string>

#include "cli/streams.h"
#include "store/records/price_seed.h"

namespace quillet {

struct StepChartFrame {
  std::size_t width = 80;     ///< of the whole, labels included
  std::chrono::sys_days end;  ///< the last price holds until then
};

/// A price over time as lines of text, each with its end: a point holds until the next one, and
/// every change is seen however narrow the chart is. The present, highest and lowest price are
/// written at the left, the first and last day below. There must be a point.
[[nodiscard]] std::string stepChart(std::span<const PriceSeed::Point> points,
                                    const StepChartFrame& frame,
                                    const std::function<std::string(double)>& labelOf,
                                    const TextStyle& style);

}  // namespace quillet

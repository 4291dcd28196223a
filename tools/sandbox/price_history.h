// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <vector>

#include "sandbox/app_sketch.h"

namespace quillet::sandbox {

/// A price, in US cents, from a day on.
struct PriceChange {
  std::chrono::sys_days day;
  int usCents = 0;  ///< one of the price points
};

/// The prices of the last year, oldest first, each another than the one before, the last one the
/// current. Empty for an app whose price stayed as it was, which is so for most.
[[nodiscard]] std::vector<PriceChange> priceHistory(const AppSketch& app,
                                                    std::chrono::sys_days today);

/// The price in US cents on `day`, by that history; before it, the oldest one.
[[nodiscard]] int priceOn(std::chrono::sys_days day, const AppSketch& app,
                          std::chrono::sys_days today);

}  // namespace quillet::sandbox

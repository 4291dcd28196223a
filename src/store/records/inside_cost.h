// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

namespace quillet {

/// What it takes at least to use all of an app, beside its own price: amounts in one currency.
struct InsideCost {
  std::optional<double> perYear;  ///< of the cheapest subscription
  std::optional<double> unlock;   ///< of the cheapest purchase that opens the app for good
  std::string currency;           ///< ISO 4217

  friend bool operator==(const InsideCost&, const InsideCost&) = default;
};

}  // namespace quillet

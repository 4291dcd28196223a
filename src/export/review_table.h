// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "store/records/app_review.h"

namespace quillet {

/// A review as a table has it.
struct ReviewTableRow {
  std::string country;  ///< storefront
  std::string version;  ///< of the app; empty where it is unknown
  AppReview review;
};

/// A table for spreadsheets, UTF-8: a heading, then a line for each review. Dates are in UTC, and
/// what is not known is empty.
[[nodiscard]] std::string reviewTable(const std::vector<ReviewTableRow>& reviews);

}  // namespace quillet

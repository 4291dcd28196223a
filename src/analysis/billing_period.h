// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillet {

/// How often a subscription is paid, in the units in which the store wrote it.
struct BillingPeriod {
  std::int64_t years = 0;
  std::int64_t months = 0;
  std::int64_t weeks = 0;
  std::int64_t days = 0;

  friend bool operator==(const BillingPeriod&, const BillingPeriod&) = default;
};

// Billing periods have no calendar: every year and every month is of average length.
inline constexpr double kDaysPerYear = 365.25;
inline constexpr double kDaysPerMonth = 30.44;

/// Reads an ISO 8601 duration in either case of letters: "P1M", "p2w", "P1Y6M". What stands after
/// a "T" is ignored. Absent for any other form: no unit, a unit named twice, a number that is not
/// whole, has a sign or does not fit 32 bits.
[[nodiscard]] std::optional<BillingPeriod> parseBillingPeriod(std::string_view text);

/// The length of an ISO 8601 duration; 0 for "P0D", absent where it cannot be read.
[[nodiscard]] std::optional<double> periodDays(std::string_view text);

/// "per month", "every 2 weeks": an ISO 8601 duration in words, in the largest unit that it fills
/// ("P12M" is "per year", "P1Y6M" is "every 18 months"). Days are never taken for months: "every 1
/// month and 15 days". Absent where the duration cannot be read or is 0.
[[nodiscard]] std::optional<std::string> billingText(std::string_view text);

}  // namespace quillet

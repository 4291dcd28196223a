// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/billing_period.h"

#include <fmt/format.h>

#include <array>
#include <charconv>

#include "base/text.h"

namespace quillet {

namespace {

constexpr std::string_view kUnitLetters = "ymwd";

/// The numbers read so far, in the order of the letters.
using UnitNumbers = std::array<std::optional<std::uint32_t>, kUnitLetters.size()>;

/// Takes a number and its letter off the front of `text`; false where there is no such pair.
bool takePair(std::string_view& text, UnitNumbers& numbers) {
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end == text.data() + text.size()) return false;
  const std::size_t unit = kUnitLetters.find(*end);
  if (unit == std::string_view::npos || numbers[unit]) return false;
  numbers[unit] = number;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()) + 1);
  return true;
}

struct UnitCount {
  std::int64_t count;
  std::string_view unit;
};

UnitCount monthsOrYears(const BillingPeriod& period) {
  constexpr std::int64_t kMonthsPerYear = 12;
  const std::int64_t months = period.years * kMonthsPerYear + period.months;
  if (months % kMonthsPerYear == 0) return {months / kMonthsPerYear, "year"};
  return {months, "month"};
}

UnitCount daysOrWeeks(const BillingPeriod& period) {
  constexpr std::int64_t kDaysPerWeek = 7;
  const std::int64_t days = period.weeks * kDaysPerWeek + period.days;
  if (days % kDaysPerWeek == 0) return {days / kDaysPerWeek, "week"};
  return {days, "day"};
}

std::string counted(const UnitCount& span) {
  return fmt::format("{} {}{}", span.count, span.unit, span.count == 1 ? "" : "s");
}

std::string repeating(const UnitCount& span) {
  return span.count == 1 ? fmt::format("per {}", span.unit)
                         : fmt::format("every {}", counted(span));
}

}  // namespace

std::optional<BillingPeriod> parseBillingPeriod(std::string_view text) {
  const std::string lower = lowerAscii(text);
  if (!lower.starts_with('p')) return {};
  std::string_view rest = std::string_view(lower).substr(1);
  rest = rest.substr(0, rest.find('t'));
  if (rest.empty()) return {};
  UnitNumbers numbers;
  while (!rest.empty()) {
    if (!takePair(rest, numbers)) return {};
  }
  return BillingPeriod{.years = numbers[0].value_or(0),
                       .months = numbers[1].value_or(0),
                       .weeks = numbers[2].value_or(0),
                       .days = numbers[3].value_or(0)};
}

std::optional<double> periodDays(std::string_view text) {
  const auto period = parseBillingPeriod(text);
  if (!period) return {};
  return static_cast<double>(period->years) * kDaysPerYear +
         static_cast<double>(period->months) * kDaysPerMonth +
         static_cast<double>(period->weeks) * 7 + static_cast<double>(period->days);
}

std::optional<std::string> billingText(std::string_view text) {
  const auto period = parseBillingPeriod(text);
  if (!period || *period == BillingPeriod{}) return {};
  const UnitCount months = monthsOrYears(*period);
  const UnitCount days = daysOrWeeks(*period);
  if (days.count == 0) return repeating(months);
  if (months.count == 0) return repeating(days);
  return fmt::format("every {} and {}", counted(months), counted(days));
}

}  // namespace quillet

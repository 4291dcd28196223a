// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/scale.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quillet {

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month;
using std::chrono::year_month_day;

constexpr double kHighLow = 0.7;    // of the highest price
constexpr double kRoomBelow = 0.2;  // of all that changes
constexpr std::array<std::int64_t, 9> kNamedRanks{3, 5, 10, 20, 30, 50, 100, 150, 200};
constexpr std::size_t kFewPrices = 4;
constexpr int kRoundPrices = 5;
constexpr double kAlmost = 1e-9;  // of a step, for quotients that are not whole

/// A step of 1, 2 or 5 times a power of ten that is not smaller.
double roundStep(double smallest) {
  const double power = std::pow(10, std::floor(std::log10(smallest)));
  for (const double factor : {1.0, 2.0, 5.0}) {
    if (factor * power >= smallest * (1 - kAlmost)) return factor * power;
  }
  return 10 * power;
}

bool areApart(const std::vector<double>& prices, const PriceRange& range, double height) {
  const double pixels = height / (range.top - range.bottom);
  const auto isClose = [pixels](double a, double b) {
    return (b - a) * pixels < kAxisTextDistance;
  };
  return std::ranges::adjacent_find(prices, isClose) == prices.end();
}

/// One way of putting ticks: every so many of a unit.
struct Stride {
  TimeUnit unit;
  int count;
  double days;  ///< about
};

constexpr std::array kStrides{
    Stride{TimeUnit::day, 1, 1},        Stride{TimeUnit::day, 2, 2},
    Stride{TimeUnit::day, 5, 5},        Stride{TimeUnit::day, 10, 10},
    Stride{TimeUnit::month, 1, 30.4},   Stride{TimeUnit::month, 2, 60.9},
    Stride{TimeUnit::month, 3, 91.3},   Stride{TimeUnit::month, 6, 182.6},
    Stride{TimeUnit::year, 1, 365.2},   Stride{TimeUnit::year, 2, 730.5},
    Stride{TimeUnit::year, 5, 1826.2},  Stride{TimeUnit::year, 10, 3652.4},
    Stride{TimeUnit::year, 50, 18262.},
};

/// The last tick of a stride that is not after the day.
sys_days tickAtOrBefore(sys_days day, const Stride& stride) {
  if (stride.unit == TimeUnit::day) {
    const int past = static_cast<int>(day.time_since_epoch().count() % stride.count);
    return day - days((past + stride.count) % stride.count);
  }
  const year_month_day date(day);
  if (stride.unit == TimeUnit::month) {
    const unsigned month = static_cast<unsigned>(date.month()) - 1;
    const unsigned first = month - month % static_cast<unsigned>(stride.count);
    return sys_days(date.year() / std::chrono::month(first + 1) / 1);
  }
  const int year = static_cast<int>(date.year());
  return sys_days(std::chrono::year(year - year % stride.count) / 1 / 1);
}

sys_days tickAfter(sys_days tick, const Stride& stride) {
  if (stride.unit == TimeUnit::day) return tick + days(stride.count);
  const year_month_day date(tick);
  const int months = stride.unit == TimeUnit::month ? stride.count : 12 * stride.count;
  return sys_days((year_month(date.year(), date.month()) + std::chrono::months(months)) / 1);
}

std::vector<TimeTick> ticksOf(const Stride& stride, sys_days from, sys_days to) {
  std::vector<TimeTick> ticks;
  sys_days tick = tickAtOrBefore(from, stride);
  if (tick < from) tick = tickAfter(tick, stride);
  for (; tick <= to; tick = tickAfter(tick, stride)) {
    const bool beginsYear = year_month_day(tick).month() == std::chrono::January &&
                            year_month_day(tick).day() == std::chrono::day(1);
    const bool isYear = stride.unit != TimeUnit::day && beginsYear;
    ticks.push_back({tick, isYear ? TimeUnit::year : stride.unit});
  }
  return ticks;
}

}  // namespace

PriceRange priceRangeOf(double lowest, double highest) {
  if (highest <= 0) return {};
  if (lowest <= kHighLow * highest || lowest == highest) return {0, highest};
  return {lowest - kRoomBelow * (highest - lowest), highest};
}

std::vector<double> roundPrices(const PriceRange& range, int atMost) {
  double step = roundStep((range.top - range.bottom) / atMost);
  while (true) {
    // Counted in steps: sums of fractions would drift.
    const auto first = static_cast<long>(std::ceil(range.bottom / step - kAlmost));
    const auto last = static_cast<long>(std::floor(range.top / step + kAlmost));
    if (last - first < atMost) {
      std::vector<double> prices;
      for (long i = first; i <= last; ++i) prices.push_back(static_cast<double>(i) * step);
      return prices;
    }
    step = roundStep(step * 1.5);
  }
}

std::vector<double> axisPrices(std::vector<double> prices, double present, const PriceRange& range,
                               double height) {
  if (range.startsAtZero()) prices.push_back(0);
  std::ranges::sort(prices);
  prices.erase(std::ranges::unique(prices).begin(), prices.end());
  const std::size_t named = prices.size() - (range.startsAtZero() && prices.front() == 0 ? 1 : 0);
  if (named <= kFewPrices && areApart(prices, range, height)) return prices;
  std::vector<double> round = roundPrices(range, kRoundPrices);
  const double pixels = height / (range.top - range.bottom);
  std::erase_if(
      round, [&](double price) { return std::abs(price - present) * pixels < kAxisTextDistance; });
  round.insert(std::ranges::upper_bound(round, present), present);
  return round;
}

std::int64_t lowestRankShown(std::int64_t worst) {
  const auto* bottom = std::ranges::lower_bound(kNamedRanks, std::max<std::int64_t>(worst, 5));
  return bottom == kNamedRanks.end() ? worst : *bottom;
}

std::vector<std::int64_t> namedRanks(std::int64_t bottom, double height) {
  const double pixels = height / static_cast<double>(bottom - 1);
  std::vector<std::int64_t> named{1};
  for (const std::int64_t rank : kNamedRanks) {
    const bool isClear = static_cast<double>(rank - named.back()) * pixels >= kAxisTextDistance &&
                         static_cast<double>(bottom - rank) * pixels >= kAxisTextDistance;
    if (rank < bottom && isClear) named.push_back(rank);
  }
  named.push_back(bottom);
  return named;
}

std::vector<TimeTick> timeTicks(Instant from, Instant to, int atMost) {
  const auto first = std::chrono::ceil<days>(from);
  const auto last = std::chrono::floor<days>(to);
  if (last < first) return {};
  const double span = static_cast<double>((last - first).count());
  for (const Stride& stride : kStrides) {
    // Whether a span holds one tick more than its strides depends on where it begins.
    if (span / stride.days > atMost) continue;
    auto ticks = ticksOf(stride, first, last);
    if (ticks.size() <= static_cast<std::size_t>(std::max(1, atMost))) return ticks;
  }
  return ticksOf(kStrides.back(), first, last);
}

}  // namespace quillet

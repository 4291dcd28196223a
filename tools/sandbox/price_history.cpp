// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/price_history.h"

#include <algorithm>

#include "sandbox/random.h"
#include "sandbox/storefronts.h"

namespace quillet::sandbox {

namespace {

constexpr int kYear = 365;
constexpr int kLeastChanges = 1;
constexpr int kMostChanges = 6;

/// Every third paid app's price moved, and some that are free now were not always.
bool hasMoved(const AppSketch& app, Random& random) {
  if (app.hidesPrice) return false;
  return random.oneIn(app.usCents > 0 ? 3 : 40);
}

/// A price that the current one could alternate with: what it is reduced from, or reduced to.
int otherPrice(int usCents, Random& random) {
  constexpr std::array kFormerlyPaid{199, 499, 999};
  if (usCents == 0) return random.pick(kFormerlyPaid);
  const bool isOnSale = random.oneIn(2);
  const int percent = isOnSale ? random.between(130, 250) : random.between(30, 75);
  const int other = pricePointUpTo(usCents * percent / 100);
  return other == usCents ? 0 : other;
}

/// Sales are short, the time between them is not.
int daysAt(bool isLower, Random& random) {
  return isLower ? random.between(3, 21) : random.between(25, 110);
}

}  // namespace

std::vector<PriceChange> priceHistory(const AppSketch& app, std::chrono::sys_days today) {
  Random random(mixed(static_cast<std::uint64_t>(app.id), 900));
  if (!hasMoved(app, random)) return {};
  const int current = app.usCents;
  const int other = otherPrice(current, random);
  int ago = random.between(1, current < other ? 14 : 120);
  std::vector<PriceChange> history{{today - std::chrono::days(ago), current}};
  // Nothing has a price before it is there.
  const int oldest = std::min(kYear, app.first);
  for (int left = random.between(kLeastChanges, kMostChanges); left > 0; --left) {
    const int before = history.back().usCents == current ? other : current;
    ago += daysAt(before < history.back().usCents, random);
    if (ago > oldest) break;
    history.push_back({today - std::chrono::days(ago), before});
  }
  std::ranges::reverse(history);
  return history.size() > 1 ? history : std::vector<PriceChange>();
}

int priceOn(std::chrono::sys_days day, const AppSketch& app, std::chrono::sys_days today) {
  const std::vector<PriceChange> history = priceHistory(app, today);
  if (history.empty()) return app.usCents;
  const auto later = std::ranges::upper_bound(history, day, {}, &PriceChange::day);
  return later == history.begin() ? later->usCents : std::prev(later)->usCents;
}

}  // namespace quillet::sandbox

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/pushed_thresholds.h"

#include <algorithm>
#include <array>

#include "system/settings_keys.h"

namespace quillet {

namespace {

struct Bound {
  Threshold threshold;
  const WholeSetting& setting;
};

constexpr std::array kInOrder{Bound{&MaintenanceThresholds::slowing, kSlowingAfterMonths},
                              Bound{&MaintenanceThresholds::stale, kStaleAfterMonths},
                              Bound{&MaintenanceThresholds::abandoned, kAbandonedAfterMonths}};

}  // namespace

MaintenanceThresholds pushed(MaintenanceThresholds thresholds, Threshold moved, std::int64_t to) {
  const auto* at = std::ranges::find(kInOrder, moved, &Bound::threshold);
  thresholds.*moved = std::clamp(to, at->setting.lowest, at->setting.highest);
  for (const auto* above = at + 1; above < kInOrder.end(); ++above) {
    thresholds.*above->threshold =
        std::max(thresholds.*above->threshold, thresholds.*(above - 1)->threshold + 1);
  }
  for (const auto* below = at; below-- > kInOrder.begin();) {
    thresholds.*below->threshold =
        std::min(thresholds.*below->threshold, thresholds.*(below + 1)->threshold - 1);
  }
  return thresholds;
}

}  // namespace quillet

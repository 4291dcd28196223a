// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <utility>
#include <vector>

#include "library/schema/alert_record.h"
#include "library/schema/price_point.h"
#include "library/schema/watched_app.h"
#include "sandbox/library/sample_source.h"
#include "sandbox/random.h"

namespace quillet::sandbox {

/// One watched app, and what its watching brought.
struct Watch {
  MetApp app;
  WatchedApp row;
  Random random;
  std::vector<PricePoint> points;
  std::vector<PurchasePricePoint> purchases;
  std::vector<AlertRecord> alerts;
};

/// An app that has been watched for some of the past year: its prices and those of its purchases as
/// the checks found them, and the alerts that they raised, all of them read.
[[nodiscard]] Watch watched(MetApp app, std::chrono::sys_days today, Instant now);

/// Notes an alert; the prices, in US cents, are the one before and the one after.
void raiseAlert(Watch& watch, AlertKind kind, Instant when, std::pair<int, int> usCents);

}  // namespace quillet::sandbox

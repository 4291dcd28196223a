// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "library/removed_rows.h"

namespace quillet {

/// What the user decides about a watched app.
struct WatchOptions {
  bool alertOnAnyDrop = false;
  bool alertOnFree = false;
  bool alertOnNewVersion = false;
  bool alertOnPurchasePrices = false;
  std::optional<double> targetPrice;
  std::optional<Instant> mutedUntil;

  friend bool operator==(const WatchOptions&, const WatchOptions&) = default;
};

struct WatchEdit {
  AppKey app;
  WatchOptions options;

  friend bool operator==(const WatchEdit&, const WatchEdit&) = default;
};

/// What a price check found, and the price of the last alert.
struct PriceCheck {
  AppKey app;
  double currentPrice = 0;
  std::optional<std::string> formattedPrice;
  std::optional<std::string> currency;
  std::optional<std::string> lastKnownVersion;
  std::optional<Instant> lastCheckedAt;
  std::optional<double> lastNotifiedPrice;
  bool isUnavailable = false;
};

/// Newest first.
[[nodiscard]] std::vector<WatchedApp> watchedApps(SQLite::Database& database);
[[nodiscard]] std::vector<WatchedApp> watchedAppsOf(SQLite::Database& database,
                                                    const std::vector<AppKey>& apps);

/// Watches those apps that are not watched yet, and returns their keys.
std::vector<AppKey> watchApps(WriteTransaction& transaction, const std::vector<WatchedApp>& apps);

/// Sets the options of watched apps; returns the edits that undo it. Apps that are not watched are
/// passed over.
std::vector<WatchEdit> editWatches(WriteTransaction& transaction,
                                   const std::vector<WatchEdit>& edits);

/// Writes what checks found; the user's options stay. Apps that are no longer watched are passed
/// over.
void recordChecks(WriteTransaction& transaction, const std::vector<PriceCheck>& checks);

RemovedRows unwatchApps(WriteTransaction& transaction, const std::vector<AppKey>& apps);

}  // namespace quillet

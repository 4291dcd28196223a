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
  /// That the target was set in; absent: that of the app's price, as for a target set anew.
  std::optional<std::string> targetCurrency;

  friend bool operator==(const WatchOptions&, const WatchOptions&) = default;
};

[[nodiscard]] WatchOptions optionsOf(const WatchedApp& app);
void setOptions(WatchedApp& app, const WatchOptions& options);

struct WatchEdit {
  AppKey app;
  WatchOptions options;

  friend bool operator==(const WatchEdit&, const WatchEdit&) = default;
};

/// What the app cost when it was added, and what it is to cost. Absent where that was said in
/// another currency than the app's price is in now: it cannot be compared with that.
[[nodiscard]] std::optional<double> knownPriceWhenAdded(const WatchedApp& app);
[[nodiscard]] std::optional<double> knownTargetPrice(const WatchedApp& app);

/// Whether its price is 0 without a text: nothing told what it costs, or an import that it is free.
[[nodiscard]] bool lacksPrice(const WatchedApp& app);

/// Newest first.
[[nodiscard]] std::vector<WatchedApp> watchedApps(SQLite::Database& database);
[[nodiscard]] std::vector<WatchedApp> watchedAppsOf(SQLite::Database& database,
                                                    const std::vector<AppKey>& apps);

/// Those that were no longer sold at their last check.
[[nodiscard]] std::vector<WatchedApp> unsoldApps(SQLite::Database& database);

/// Those of these apps that are watched.
[[nodiscard]] std::vector<AppKey> watchedAmong(SQLite::Database& database,
                                               const std::vector<AppKey>& apps);

/// Watches those apps that are not watched yet, and returns their keys.
std::vector<AppKey> watchApps(WriteTransaction& transaction, const std::vector<WatchedApp>& apps);

/// Sets the options of watched apps; returns the edits that undo it. Apps that are not watched are
/// passed over.
std::vector<WatchEdit> editWatches(WriteTransaction& transaction,
                                   const std::vector<WatchEdit>& edits);

RemovedRows unwatchApps(WriteTransaction& transaction, const std::vector<AppKey>& apps);

}  // namespace quillet

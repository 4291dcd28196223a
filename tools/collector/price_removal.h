// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "collector/sql_database.h"
#include "collector/time_span.h"

namespace quillet {

// What a person takes out of a record. What is left is as if the rest had never been seen, and each
// storefront whose files change by it gets a new stamp.

/// Keeps collectors from writing until the end of the transaction: to be called first in one that
/// takes something out.
void keepOthersFromRecording(SqlTransaction& transaction, const SqlDialect& dialect);

/// A price that was taken out.
struct RemovedPrice {
  std::string name;  ///< the app's
  Instant seen;
  double price = 0;
  bool isRepeated = false;  ///< only since it is the one before, now that those between are gone
};

/// Takes out the prices of an app's present series that were recorded in `span`, and returns them
/// oldest first. An app without any other begins anew when it is seen next.
std::vector<RemovedPrice> removePrices(SqlTransaction& transaction, const std::string& country,
                                       std::int64_t trackId, TimeSpan span, Instant now);

/// An app that was taken out.
struct RemovedApp {
  std::string name;
  std::int64_t prices = 0;
};

/// Takes out all that is recorded of an app; absent where nothing is.
std::optional<RemovedApp> removeApp(SqlTransaction& transaction, const std::string& country,
                                    std::int64_t trackId, Instant now);

/// What was taken out for its age.
struct RemovedAge {
  std::int64_t prices = 0;
  std::int64_t rounds = 0;
};

/// Takes out the storefronts' prices that were recorded before `day`, but for those that held then,
/// which stay under their own time, and rounds that began before, but for the newest.
RemovedAge removeBefore(SqlTransaction& transaction, const std::vector<std::string>& countries,
                        Instant day, Instant now);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "collector/lookup_queue.h"
#include "collector/sql_database.h"
#include "collector/trouble.h"

namespace quillet {

/// A round that is over.
struct EndedRound {
  std::int64_t id = 0;
  Instant began;
  Instant ended;
  std::int64_t failed = 0;  ///< lookups
};

/// What failed of the newest round in one storefront.
struct FailedApps {
  std::string country;
  std::int64_t apps = 0;
  std::vector<std::int64_t> ids;  ///< the first of them, kMostFailedIds at most
};

inline constexpr std::size_t kMostFailedIds = 100;

struct StorefrontStatus {
  std::string country;
  Instant changed;                ///< anything that is published of it
  std::optional<Instant> looked;  ///< the store's last answer; absent: not known
};

/// How much is recorded. An app counts in each storefront.
struct RecordCounts {
  std::int64_t apps = 0;
  std::int64_t gone = 0;   ///< of these: not sold any more
  std::int64_t moved = 0;  ///< of these: with a price that ever changed
  std::int64_t prices = 0;
  std::int64_t bytes = 0;
};

/// What the record says of its collectors.
struct RecordStatus {
  std::optional<Round> newest;  ///< the round under way, or else the last one
  std::optional<EndedRound> lastEnded;
  std::optional<EndedRound> lastSuccess;  ///< in which nothing failed
  std::optional<Instant> firstBegan;
  std::vector<FailedApps> failed;
  std::vector<std::string> failedQuestions;  ///< of the newest round, as people call them
  Troubles troubles;
  RecordCounts counts;
  std::vector<StorefrontStatus> storefronts;
};

/// Reads the record, and counts all of it. Throws DatabaseError, and Stopped.
[[nodiscard]] RecordStatus statusOf(SqlDatabase& database);

/// The store's last answer in any storefront.
[[nodiscard]] std::optional<Instant> lastLook(const RecordStatus& record);

}  // namespace quillet

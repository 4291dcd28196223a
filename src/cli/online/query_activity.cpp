// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/query_activity.h"

#include <fmt/format.h>

#include <array>

namespace quillet {

namespace {

struct StageWords {
  QueryStage stage;
  std::string_view activity;
  std::string_view things;  ///< that are counted
};

constexpr std::array kStages{
    StageWords{QueryStage::lookup, "Looking up the app", "apps"},
    StageWords{QueryStage::search, "Searching the App Store", "apps"},
    StageWords{QueryStage::chart, "Reading the chart", "apps"},
    StageWords{QueryStage::catalog, "Reading the catalog", "batches"},
    StageWords{QueryStage::reviews, "Reading reviews", "pages"},
    StageWords{QueryStage::releases, "Reading the release history", "storefronts"},
    StageWords{QueryStage::purchases, "Reading what the apps sell", "apps"},
    StageWords{QueryStage::storefronts, "Looking up the app", "storefronts"},
};

}  // namespace

std::string activityOf(const QueryProgress& reached) {
  const StageWords& words = kStages.at(static_cast<std::size_t>(reached.stage));
  if (reached.total == 0) return std::string(words.activity);
  return fmt::format("{}: {} of {} {}", words.activity, reached.done, reached.total, words.things);
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/query_activity.h"

#include <fmt/format.h>

#include <array>

#include "base/enum_index.h"
#include "base/text.h"

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
    StageWords{QueryStage::reviews, "Reading reviews", "storefronts"},
    StageWords{QueryStage::releases, "Reading the release history", "storefronts"},
    StageWords{QueryStage::purchases, "Reading what the apps sell", "apps"},
    StageWords{QueryStage::storefronts, "Looking up the app", "storefronts"},
    StageWords{QueryStage::apps, "Looking up the apps", "apps"},
};

}  // namespace

std::string activityOf(const QueryProgress& reached) {
  const StageWords& words = kStages.at(indexOf(reached.stage));
  std::vector<std::string> counts;
  if (reached.pages > 0) {
    counts.push_back(fmt::format("{} page{}", reached.pages, reached.pages == 1 ? "" : "s"));
  }
  if (reached.total > 0) {
    counts.push_back(fmt::format("{} of {} {}", reached.done, reached.total, words.things));
  }
  return fmt::format("{}{}{}", words.activity, counts.empty() ? "" : ": ", join(counts, ", "));
}

}  // namespace quillet

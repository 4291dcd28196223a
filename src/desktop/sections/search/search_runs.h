// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <map>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "analysis/search_command_line.h"
#include "desktop/models/view_world.h"
#include "library/schema/saved_search.h"

namespace quillet {

class StoreFeed;

/// One time that a saved search was asked, and the apps that it left then or might have left.
struct SearchRun {
  Instant when{};
  std::set<std::int64_t> apps;

  friend bool operator==(const SearchRun&, const SearchRun&) = default;
};

/// Tells what is new in a saved search since it was asked the time before. The state file keeps
/// the last run of each.
class SearchRuns {
 public:
  explicit SearchRuns(const ViewWorld& world) : world_(world) {}

  /// All that there are.
  void setSaved(std::vector<SavedSearch> saved) { saved_ = std::move(saved); }
  /// The saved search that asks the same and filters alike; 0 for none.
  [[nodiscard]] RowId find(const SearchRequest& request) const;

  /// What the feed shows is such a run, as far as it is known now. An answer that is shown again is
  /// the same run.
  void note(RowId saved, const StoreFeed& feed);
  /// "3 new since 12 Nov"; empty where nothing is, or there was no run before.
  [[nodiscard]] QString news(RowId saved, const StoreFeed& feed) const;

 private:
  using RunKey = std::pair<RowId, Instant>;

  [[nodiscard]] std::optional<SearchRun> kept(RowId saved) const;

  ViewWorld world_;
  std::vector<SavedSearch> saved_;
  std::map<RunKey, std::optional<SearchRun>> before_;  ///< what was kept when each run began
};

}  // namespace quillet

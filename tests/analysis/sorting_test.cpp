// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/sorting.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

ITunesApp app(std::int64_t id, const char* name, double price, double stars, std::int64_t ratings,
              int updated, int released) {
  return {.trackId = id,
          .trackName = name,
          .price = price,
          .averageUserRating = stars,
          .userRatingCount = ratings,
          .releaseDate = Instant{std::chrono::days{released}},
          .currentVersionReleaseDate = Instant{std::chrono::days{updated}}};
}

/// In the store's order. 2 and 4 tie on every key, 3 has none but its name, and no two keys put
/// the others into the same order.
std::vector<ITunesApp> apps() {
  return {app(1, "delta", 3, 2, 900, 40, 20),
          app(2, "Bravo", 0, 4.5, 10, 31, 30),
          {.trackId = 3, .trackName = "alpha"},
          app(4, "Bravo", 0, 4.5, 10, 31, 30),
          app(5, "Charlie", 1, 5, 0, 90, 10)};
}

TEST(Sorting, tiesKeepTheirOrderAndAbsentKeysComeLast) {
  const std::pair<SortOrder, std::vector<std::int64_t>> rows[] = {
      {SortOrder::relevance, {1, 2, 3, 4, 5}},       {SortOrder::priceAscending, {2, 4, 5, 1, 3}},
      {SortOrder::priceDescending, {1, 5, 2, 4, 3}}, {SortOrder::rating, {5, 2, 4, 1, 3}},
      {SortOrder::popularity, {1, 2, 4, 5, 3}},      {SortOrder::recentlyUpdated, {5, 1, 2, 4, 3}},
      {SortOrder::newest, {2, 4, 1, 5, 3}},          {SortOrder::name, {2, 4, 5, 3, 1}},
  };
  for (const auto& [order, expected] : rows) {
    std::vector<ITunesApp> sorted = apps();
    sortApps(sorted, order, std::less{});
    std::vector<std::int64_t> ids;
    for (const ITunesApp& each : sorted) ids.push_back(each.trackId);
    EXPECT_EQ(ids, expected) << textOf(kSortOrderTexts, order);
  }
}

TEST(Sorting, manyTiesKeepTheirOrder) {
  std::vector<ITunesApp> sorted(100);
  for (std::size_t i = 0; i < sorted.size(); ++i) sorted[i].trackId = static_cast<std::int64_t>(i);
  sortApps(sorted, SortOrder::priceDescending, std::less{});
  EXPECT_TRUE(std::ranges::is_sorted(sorted, {}, &ITunesApp::trackId));
}

}  // namespace
}  // namespace quillet

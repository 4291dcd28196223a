// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/chart_movement.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(ChartMovement, ComparesAPlaceWithTheOneBefore) {
  const EarlierChart earlier({12, 9, 13, 12});
  struct Row {
    std::int64_t trackId;
    std::size_t rank;
    PlaceChange expected;
  };
  const Row rows[] = {
      {9, 1, {ChartMovement::up, 2, 1}},
      {12, 4, {ChartMovement::down, 1, -3}},  // the first of its two places counts
      {13, 3, {ChartMovement::same, 3, 0}},
      {14, 2, {ChartMovement::isNew, {}, {}}},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(earlier.changeOf(row.trackId, row.rank), row.expected) << row.trackId;
  }
}

}  // namespace
}  // namespace quillet

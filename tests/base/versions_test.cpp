// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/versions.h"

#include <gtest/gtest.h>

#include <string>

namespace quillet {
namespace {

TEST(Versions, CompareByTheirPieces) {
  const std::string huge(500, '9');
  struct Case {
    std::string left;
    std::string right;
    std::strong_ordering order;
  };
  constexpr auto less = std::strong_ordering::less;
  constexpr auto equal = std::strong_ordering::equal;
  const Case cases[] = {
      {"13.5", "13.10", less},
      {"1.0.0.1", "1.0.1", less},
      {"14", "14.0.0", equal},
      {"1.02", "1.2", equal},
      {"", "0.0", equal},
      {"1..2", "1.2", equal},
      {"...", "", equal},
      {"1.2b3", "1.2", equal},
      {"1.2b", "1.3a", less},
      {"beta", "0", equal},
      {"1.-5", "1.0", equal},
      {huge, "1" + std::string(500, '0'), less},
      {std::string(600, '0') + "1", "2", less},
      {"1." + huge, "1." + huge + ".0", equal},
  };
  for (const auto& row : cases) {
    EXPECT_TRUE(compareVersions(row.left, row.right) == row.order) << row.left << ' ' << row.right;
    EXPECT_TRUE(compareVersions(row.right, row.left) == (0 <=> row.order))
        << row.right << ' ' << row.left;
  }
}

}  // namespace
}  // namespace quillet

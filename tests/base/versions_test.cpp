// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/versions.h"

#include <gtest/gtest.h>

#include <string>

namespace quillet {
namespace {

TEST(Versions, CompareByTheirPieces) {
  constexpr auto less = std::strong_ordering::less;
  constexpr auto equal = std::strong_ordering::equal;
  const std::string huge(500, '9');
  const std::tuple<std::string, std::string, std::strong_ordering> cases[] = {
      {"13.5", "13.10", less},
      {"14", "14.0.0", equal},
      {"...", "", equal},
      {"1..2b3", "1.2", equal},
      {"1.2b", "1.3a", less},
      {"1.-5.beta", "1.0", equal},
      {huge, "1" + std::string(500, '0'), less},
      {std::string(600, '0') + "1." + huge, "1." + huge + ".0", equal},
  };
  for (const auto& [left, right, order] : cases) {
    EXPECT_TRUE(compareVersions(left, right) == order) << left << ' ' << right;
    EXPECT_TRUE(compareVersions(right, left) == (0 <=> order)) << right << ' ' << left;
  }
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/nearest_name.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(NearestName, IsWhatAMistypedOneMeans) {
  constexpr std::string_view kNames[] = {"Games", "Music", "News", "Productivity", "Travel"};
  const std::pair<std::string_view, std::optional<std::string_view>> cases[] = {
      {"Gamez", "Games"},
      {" producivity", "Productivity"},
      {"prod", "Productivity"},
      {"Muscic", "Music"},
      // Two letters of five are another word.
      {"Gears", {}},
      {"ne", {}},
      {"", {}},
      {"36", {}},
  };
  for (const auto& [text, name] : cases) EXPECT_EQ(nearestName(text, kNames), name) << text;
}

}  // namespace
}  // namespace quillet

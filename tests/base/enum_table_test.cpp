// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/enum_table.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

enum class Shade { light, dark, grey };

constexpr EnumTable<Shade, 3> kShades{
    {{Shade::light, "light"}, {Shade::dark, "dark"}, {Shade::grey, "grey"}}};
constexpr EnumTable<Shade, 2> kOneMissing{{{Shade::light, "light"}, {Shade::dark, "dark"}}};
constexpr EnumTable<Shade, 3> kSwapped{
    {{Shade::dark, "dark"}, {Shade::light, "light"}, {Shade::grey, "grey"}}};

TEST(EnumTable, TellsWhetherEveryCaseStandsInItsPlace) {
  EXPECT_TRUE(isComplete(kShades, Shade::grey));
  EXPECT_FALSE(isComplete(kOneMissing, Shade::grey));
  EXPECT_FALSE(isComplete(kSwapped, Shade::grey));
  EXPECT_FALSE(isComplete(kShades, Shade::dark));
}

TEST(EnumTable, ReadsBothWays) {
  EXPECT_EQ(textOf(kShades, Shade::grey), "grey");
  EXPECT_EQ(valueOf(kShades, "dark"), Shade::dark);
  for (const char* text : {"", "Dark", "dar", "darker"}) {
    EXPECT_EQ(valueOf(kShades, text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace quillet

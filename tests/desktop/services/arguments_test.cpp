// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/arguments.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace quillet {
namespace {

TEST(DesktopArguments, AreReadWhateverStandsBetweenThem) {
  const std::pair<std::vector<std::string>, DesktopArguments> rows[] = {
      {{}, {}},
      {{"-platform", "offscreen", "--section", "My Apps", "--background", "--open",
        "https://store.example/app/id7", "--new-search", "-1 to 5", "--check-prices", "--wat"},
       {true, true, "My Apps", "https://store.example/app/id7", "-1 to 5"}},
      {{"--open", "7", "--open", "8"}, {.opens = "8"}},
      {{"--new-search", "background"}, {.newSearch = "background"}},
      {{"--background", "--open", "quillet:section/deals"},
       {.isBackground = true, .section = "deals"}},
      {{"--open", "quillet:check-prices"}, {.opens = "quillet:check-prices"}},
      {{"--background", "--open"}, {.isBackground = true}},
      {{"--open", "", "--check-prices"}, {.checksPrices = true}},
      {{"--search-provider"}, {.answersSearches = true}},
      {{"--section", "--background"}, {.isBackground = true}},
      {{"open", "7", "-open", "7", "--OPEN", "7", "--open=7"}, {}},
  };
  for (const auto& [arguments, parsed] : rows) {
    EXPECT_EQ(parseDesktopArguments(arguments), parsed) << testing::PrintToString(arguments);
  }
}

}  // namespace
}  // namespace quillet

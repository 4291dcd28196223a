// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/arguments.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillet {
namespace {

TEST(DesktopArguments, AreReadWhateverStandsBetweenThem) {
  const struct {
    const char* situation;
    std::vector<std::string> arguments;
    DesktopArguments parsed;
  } rows[] = {
      {"none", {}, {}},
      {"all, among others' own",
       {"-platform", "offscreen", "--section", "My Apps", "--background", "--open",
        "https://store.example/app/id7", "--new-search", "-1 to 5", "--check-prices", "--wat"},
       {true, true, "My Apps", "https://store.example/app/id7", "-1 to 5"}},
      {"the last one counts", {"--open", "7", "--open", "8"}, {.opens = "8"}},
      {"a value is no option",
       {"--new-search", "background", "--section", "open"},
       {.section = "open", .newSearch = "background"}},
      {"no value at the end", {"--background", "--open"}, {.isBackground = true}},
      {"an empty value", {"--open", "", "--check-prices"}, {.checksPrices = true}},
      {"an option in place of a value", {"--section", "--background"}, {.isBackground = true}},
      {"words alone and other spellings",
       {"open", "7", "-open", "7", "--OPEN", "7", "--open=7"},
       {}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(parseDesktopArguments(row.arguments), row.parsed) << row.situation;
  }
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/store_links.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

struct LinkRow {
  const char* text;
  std::optional<std::string> trackId;
  std::optional<std::string> country;
};

TEST(StoreLinks, TellAppAndStorefront) {
  const LinkRow rows[] = {
      {"https://apps.apple.com/us/app/paperfold/id148?mt=12", "148", "us"},
      {" apps.apple.com/DE/app/id148#x ", "148", "de"},
      {"https://itunes.apple.com/app/id7", "7", {}},
      {"https://apps.apple.com/us/developer/id", {}, "us"},
      {"https://apps.apple.com/us/app/id12x", {}, "us"},
      {"https://apps.apple.com", {}, {}},
      {"https://apps.apple.com?/us/id5", {}, {}},
      {"https://apps.example/us/app/id148", {}, {}},
      {"", {}, {}},
  };
  for (const LinkRow& row : rows) {
    EXPECT_EQ(trackIdInLink(row.text), row.trackId) << row.text;
    EXPECT_EQ(storefrontInLink(row.text), row.country) << row.text;
  }
  EXPECT_EQ(appPageLink(148, "us"), "https://apps.apple.com/us/app/id148");
  EXPECT_EQ(appPageLink(148, "u/?"), "https://apps.apple.com/u%2F%3F/app/id148");
}

}  // namespace
}  // namespace quillet

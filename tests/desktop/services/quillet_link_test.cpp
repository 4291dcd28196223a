// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/quillet_link.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace quillet {
namespace {

TEST(QuilletLinks, LeadToAppsSectionsAndSearches) {
  const std::pair<std::string, DesktopArguments> rows[] = {
      {"quillet:app/148", {.opens = "148"}},
      {"quillet://app/148?country=DE&run=x", {.opens = "https://apps.apple.com/de/app/id148"}},
      {"quillet:section/my-apps", {.section = "my-apps"}},
      {"quillet:search?term=plain%20text%20%26%20more", {.newSearch = "plain text & more"}},
  };
  for (const auto& [link, asked] : rows) EXPECT_EQ(readQuilletLink(link), asked) << link;
}

TEST(QuilletLinks, LeadNowhereElse) {
  for (const std::string& link : std::vector<std::string>{
           "", "quillet:", "quillet:app/", "quillet:app/0", "quillet:app/-5", "quillet:app/148/x",
           "quillet:app/99999999999999999999", "quillet:app/148?country=../..",
           "quillet:section/../deals", "quillet:section/", "quillet:section/--background",
           "quillet:check-prices", "quillet:search", "quillet:search?term=%20",
           "quillet:search?term=a%1b%5bm", "quillet:search?term=" + std::string(2000, 'a'),
           "https://apps.apple.com/app/id148", "QUILLETS:app/148", "file:///app/148"})
    EXPECT_EQ(readQuilletLink(link), std::nullopt) << link;
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/storefronts.h"

#include <gtest/gtest.h>

#include "system/country_codes.h"

namespace quillet {
namespace {

std::string codesOf(const std::vector<Storefront>& storefronts, std::size_t most) {
  std::string codes;
  for (std::size_t i = 0; i < std::min(most, storefronts.size()); ++i)
    codes += (i == 0 ? "" : " ") + storefronts[i].code;
  return codes;
}

TEST(Storefronts, AllHaveNamesAndThoseWithPricesComeFirst) {
  const std::vector<Storefront>& all = allStorefronts();
  EXPECT_EQ(all.size(), countryCodes().size());
  EXPECT_EQ(codesOf(all, 13), "us gb de fr ca au jp it es nl af ax al");
  for (const Storefront& each : all)
    EXPECT_GT(each.name.size(), 3) << each.code << " has no name but its code";
  EXPECT_EQ(all.front().currency, QStringLiteral("US Dollar"));
  EXPECT_EQ(all.back().currency, QString());
}

TEST(Storefronts, AreFoundByNamesAsTheyAreTyped) {
  const std::pair<const char*, const char*> rows[] = {
      {"germ", "de"},       {"DE", "de dk"}, {"kingdom", "gb"}, {"cote d'iv", "ci"},
      {"  south  k", "kr"}, {"xk", "xk"},    {"states", "us"},  {"atlantis", ""},
  };
  for (const auto& [text, codes] : rows)
    EXPECT_EQ(codesOf(storefrontsLike(QString::fromUtf8(text)), 9), codes) << text;
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/storefronts.h"

#include <gtest/gtest.h>

namespace quillet::sandbox {
namespace {

TEST(Storefronts, writePricesTheirWay) {
  struct Case {
    const char* country;
    int usCents;
    const char* currency;
    const char* text;
  };
  const Case cases[] = {
      {"us", 499, "USD", "$4.99"},
      {"US", 0, "USD", "Free"},
      {"gb", 499, "GBP", "£4.49"},
      {"de", 299, "EUR", "2,99\u00a0€"},
      {"de", 99999, "EUR", "1.099,99\u00a0€"},
      {"fr", 99999, "EUR", "1 099,99\u00a0€"},
      {"fr", 0, "EUR", "Gratuit"},
      {"ca", 99, "CAD", "$1.29"},
      {"au", 99, "AUD", "$1.49"},
      {"jp", 299, "JPY", "¥500"},
      {"jp", 999, "JPY", "¥1,500"},
      {"jp", 0, "JPY", "無料"},
      {"it", 199, "EUR", "1,99\u00a0€"},
      {"es", 0, "EUR", "Gratis"},
      {"nl", 499, "EUR", "€\u00a04,99"},
  };
  for (const Case& c : cases) {
    const auto storefront = storefrontOf(std::string_view(c.country));
    ASSERT_TRUE(storefront) << c.country;
    EXPECT_EQ(currencyOf(*storefront), c.currency);
    EXPECT_EQ(formatPrice(*storefront, priceIn(*storefront, c.usCents)), c.text);
  }
  EXPECT_EQ(storefrontOf(std::string_view("PL")), Storefront::us);
  EXPECT_FALSE(storefrontOf(std::string_view("xx")));
  EXPECT_FALSE(storefrontOf(std::string_view("")));
}

}  // namespace
}  // namespace quillet::sandbox

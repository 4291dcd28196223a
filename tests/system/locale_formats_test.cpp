// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/locale_formats.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillet {
namespace {

LocaleFormats formatsOf(const std::string& locale) {
  return LocaleFormats({.monetary = locale, .numeric = locale, .collation = locale});
}

TEST(LocaleFormats, AmountsOfMoney) {
  const std::tuple<const char*, double, const char*, const char*> cases[] = {
      {"en_US", 2.99, "EUR", "€2.99"},
      {"en_US", 5, "CAD", "CA$5.00"},
      {"en_US", 500, "JPY", "¥500"},
      {"en_US", -4.5, "USD", "-$4.50"},
      {"en_US", 5, "U$D", "5.00 U$D"},
      {"en_US", -0.0, "USD", "$0.00"},
      {"en_US", 2.99, "eur", "€2.99"},
      {"de_DE", 1234.5, "USD", "1.234,50\u00A0$"},
      {"fr_FR", 1234.5, "EUR", "1\u202F234,50\u00A0€"},
      {"en_US", 1234.5, "", "1,234.50"},
      {"en_US", 5, "ZZZ", "5.00 ZZZ"},
      {"en_US", 5, "USDX", "5.00 USDX"},
  };
  for (const auto& [locale, amount, code, expected] : cases) {
    EXPECT_EQ(formatsOf(locale).currency(amount, code), expected) << locale << ' ' << code;
  }
}

TEST(LocaleFormats, EachPurposeFollowsItsOwnLocale) {
  const LocaleFormats formats({.monetary = "de_DE", .numeric = "en_US"});
  EXPECT_EQ(formats.currency(1.5, "EUR"), "1,50\u00A0€");
  EXPECT_EQ(formats.currency(2.5, "EUR"), "2,50\u00A0€") << "kept formatter";
  EXPECT_EQ(formats.currency(2.5, "USD"), "2,50\u00A0$") << "kept formatter of another currency";
  EXPECT_EQ(formats.twoDecimals(1.5), "1.50");
}

TEST(LocaleFormats, PlainNumbers) {
  const LocaleFormats english = formatsOf("en_US");
  EXPECT_EQ(english.twoDecimals(1234567.891), "1,234,567.89");
  EXPECT_EQ(english.twoDecimals(-0.001), "0.00");
  EXPECT_EQ(english.integer(1234567), "1,234,567");
  EXPECT_EQ(english.integer(std::numeric_limits<std::int64_t>::min()),
            "-9,223,372,036,854,775,808");
}

TEST(LocaleFormats, OneDecimalAndWholeAmounts) {
  // Just above 4.65, and just below 4.45.
  EXPECT_EQ(formatsOf("en_US").oneDecimal(4.65), "4.7");
  EXPECT_EQ(formatsOf("de_DE").oneDecimal(4.45), "4,5");
  EXPECT_EQ(formatsOf("en_US").oneDecimal(100), "100.0");
  EXPECT_EQ(formatsOf("de_DE").wholeCurrency(39.99, "EUR"), "40\u00A0€");
  EXPECT_EQ(formatsOf("en_US").wholeCurrency(9.99, "ZZZ"), "10 ZZZ");
}

TEST(LocaleFormats, ByteCounts) {
  const std::pair<std::int64_t, const char*> cases[] = {
      {0, "0 bytes"},
      {1, "1 byte"},
      {1000, "1 KB"},
      {999'499, "999 KB"},
      {999'500, "1 MB"},
      {999'949'999, "999.9 MB"},
      {999'950'000, "1 GB"},
      {1'234'567'890, "1.23 GB"},
      {999'995'000'000, "1 TB"},
      {std::numeric_limits<std::int64_t>::max(), "9.22 EB"},
      {std::numeric_limits<std::int64_t>::min(), "-9.22 EB"},
  };
  const LocaleFormats english = formatsOf("en_US");
  for (const auto& [bytes, expected] : cases) {
    EXPECT_EQ(english.byteCount(bytes), expected) << bytes;
  }
  EXPECT_EQ(formatsOf("de_DE").byteCount(1'230'000'000), "1,23 GB");
}

TEST(LocaleFormats, NamesStandInTheOrderOfAFileBrowser) {
  const LocaleFormats english = formatsOf("en_US");
  const char* const ordered[] = {
      "",       "2 Lamps", "10 Lamps", "App",       "app",   "App 2", "app 2b",
      "App 10", "Eclair",  "Éclair",   "Eclairage", "zebra", "東京",
  };
  for (std::size_t i = 0; i < std::size(ordered); ++i) {
    for (std::size_t k = 0; k < std::size(ordered); ++k) {
      EXPECT_EQ(english.nameLess(ordered[i], ordered[k]), i < k)
          << ordered[i] << " | " << ordered[k];
    }
  }
  // One letter in two spellings, and bytes that are no text at all, still have an order.
  EXPECT_NE(english.nameLess("\u00E9", "e\u0301"), english.nameLess("e\u0301", "\u00E9"));
  EXPECT_TRUE(english.nameLess("e\u0301a", "\u00E9b"));
  EXPECT_NE(english.nameLess("\xFF", "\xFE"), english.nameLess("\xFE", "\xFF"));
  EXPECT_TRUE(formatsOf("sv_SE").nameLess("z", "ä"));
  EXPECT_FALSE(formatsOf("de_DE").nameLess("z", "ä"));
}

}  // namespace
}  // namespace quillet

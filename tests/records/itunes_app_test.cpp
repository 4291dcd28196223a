// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/itunes_app.h"

#include <gtest/gtest.h>

#include "store/records/display_price.h"

namespace quillet {
namespace {

using Texts = std::vector<std::string>;

TEST(ITunesApp, ScreenshotsFallBackBetweenIOSDevicesButNeverToTheMac) {
  const Texts phone{"https://a.example/phone.jpg"};
  const Texts pad{"https://a.example/pad.jpg"};
  const Texts mixed{"", "1.jpg", "javascript:x", "https://", "https://a.example/a b", phone[0]};
  using Listed = std::optional<Texts>;
  // The kind, its pictures and those for the iPad; the platform asked for, and what is shown.
  const std::tuple<const char*, Listed, Listed, Platform, Texts> rows[] = {
      {"mac-software", phone, {}, Platform::mac, phone},
      {"software", phone, pad, Platform::mac, {}},
      {"software", phone, pad, Platform::ipad, pad},
      {"software", Texts{}, pad, Platform::iphone, pad},
      {"software", phone, {}, Platform::ipad, phone},
      {"software", mixed, pad, Platform::iphone, phone},
  };
  for (const auto& [kind, pictures, forPad, platform, shown] : rows) {
    const ITunesApp app{.kind = kind, .screenshotUrls = pictures, .ipadScreenshotUrls = forPad};
    EXPECT_EQ(screenshotAddresses(app, platform), shown);
  }
}

TEST(DisplayPrice, PrefersApplesTextThenFreeThenTheLocale) {
  const std::pair<ITunesApp, const char*> rows[] = {
      {{.price = 2.99, .formattedPrice = "$2.99", .currency = "USD"}, "$2.99"},
      {{.price = 2.99, .formattedPrice = "", .currency = "EUR"}, "€2.99"},
      {{.price = 0, .formattedPrice = "Gratis", .currency = "EUR"}, "Gratis"},
      {{.currency = "EUR"}, "Free"},
  };
  const LocaleFormats formats(UserLocale{"en_US", "en_US", "en_US", "en_US"});
  for (const auto& [app, shown] : rows) EXPECT_EQ(displayPrice(app, formats), shown);
}

}  // namespace
}  // namespace quillet

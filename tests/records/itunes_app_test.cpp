// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/itunes_app.h"

#include <gtest/gtest.h>

#include "store/records/display_price.h"

namespace quillet {
namespace {

using Texts = std::vector<std::string>;

TEST(ITunesApp, SizeIsTheWholeNumberInItsText) {
  struct Row {
    std::optional<std::string> text;
    std::optional<std::int64_t> size;
  };
  const Row rows[] = {
      {"12345678", 12345678}, {"-5", -5}, {"12 MB", {}},
      {std::nullopt, {}},     {" 5", {}}, {"99999999999999999999", {}},
  };
  for (const Row& row : rows) {
    ITunesApp app;
    app.fileSizeBytes = row.text;
    EXPECT_EQ(sizeInBytes(app), row.size) << row.text.value_or("absent");
  }
}

TEST(ITunesApp, ScreenshotsFallBackBetweenIOSDevicesButNeverToTheMac) {
  const Texts phone{"https://a.example/phone.jpg"};
  const Texts pad{"https://a.example/pad.jpg"};
  struct Row {
    std::string_view what;
    std::string kind;
    std::optional<Texts> main;
    std::optional<Texts> ipad;
    Platform platform;
    Texts shown;
  };
  const Row rows[] = {
      {"Mac app on the Mac", "mac-software", phone, {}, Platform::mac, phone},
      {"iOS app on the Mac", "software", phone, pad, Platform::mac, {}},
      {"iPhone has its own", "software", phone, pad, Platform::iphone, phone},
      {"iPad has its own", "software", phone, pad, Platform::ipad, pad},
      {"iPhone has none", "software", Texts{}, pad, Platform::iphone, pad},
      {"iPad has none", "software", phone, {}, Platform::ipad, phone},
      {"texts that are no addresses",
       "software",
       Texts{"", "pictures/1.jpg", "javascript:x", "https://", "https://a.example/a b", phone[0]},
       {},
       Platform::iphone,
       phone},
  };
  for (const Row& row : rows) {
    ITunesApp app;
    app.kind = row.kind;
    app.screenshotUrls = row.main;
    app.ipadScreenshotUrls = row.ipad;
    EXPECT_EQ(screenshotAddresses(app, row.platform), row.shown) << row.what;
  }
}

TEST(DisplayPrice, PrefersApplesTextThenFreeThenTheLocale) {
  struct Row {
    std::optional<std::string> formatted;
    std::optional<double> price;
    std::optional<std::string> currency;
    std::string shown;
  };
  const Row rows[] = {
      {"$2.99", 2.99, "USD", "$2.99"},
      {"", 2.99, "EUR", "€2.99"},
      {std::nullopt, 2.99, std::nullopt, "2.99"},
      {std::nullopt, 0.0, "EUR", "Free"},
      {std::nullopt, std::nullopt, "EUR", "Free"},
      {"Gratis", 0.0, "EUR", "Gratis"},
  };
  const LocaleFormats formats(UserLocale{"en_US", "en_US", "en_US", "en_US"});
  for (const Row& row : rows) {
    ITunesApp app;
    app.formattedPrice = row.formatted;
    app.price = row.price;
    app.currency = row.currency;
    EXPECT_EQ(displayPrice(app, formats), row.shown);
  }
}

}  // namespace
}  // namespace quillet

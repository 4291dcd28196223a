// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/published_prices_test.h"

namespace quillet {
namespace {

constexpr std::string_view kOther =
    R"({"a":"10","n":"Birch","c":"USD","p":[{"d":"2026-11-01","v":1}]})";
constexpr std::string_view kApp =
    R"({"a":"11","n":"Amber Notes","s":"Noor Amberfield","c":"USD","k":"mac-software","p":[
      {"d":"2026-10-01","v":4.99},{"d":"2026-10-11","v":4.99},{"d":"2026-10-21","v":0},
      {"d":"2026-10-31","v":2.99},{"d":"2026-11-10","v":1.99}]})";

using PriceHistoryCommandTest = PublishedPricesTest;

TEST_F(PriceHistoryCommandTest, DrawsAHistoryForAPerson) {
  publish({kOther, kApp});
  io.style.width = 48;
  EXPECT_EQ(printed("price-history 11"), R"(Amber Notes  Noor Amberfield

Track ID      11
Storefront    us
Now           $1.99
Last change   2026-11-10, down 33.4% from $2.99
Recorded      Free to $4.99, since 2026-10-01
Published     2026-11-20

$4.99 ────────────────┐
                      │
                      │       ┌───────┐
$1.99                 │       │       └─────────
                      │       │
 Free                 └───────┘
      2026-10-01                      2026-11-20

Changes (3)
Date        Price  Change
2026-11-10  $1.99  down 33.4% from $2.99
2026-10-31  $2.99  up from Free
2026-10-21   Free  down 100.0% from $4.99
)");
}

TEST_F(PriceHistoryCommandTest, TellsOfACollectorThatDied) {
  clock.setNow(parseInternetDate("2026-11-23T03:00:01Z").value());
  publish({kApp});
  EXPECT_NE(printed("price-history 11")
                .find("Published     2026-11-20\nPrices were last looked at on 2026-11-20.\n\n"),
            std::string::npos)
      << io.out.content;
}

TEST_F(PriceHistoryCommandTest, DrawsEvenWhatHasOnePointOrHostileTexts) {
  publish({R"({"a":"12","n":"x\u001b[31m\u009by\ny","s":"Noor\u0007 Amberfield","c":"\u001bUS",
            "g":"2026-11-21","p":[{"d":"2026-11-20","v":3}]})"});
  io.style = {.colour = false, .utf8 = false, .width = 32};
  const std::string text = printed("price-history 12");
  EXPECT_TRUE(text.starts_with("x[31my y  Noor Amberfield\n")) << text;
  EXPECT_TRUE(text.ends_with(R"(
Not sold      since 2026-11-21
Last price    3.00 US
Last change   none recorded
Recorded      since 2026-11-20
Published     2026-11-20

3.00 US ------------------------
        2026-11-20    2026-11-20
)")) << text;
}

TEST_F(PriceHistoryCommandTest, SaysWhyThereIsNoHistory) {
  publishFile({kOther});
  EXPECT_EQ(said("price-history 11", 1),
            "quillet: No recorded price changes for 11 in the us storefront.\n"
            "  try: The feed only carries apps whose price moved, not every app.\n"
            "  try: Tracked storefronts: us, gb, de, fr, ca, au, jp, it, es, nl\n");
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/price_sentence.h"

#include <gtest/gtest.h>

#include "page_moments.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

const Instant kNow = moment(2026, 11, 22);

using Days = std::vector<std::pair<int, double>>;

/// Prices that many days ago.
std::vector<RecordedPrice> pricesOf(const Days& days, const std::string& currency = "USD") {
  std::vector<RecordedPrice> prices;
  for (const auto& [ago, price] : days)
    prices.push_back({kNow - std::chrono::days(ago), price, currency});
  return prices;
}

struct SentenceCase {
  std::string name;
  std::vector<RecordedPrice> prices;
  std::string sentence;
  bool isSold = true;
};

class PriceSentenceTest : public testing::TestWithParam<SentenceCase> {};

TEST_P(PriceSentenceTest, Says) {
  const LocaleFormats formats{UserLocale{}};
  const SentenceTerms terms{formats, [](Instant) { return 0s; }, kNow, GetParam().isSold};
  EXPECT_EQ(priceSentence(GetParam().prices, terms).toStdString(), GetParam().sentence);
}

INSTANTIATE_TEST_SUITE_P(
    All, PriceSentenceTest,
    testing::Values(
        SentenceCase{"Nothing", {}, ""},
        SentenceCase{"FirstSeenToday", pricesOf({{0, 4.99}}), "Now $4.99. Recorded since today."},
        SentenceCase{"Unchanged", pricesOf({{335, 4.99}, {20, 4.99}}),
                     "Now $4.99. Unchanged for 11 months."},
        SentenceCase{"UnchangedADay", pricesOf({{1, 0}}), "Now free. Unchanged for 1 day."},
        SentenceCase{"FellAndStayed", pricesOf({{60, 9.99}, {50, 4.99}}),
                     "Now $4.99. One change in 9 weeks; at its lowest since 3 Oct."},
        SentenceCase{"RoseAndStayed", pricesOf({{13, 4.99}, {4, 9.99}}),
                     "Now $9.99. One change in 13 days; at its lowest once, for 9 days."},
        SentenceCase{"TwiceAndNow", pricesOf({{365, 9.99}, {300, 4.99}, {258, 9.99}, {1, 4.99}}),
                     "Now $4.99. Three changes in 12 months; at its lowest twice, the first time "
                     "for 6 weeks."},
        SentenceCase{"TwiceAndOver",
                     pricesOf({{800, 9}, {300, 4}, {295, 9}, {100, 4}, {92, 9}}, "EUR"),
                     "Now €9.00. Four changes in 2 years; at its lowest twice, the longer time "
                     "for 8 days."},
        SentenceCase{
            "ThriceUsually",
            pricesOf({{335, 9}, {300, 4}, {295, 9}, {200, 4}, {190, 9}, {100, 4}, {97, 9}}),
            "Now $9.00. Six changes in 11 months; at its lowest 3 times, usually for 5 "
            "days."},
        SentenceCase{"LowSeenAgainIsOneTime", pricesOf({{40, 9}, {30, 4}, {28, 4.0005}, {20, 9}}),
                     "Now $9.00. Two changes in 6 weeks; at its lowest once, for 10 days."},
        SentenceCase{"OnceFree", pricesOf({{40, 9}, {30, 0}, {28, 9}}),
                     "Now $9.00. Two changes in 6 weeks; free once, for 2 days."},
        SentenceCase{"MoreThanTwelve",
                     pricesOf({{28, 1},
                               {26, 2},
                               {24, 3},
                               {22, 4},
                               {20, 5},
                               {18, 6},
                               {16, 7},
                               {14, 8},
                               {12, 9},
                               {10, 8},
                               {8, 7},
                               {6, 6},
                               {4, 5},
                               {2, 4}}),
                     "Now $4.00. 13 changes in 4 weeks; at its lowest once, for 2 days."},
        SentenceCase{"NoLongerSold", pricesOf({{40, 9}, {30, 4}}),
                     "Last it was $4.00. One change in 6 weeks; at its lowest since 23 Oct.",
                     false}),
    [](const auto& each) { return each.param.name; });

struct LowCase {
  std::string name;
  Days days;
  std::string text;
  bool isSold = true;
};

class LowTextTest : public testing::TestWithParam<LowCase> {};

TEST_P(LowTextTest, Says) {
  const LocaleFormats formats{UserLocale{}};
  const SentenceTerms terms{formats, [](Instant) { return 0s; }, kNow, GetParam().isSold};
  EXPECT_EQ(lowText(pricesOf(GetParam().days), terms).toStdString(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    All, LowTextTest,
    testing::Values(
        LowCase{
            "Past", {{400, 19.99}, {349, 9.99}, {300, 19.99}}, "Lowest $9.99, last on 8 Dec 2025"},
        LowCase{"Now",
                {{60, 9.99}, {50, 4.99}, {45, 9.99}, {25, 4.99}, {2, 4.99}},
                "Lowest $4.99, from 28 Oct to today"},
        LowCase{"SinceToday", {{60, 9.99}, {0, 4.99}}, "Lowest $4.99, reached today"},
        LowCase{"Free", {{60, 9.99}, {50, 0}}, "Free, from 3 Oct to today"},
        LowCase{"RisenForGood",
                {{400, 4.99}, {349, 2.99}, {300, 4.99}, {200, 9.99}, {100, 6.99}, {90, 9.99}},
                "Lowest $2.99, last on 8 Dec 2025; since the last rise $6.99, 14 Aug"},
        LowCase{"NoLongerSold", {{60, 9.99}, {50, 4.99}}, "Lowest $4.99, last on 3 Oct", false}),
    [](const auto& each) { return each.param.name; });

TEST(PricesSinceTest, BeginWithThePriceThatHeldThen) {
  const auto all = pricesOf({{100, 1}, {60, 2}, {20, 3}});
  const auto days = [](int ago) { return kNow - std::chrono::days(ago); };
  auto undated = all;
  undated.insert(undated.begin() + 1, {{}, 9, "USD"});
  EXPECT_EQ(pricesSince(undated, days(200)), all);
  EXPECT_EQ(pricesSince(all, days(60)), pricesOf({{60, 2}, {20, 3}}));
  EXPECT_EQ(pricesSince(all, days(30)), pricesOf({{30, 2}, {20, 3}}));
  EXPECT_EQ(pricesSince(all, days(10)), pricesOf({{10, 3}}));
}

}  // namespace
}  // namespace quillet

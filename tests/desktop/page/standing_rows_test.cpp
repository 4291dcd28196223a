// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// What is said of an app's ranks, and of its prices in other storefronts.

#include <gtest/gtest.h>

#include "desktop/page/price_drawing.h"
#include "desktop/page/rank_rows.h"
#include "desktop/page/storefront_rows.h"
#include "page_moments.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

const Instant kNow = moment(2026, 11, 22);
const RankTerms kTerms{[](Instant) { return 0s; }, kNow};

using Ranks = std::vector<std::optional<std::int64_t>>;

/// Of days in a row, the last one so many days ago.
RankedChart ranked(const Ranks& ranks, int ago = 0,
                   RankedChart::Source source = RankedChart::Source::recorded) {
  RankedChart chart{QStringLiteral("Top Free, Mac"), source, {}};
  int day = ago + static_cast<int>(ranks.size()) - 1;
  for (const auto& rank : ranks)
    chart.days.push_back({moment(2026, 11, 22, 0) - std::chrono::days(day--), rank});
  return chart;
}

TEST(RankRows, SayWhereTheAppStands) {
  const auto visits = RankedChart::Source::visits;
  const std::pair<RankedChart, const char*> rows[] = {
      {ranked({4, 2, 1, 1}), "Now #1, its best, since yesterday; placed on 4 of 4 recorded days."},
      {ranked({2, 4, {}, 2}, 1),
       "Now #2, its best, reached twice; placed on 3 of 4 recorded days."},
      {ranked({1, 2, 1, 2, 1}),
       "Now #1, its best, reached 3 times; placed on 5 of 5 recorded days."},
      {ranked({3, 9, 5}), "Now #5, its best #3 on 20 Nov; placed on 3 of 3 recorded days."},
      {ranked({3, 9, {}}),
       "Not placed today; last #9 yesterday, its best #3 on 20 Nov; placed on 2 of 3 recorded "
       "days."},
      {ranked({7}), "Now #7, its best, since today; placed on 1 of 1 recorded day."},
      {ranked({3, 9}, 10),
       "#9 when last seen, on 12 Nov, its best #3 on 11 Nov; placed on 2 of 2 recorded days."},
      {ranked({30}, 0, visits), "#30 when last seen, today, its best, since today; seen once."},
  };
  for (const auto& [chart, sentence] : rows)
    EXPECT_EQ(rankSentence(chart, kTerms).toStdString(), sentence);
}

TEST(RankRows, ListEachChartWithItsMovement) {
  const std::vector<ChartRanks> recorded{
      {"topFree", "mac", 2, 1, 1, ranked({4, 1}).days},
      {"topPaid", "iphone", 2, 3, 3, ranked({{}, 3}, 1).days},
      {"topPaid", "ipad", 1, 3, 3, ranked({3, {}}).days},
      {"newest", "watch", 1, 3, 3, ranked({3, 3}).days},
  };
  const auto seen = [](const char* genre, std::int64_t position, int day,
                       const char* chart = "Top Paid Apps") {
    return RankPoint{0,
                     7,
                     "us",
                     chart,
                     std::string(genre),
                     position,
                     moment(2026, 11, static_cast<unsigned>(day))};
  };
  const auto charts = rankedCharts(
      recorded,
      {seen("Utilities", 30, 3), seen("News", 2, 4, "top-free"), seen("Utilities", 35, 17)});
  std::string spoken;
  for (const FigureRow& row : standingRows(charts, kTerms))
    spoken += row.spoken.toStdString() + '\n';
  EXPECT_EQ(spoken,
            "Top Free, Mac, #1, up 3, seen today\n"
            "Top Paid, iPhone, #3, new, seen yesterday\n"
            "Top Paid, iPad, not placed, seen today\n"
            "newest, watch, #3, as before, seen today\n"
            "Top Paid Apps, Utilities, #35, down 5, seen 17 Nov\n"
            "Top Free, News, #2, seen 4 Nov\n");
}

TEST(StorefrontRows, CompareWithinACurrencyAlone) {
  const auto sold = [](const char* country, double price, const char* text, const char* currency) {
    return ComparedStorefront{country, true, price, text, currency};
  };
  const auto recorded = [](const char* country, double low, const char* currency) {
    return AppPriceSeries{
        {7, country}, {{moment(2026, 3, 1), 9.99, currency}, {moment(2026, 10, 5), low, currency}}};
  };
  const LocaleFormats formats{UserLocale{}};
  const auto rows = storefrontRows(
      {sold("us", 4.99, "$4.99", "USD"),
       sold("gb", 4.99, "£4.99", "GBP"),
       sold("de", 5.99, "5,99 €", "EUR"),
       {"fr"},
       sold("ca", 3, "CA$3.00", "CAD"),
       sold("it", 4.99, "4,99 €", "EUR"),
       sold("es", 4.99, "4,99 €", "EUR"),
       {"jp"},
       {"au", true},
       {"mx", true, 3.0},
       {"br", true, {}, "R$ ?", "EUR"}},
      {recorded("us", 4.99, "USD"), recorded("gb", 3.99, "GBP"), recorded("de", 4.99, "EUR"),
       recorded("it", 4.99, "EUR"), recorded("es", 4.99, "EUR"), recorded("ca", 2, "USD")},
      {formats, kTerms.zone, kNow});
  std::string spoken;
  for (const FigureRow& row : rows) spoken += row.spoken.toStdString() + '\n';
  EXPECT_EQ(spoken,
            "us, US Dollar, $4.99, at its lowest\n"
            "gb, British Pound, £4.99, +25\u00a0%, lowest £3.99, last on 5 Oct\n"
            "br, Euro, R$ ?\n"
            "it, es, Euro, 4,99 €, at its lowest, the cheapest in this currency\n"
            "de, Euro, 5,99 €, +20\u00a0%, lowest €4.99, last on 5 Oct\n"
            "ca, Canadian Dollar, CA$3.00\n"
            "au, Free\n"
            "mx, 3.00\n"
            "fr, jp, not sold\n");
}

TEST(PriceDrawing, LeadsOverNoOtherCurrency) {
  const auto formats = std::make_shared<const LocaleFormats>(UserLocale{});
  const SentenceTerms terms{*formats, kTerms.zone, kNow};
  const PriceRecord record{
      {{moment(2026, 3, 1), 9.99, "EUR", true}, {moment(2026, 8, 1), 4.99, "EUR"}},
      {{"BGN", moment(2026, 1, 1), moment(2026, 3, 1)},
       {"USD", moment(2026, 5, 1), moment(2026, 8, 1)}},
      true};
  EXPECT_EQ(beginOf(record), moment(2026, 1, 1));
  const PriceHistory drawn = priceDrawing(record, beginOf(record), terms, formats);
  ASSERT_EQ(drawn.steps.size(), 2U);
  EXPECT_EQ(drawn.steps[0].until, moment(2026, 5, 1));
  EXPECT_EQ(drawn.steps[0].origin.toStdString(), "published price data");
  EXPECT_EQ(drawn.steps[1].until, std::nullopt);
  EXPECT_EQ(drawn.steps[1].origin.toStdString(), "seen by Quillet");
  ASSERT_EQ(drawn.undrawn.size(), 2U);
  EXPECT_EQ(drawn.undrawn[0].text.toStdString(), "In BGN, 1 Jan to 1 Mar");
  EXPECT_EQ(currencySentence(record, terms).toStdString(),
            "From 1 Jan to 1 Mar its price was in BGN, which is not compared. "
            "From 1 May to 1 Aug its price was in USD, which is not compared.");
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "queries/storefront_prices.h"

#include "base/errors.h"
#include "query_test.h"
#include "store/records/itunes_error.h"
#include "store/records/storefronts.h"

namespace quillet {
namespace {

class StorefrontPricesTest : public QueryTest {};

TEST_F(StorefrontPricesTest, TellsEachStorefrontAsItAnswersAndKeepsTheirOrder) {
  for (const std::string_view country : kTrackedStorefronts) {
    const std::string app = fmt::format(R"({{"trackId":11,"trackName":"Amber {}"}})", country);
    http.answer(lookup("11", country), 200,
                country == "gb" ? answer({}) : answer({std::string_view(app)}));
  }
  const auto prices = runVirtual(clock, readStorefrontPrices(11, services(), call()));
  ASSERT_EQ(prices.size(), kTrackedStorefronts.size());
  EXPECT_EQ(prices[1].app, std::nullopt);
  EXPECT_EQ(prices[9].country, "nl");
  EXPECT_EQ(prices[9].app.value().trackName, "Amber nl");
  EXPECT_EQ(progress.front(), "0/10");
  EXPECT_EQ(progress.back(), "10/10");
}

TEST_F(StorefrontPricesTest, AsksAgainOnlyThoseThatDidNotAnswer) {
  for (const std::string_view country : kTrackedStorefronts)
    http.answer(lookup("11", country), country == "gb" ? 403 : 200,
                country == "gb" ? "" : answer({}));
  const StorefrontAnswers answered = noStorefrontAnswers();
  EXPECT_THROW(runVirtual(clock, readStorefrontPrices(11, services(), call(), answered)),
               ITunesError);
  progress.clear();
  http.answer(lookup("11", "gb"), 200, answer({R"({"trackId":11,"trackName":"Amber"})"}));
  const auto prices = runVirtual(clock, readStorefrontPrices(11, services(), call(), answered));
  ASSERT_EQ(prices.size(), kTrackedStorefronts.size());
  EXPECT_EQ(prices[1].app.value().trackName, "Amber");
  EXPECT_EQ(progress, (std::vector<std::string>{"9/10", "10/10"}));
}

TEST_F(StorefrontPricesTest, EndsWhereItIsStopped) {
  stop.requestStop();
  EXPECT_THROW(runVirtual(clock, readStorefrontPrices(11, services(), call())), NetworkError);
}

}  // namespace
}  // namespace quillet

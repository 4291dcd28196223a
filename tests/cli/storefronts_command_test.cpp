// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/storefronts_command.h"

#include "store/records/storefronts.h"
#include "support/command_line_test.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

class StorefrontsCommandTest : public CommandLineTest {
 protected:
  void answerAll() {
    for (const std::string_view country : kTrackedStorefronts) {
      const std::string app = fmt::format(
          R"({{"trackId":11,"trackName":"Amber {}","price":{},"formattedPrice":"{}","currency":"{}"}})",
          country, country == "jp" ? 500 : 4.99, country == "jp" ? "¥500" : "4.99",
          country == "jp" ? "JPY" : "EUR");
      http.answer(lookup("11", country), 200, country == "us" ? answer({}) : answer({app}));
    }
  }
};

TEST_F(StorefrontsCommandTest, AsksEachOnceAndKeepsTheirOrder) {
  answerAll();
  io.style.width = 44;
  EXPECT_EQ(printed({"storefronts", "11"}), R"(Amber…, sold in 9 of 10 tracked storefronts.

Storefront  Price          Currency
us          not sold here
gb          4.99           EUR
de          4.99           EUR
fr          4.99           EUR
ca          4.99           EUR
au          4.99           EUR
jp          ¥500           JPY
it          4.99           EUR
es          4.99           EUR
nl          4.99           EUR
)");
  EXPECT_EQ(http.requests().size(), 10U);
  EXPECT_TRUE(clock.waits().empty());
}

TEST_F(StorefrontsCommandTest, ShowsPricesAsJson) {
  answerAll();
  const std::string text = json({"storefronts", "11", "-c", "br"});
  EXPECT_TRUE(text.starts_with(flattened(R"({"name": "Amber gb","storefronts": [
      {"available": false,"country": "us"},
      {"available": true,"country": "gb","currency": "EUR","formattedPrice": "4.99",
        "price": 4.99},)")))
      << text;
  EXPECT_TRUE(text.ends_with(R"(],"trackId": 11})"));
}

TEST_F(StorefrontsCommandTest, FailsWhereNoStorefrontHasItOrOneLimitsTheRate) {
  for (const std::string_view country : kTrackedStorefronts) {
    http.answer(lookup("11", country), 200, answer({}));
    http.answer(lookup("11", country), country == "de" ? 429 : 200, answer({}));
  }
  EXPECT_EQ(said({"storefronts", "11"}, 1),
            "quillet: No app with track ID 11 in any tracked storefront.\n");
  printed({"storefronts", "11", "--no-retry"}, 4);
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/storefronts.h"
#include "support/command_line_test.h"

namespace quillet {
namespace {

class StorefrontsCommandTest : public CommandLineTest {
 protected:
  void answerAll() {
    for (const std::string_view country : kTrackedStorefronts) {
      const bool isJapan = country == "jp";
      const std::string app = fmt::format(
          R"({{"trackId":11,"trackName":"Amber {}","price":4.99,"formattedPrice":"{}","currency":"{}"}})",
          country, isJapan ? "¥500" : "4.99", isJapan ? "JPY" : "EUR");
      if (country == "us") {
        answerLookup("11", {}, country);
      } else {
        answerLookup("11", {app}, country);
      }
    }
  }
};

TEST_F(StorefrontsCommandTest, AsksEachOnceAndKeepsTheirOrder) {
  answerAll();
  io.style.width = 44;
  EXPECT_TRUE(printed("storefronts 11").starts_with(R"(Amber gb, sold in 9 of 10 tracked
storefronts.

Storefront  Price          Currency
us          not sold here
gb          4.99           EUR
)"));
  EXPECT_TRUE(says("au          4.99           EUR\njp          ¥500           JPY\n"));
  EXPECT_TRUE(clock.waits().empty());
}

TEST_F(StorefrontsCommandTest, FailsWhereNoStorefrontHasItOrOneLimitsTheRate) {
  for (const std::string_view country : kTrackedStorefronts) {
    answerLookup("11", {}, country);
    http.answer(lookup("11", country), country == "de" ? 429 : 200, answer({}));
  }
  EXPECT_EQ(said("storefronts 11", 1),
            "quillet: No app with track ID 11 in any tracked storefront.\n");
  printed("storefronts 11 --no-retry", 4);
}

}  // namespace
}  // namespace quillet

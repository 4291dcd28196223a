// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/published_prices_test.h"

namespace quillet {
namespace {

/// An app that cost 4 until `day`.
std::string app(int id, std::string_view name, std::string_view kind, double now,
                std::string_view day = "2026-11-12") {
  return fmt::format(
      R"({{"a":"{}","n":"{}","s":"Birch & Co","c":"USD","k":"{}",
        "p":[{{"d":"2025-12-01","v":4}},{{"d":"{}","v":{}}}]}})",
      id, name, kind, day, now);
}

constexpr std::string_view kDearer =
    R"({"a":"9","p":[{"d":"2026-10-01","v":0},{"d":"2026-10-02","v":2}]})";

class DealsCommandTest : public PublishedPricesTest {
 protected:
  void publishSome() {
    const std::vector<std::string> apps{
        app(1, "Cove", "software", 2),
        app(2, "App 10", "mac-software", 2),
        app(3, "app 2", "software", 2),
        app(4, "Newer", "mac-software", 2, "2026-11-13"),
        app(5, "Gone free", "software", 0, "2026-01-01"),
        app(7, "Small", "software", 3.6),
        std::string(kDearer),
    };
    publish({apps.begin(), apps.end()});
  }
};

TEST_F(DealsCommandTest, OrdersAndFiltersDrops) {
  publishSome();
  io.style.width = 80;
  EXPECT_EQ(printed("deals"),
            R"(6 price drops in the us storefront, as of 2026-11-20.

ID  Name         Was    Now      Off  Since       Seller
5   Gone free  $4.00   Free  -100.0%  2026-01-01  Birch & Co
4   Newer      $4.00  $2.00   -50.0%  2026-11-13  Birch & Co
3   app 2      $4.00  $2.00   -50.0%  2026-11-12  Birch & Co
2   App 10     $4.00  $2.00   -50.0%  2026-11-12  Birch & Co
1   Cove       $4.00  $2.00   -50.0%  2026-11-12  Birch & Co
7   Small      $4.00  $3.60   -10.0%  2026-11-12  Birch & Co
)");
  publishSome();
  EXPECT_TRUE(printed("deals -p mac").starts_with("2 price drops in")) << io.out.content;
  publishSome();
  EXPECT_TRUE(json("deals -p ipad --min-drop 50 -n 1")
                  .starts_with(R"({"count": 1,"country": "us","deals": [{)"
                               R"("changedOn": "2026-01-01T00:00:00Z","currency": "USD",)"));
  EXPECT_TRUE(says("\"minimumDropPercent\": 50,\n  \"total\": 3\n"));
}

TEST_F(DealsCommandTest, KeepsTheForemostOfMany) {
  std::vector<std::string> apps;
  for (int i = 0; i < 100; ++i) {
    apps.push_back(app(100 + i, "Cove", "software", 0.01 * (i * 37 % 100)));
  }
  publish({apps.begin(), apps.end()});
  EXPECT_EQ(printed("deals -n 3"),
            "3 of 100 price drops in the us storefront, as of 2026-11-20.\n\n"
            "100  Cove  $4.00   Free  -100.0%  2026-11-12  Birch & Co\n"
            "173  Cove  $4.00  $0.01   -99.8%  2026-11-12  Birch & Co\n"
            "146  Cove  $4.00  $0.02   -99.5%  2026-11-12  Birch & Co\n");
}

TEST_F(DealsCommandTest, TellsAPersonOfTheRest) {
  io.errWidth = 80;
  publishSome();
  EXPECT_EQ(said("deals -n 5", 0), "quillet: more match; -n 200 shows up to 200.\n");
  publishSome();
  EXPECT_EQ(said("deals -n 6 --json", 0), "");
}

TEST_F(DealsCommandTest, SaysWhereNothingGotCheaper) {
  const std::string none = "No price drops in the us storefront's latest data.\n";
  publishSome();
  EXPECT_EQ(printed("deals --min-drop 101", 1), none + "Without --min-drop 101 there are 6.\n");
  publish({app(1, "Cove", "software", 2)});
  EXPECT_EQ(printed("deals -p mac --min-drop 0.5", 1),
            none + "Without --min-drop 0.5 -p mac there is 1.\n");
  const std::string gone = app(1, "Cove", "mac-software", 2);
  for (const std::string& each : {std::string(kDearer), R"({"g":"2026-11-20",)" + gone.substr(1)}) {
    publish({each});
    EXPECT_EQ(printed("deals -p mac", 1), none) << each;
  }
}

TEST_F(DealsCommandTest, TellsOfACollectorThatDied) {
  const std::string some = "1 price drop in the us storefront, as of 2026-11-20.\n";
  const std::string none = "No price drops in the us storefront's latest data.\n";
  const std::string old = "Prices were last looked at on 2026-11-20.\n";
  const std::string cove = app(1, "Cove", "software", 2);
  const Instant threeDaysOn = parseInternetDate("2026-11-23T03:00:00Z").value();
  clock.setNow(threeDaysOn);
  publish({cove});
  EXPECT_TRUE(printed("deals").starts_with(some + '\n')) << io.out.content;
  clock.setNow(threeDaysOn + std::chrono::seconds(1));
  publish({cove});
  EXPECT_TRUE(printed("deals").starts_with(some + old + '\n')) << io.out.content;
  publish({kDearer});
  EXPECT_EQ(printed("deals", 1), none + old);
  publish({cove});
  EXPECT_NE(json("deals").find(R"("lookedAt": "2026-11-20T03:00:00Z",)"), std::string::npos);
  EXPECT_LE(http.requests().back().totalTimeout, std::chrono::seconds(5)) << "it is worth no more";
}

TEST_F(DealsCommandTest, DoesWithoutWordOfTheLastLook) {
  clock.setNow(parseInternetDate("2026-12-24T03:00:00Z").value());
  const auto without = [&](const std::string& what) {
    const std::string text = json("deals");
    EXPECT_TRUE(text.starts_with(R"({"count": 1,)")) << what << text;
    EXPECT_EQ(text.find("lookedAt"), std::string::npos) << what << text;
  };
  const std::string cove = app(1, "Cove", "software", 2);
  publish({cove}, "yesterday");
  without("no time");
  for (const auto& [status, body] :
       {std::pair{404, ""}, std::pair{200, "<html>"}, std::pair{200, R"({"schema":2})"},
        std::pair{200, R"({"schema":1,"storefronts":[{"country":"us"}]})"}}) {
    publishFile({cove});
    http.answer(manifest, status, body);
    without(body);
  }
  publishFile({cove});
  http.fail(manifest, {NetworkError::Kind::cannotReach, "timed out"});
  without("no answer");
}

}  // namespace
}  // namespace quillet

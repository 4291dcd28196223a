// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/deals_command.h"

#include "base/json_reader.h"
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

class DealsCommandTest : public PublishedPricesTest {
 protected:
  void publishSome() {
    const std::vector<std::string> apps{
        app(1, "Cove", "software", 2),
        app(2, "App 10", "mac-software", 2),
        app(3, "app 2", "software", 2),
        app(4, "Newer", "mac-software", 2, "2026-11-13"),
        app(5, "Gone free", "software", 0, "2026-01-01"),
        app(6, "Dearer", "software", 5),
        app(7, "Small", "software", 3.6),
        R"({"a":"8","n":"Up again","p":[{"d":"2026-10-01","v":4},{"d":"2026-10-02","v":2},
          {"d":"2026-10-03","v":4}]})",
        R"({"a":"9","p":[{"d":"2026-10-01","v":0},{"d":"2026-10-02","v":2}]})",
    };
    publish({apps.begin(), apps.end()});
  }
  /// The IDs listed, in their order.
  std::vector<std::int64_t> listed(Words options) {
    options.insert(options.begin(), "deals");
    const JsonDocument document(json(std::move(options)));
    std::vector<std::int64_t> ids;
    for (const JsonElement deal : document.root()["deals"].get_array()) {
      ids.push_back(deal["trackId"].get_int64());
    }
    return ids;
  }
};

TEST_F(DealsCommandTest, ListsTheForemostDropsAsJson) {
  publishSome();
  EXPECT_EQ(json({"deals", "-n", "1"}), flattened(R"({
    "count": 1,"country": "us",
    "deals": [
      {"changedOn": "2026-01-01T00:00:00Z","currency": "USD","kind": "software",
      "name": "Gone free","nowPrice": 0,"percentOff": 100,"seller": "Birch & Co",
      "trackId": 5,"wasPrice": 4}],
    "generatedAt": "2026-11-20T03:00:00Z","minimumDropPercent": 0,"total": 6})"));
}

TEST_F(DealsCommandTest, OrdersAndFilters) {
  const std::pair<Words, std::vector<std::int64_t>> rows[] = {
      {{}, {5, 4, 3, 2, 1, 7}},
      {{"-n", "2"}, {5, 4}},
      {{"--min-drop", "10"}, {5, 4, 3, 2, 1, 7}},
      {{"--min-drop", "10.01"}, {5, 4, 3, 2, 1}},
      {{"--min-drop", "100"}, {5}},
      {{"-p", "mac"}, {4, 2}},
      {{"-p", "iphone"}, {5, 3, 1, 7}},
      {{"-p", "ipad", "--min-drop", "50"}, {5, 3, 1}},
  };
  for (const auto& [options, expected] : rows) {
    publishSome();
    EXPECT_EQ(listed(options), expected) << fmt::format("{}", fmt::join(options, " "));
  }
}

TEST_F(DealsCommandTest, KeepsTheForemostOfMany) {
  std::vector<std::string> apps;
  for (int i = 0; i < 100; ++i)
    apps.push_back(app(100 + i, "Cove", "software", 0.01 * (i * 37 % 100)));
  publish({apps.begin(), apps.end()});
  EXPECT_EQ(listed({"-n", "3"}), (std::vector<std::int64_t>{100, 173, 146}));
  EXPECT_TRUE(says("\"total\": 100\n"));
}

TEST_F(DealsCommandTest, ListsDropsForAPerson) {
  publishSome();
  io.style.width = 80;
  EXPECT_EQ(printed({"deals", "-n", "2"}),
            R"(2 of 6 price drops in the us storefront, as of 2026-11-20.

ID  Name         Was    Now      Off  Since       Seller
5   Gone free  $4.00   Free  -100.0%  2026-01-01  Birch & Co
4   Newer      $4.00  $2.00   -50.0%  2026-11-13  Birch & Co
)");
}

TEST_F(DealsCommandTest, SaysWhereNothingGotCheaper) {
  const std::string none = "No price drops in the us storefront's latest data.\n";
  publishSome();
  EXPECT_EQ(printed({"deals", "--min-drop", "101"}, 1),
            none + "Without --min-drop 101 there are 6.\n");
  const std::string one = app(1, "Cove", "software", 2);
  for (int i = 0; i < 2; ++i) publish({one});
  EXPECT_EQ(printed({"deals", "-p", "mac"}, 1), none + "Without -p mac there is 1.\n");
  EXPECT_EQ(printed({"deals", "-p", "mac", "--min-drop", "0.5"}, 1),
            none + "Without --min-drop 0.5 -p mac there is 1.\n");
  for (int i = 0; i < 2; ++i)
    publish({R"({"a":"9","p":[{"d":"2026-10-01","v":0},{"d":"2026-10-02","v":2}]})"});
  EXPECT_TRUE(json({"deals"}, 1).starts_with(R"({"count": 0,)")) << io.out.content;
  EXPECT_EQ(printed({"deals", "-p", "mac"}, 1), none);
}

}  // namespace
}  // namespace quillet

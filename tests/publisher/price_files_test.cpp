// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "publisher/price_files.h"

#include <gtest/gtest.h>

#include "store/price_seed_client.h"
#include "support/flattened.h"

namespace quillet {
namespace {

Instant at(const char* time) { return parseInternetDate(time).value(); }

RecordedApp app(std::int64_t id, std::vector<CollectedPrice> prices) {
  return {id, "Fen & \"Reed\"", "Wren Ltd", "USD", "mac-software", std::move(prices)};
}

TEST(OnlyMoved, KeepsOnePriceADayAndOnlyWhatMoved) {
  const Instant noon = at("2026-11-01T12:00:00Z");
  const Instant evening = at("2026-11-01T23:59:59Z");
  const Instant midnight = at("2026-11-02T00:00:00Z");
  using Prices = std::vector<CollectedPrice>;
  for (const auto& [situation, recorded, published] :
       std::vector<std::tuple<const char*, Prices, Prices>>{
           {"seen once", {{noon, 5}}, {}},
           {"moved at midnight", {{evening, 5}, {midnight, 3}}, {{evening, 5}, {midnight, 3}}},
           {"moved within its first day", {{noon, 5}, {evening, 3}}, {}},
           {"the last of the day counts",
            {{noon, 5}, {evening, 3}, {midnight, 5}},
            {{evening, 3}, {midnight, 5}}},
           {"down and up again within a day",
            {{noon, 5}, {midnight, 3}, {midnight + std::chrono::hours(1), 5}},
            {}},
           {"free", {{noon, 0}, {midnight, 0.99}}, {{noon, 0}, {midnight, 0.99}}},
       }) {
    const RecordedStorefront moved = onlyMoved({"us", noon, {app(1, recorded)}});
    EXPECT_EQ(moved.apps.empty() ? Prices() : moved.apps[0].prices, published) << situation;
  }
}

TEST(PriceFile, IsTheSameForWhateverOrderTheAppsComeIn) {
  const std::vector<CollectedPrice> prices{{at("2026-10-01T03:00:00Z"), 4.99},
                                           {at("2026-11-12T03:00:00Z"), 2}};
  RecordedApp bare = app(7, prices);
  bare.seller = bare.kind = "";
  const Instant stamp = at("2026-11-12T03:00:00Z");
  const PublishedFile file = priceFile(onlyMoved({"gb", stamp, {app(1480068668, prices), bare}}));
  EXPECT_EQ(file.name, "changes-gb.json.gz");
  EXPECT_EQ(unpackedPriceFile(file.bytes, 1000).view(),
            R"({"generatedAt":"2026-11-12T03:00:00Z","schema":1,"storefront":{"apps":[)"
            R"({"a":"7","c":"USD","n":"Fen & \"Reed\"",)"
            R"("p":[{"d":"2026-10-01","v":4.99},{"d":"2026-11-12","v":2}]},)"
            R"({"a":"1480068668","c":"USD","k":"mac-software","n":"Fen & \"Reed\"",)"
            R"("p":[{"d":"2026-10-01","v":4.99},{"d":"2026-11-12","v":2}],"s":"Wren Ltd"}],)"
            R"("country":"gb"}})");
  EXPECT_EQ(file.bytes.substr(4, 4), std::string(4, '\0')) << "no time in the head";
  EXPECT_EQ(file.bytes, priceFile(onlyMoved({"gb", stamp, {bare, app(1480068668, prices)}})).bytes);
}

TEST(ManifestFile, ListsTheFilesUnderTheNewestStamp) {
  const PublishedFile manifest =
      manifestFile({{"us", at("2026-11-12T03:00:00Z"), 2, at("2026-11-14T03:00:00Z")},
                    {"jp", at("2026-11-13T03:00:00Z"), 0, {}}});
  EXPECT_EQ(manifest.name, "manifest.json");
  EXPECT_EQ(flattened(manifest.bytes),
            R"({"generatedAt": "2026-11-13T03:00:00Z","schema": 1,"storefronts": [)"
            R"({"apps": 2,"country": "us","file": "changes-us.json.gz",)"
            R"("lookedAt": "2026-11-14T03:00:00Z"},)"
            R"({"apps": 0,"country": "jp","file": "changes-jp.json.gz"}]})");
}

}  // namespace
}  // namespace quillet

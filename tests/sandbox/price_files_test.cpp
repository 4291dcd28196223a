// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>
#include <zlib.h>

#include "base/json_reader.h"
#include "sample_answers.h"

namespace quillet::sandbox {
namespace {

constexpr const char* kFolder = "/file/quillbase-prices/v1/";

std::string inflated(const std::string& bytes) {
  std::string text(1'000'000, '\0');
  z_stream stream{};
  inflateInit2(&stream, 15 + 16);
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
  stream.avail_in = static_cast<uInt>(bytes.size());
  stream.next_out = reinterpret_cast<Bytef*>(text.data());
  stream.avail_out = static_cast<uInt>(text.size());
  EXPECT_EQ(inflate(&stream, Z_FINISH), Z_STREAM_END);
  text.resize(stream.total_out);
  inflateEnd(&stream);
  return text;
}

std::string fileOf(const std::string& country) {
  return inflated(asBrowser(fmt::format("{}changes-{}.json.gz", kFolder, country)).body);
}

/// What the search service says that the app costs.
double currentPrice(const std::string& country, const std::string& id) {
  const Answer answer = asBrowser("/lookup", {{"id", id}, {"country", country}});
  const JsonDocument document(answer.body);
  return double(document.root()["results"].at(0)["price"]);
}

void expectSoundHistory(const std::string& country, const JsonObject& entry) {
  const std::string id = memberOf<std::string>(entry, "a").value();
  SCOPED_TRACE(memberOf<std::string>(entry, "n").value());
  std::string lastDay = formatDay(kSampleDay - std::chrono::days(366));
  double lastPrice = -1;
  for (const JsonElement point : JsonArray(entry["p"])) {
    const auto day = std::string(std::string_view(point["d"]));
    const double price(point["v"]);
    EXPECT_LT(lastDay, day);
    EXPECT_NE(lastPrice, price);
    lastDay = day;
    lastPrice = price;
  }
  EXPECT_LT(lastDay, formatDay(kSampleDay));
  EXPECT_EQ(lastPrice, currentPrice(country, id));
}

TEST(PriceFiles, endWithWhatTheStoreAsks) {
  for (const std::string country : {"us", "de", "jp"}) {
    const JsonDocument document(fileOf(country));
    EXPECT_EQ(std::int64_t(document.root()["schema"]), 1);
    const JsonElement storefront = document.root()["storefront"];
    EXPECT_EQ(std::string_view(storefront["country"]), country);
    const JsonArray apps(storefront["apps"]);
    EXPECT_GT(apps.size(), 20U) << country;
    for (const JsonElement entry : apps) expectSoundHistory(country, entry);
  }
}

TEST(PriceFiles, holdDropsAndRises) {
  int drops = 0;
  int rises = 0;
  const JsonDocument document(fileOf("us"));
  for (const JsonElement entry : JsonArray(document.root()["storefront"]["apps"])) {
    const JsonArray points(entry["p"]);
    ASSERT_GE(points.size(), 2U);
    const double last(points.at(points.size() - 1)["v"]);
    const double before(points.at(points.size() - 2)["v"]);
    ++(last < before ? drops : rises);
  }
  EXPECT_GT(drops, 5);
  EXPECT_GT(rises, 5);
}

TEST(PriceFiles, areListedInTheManifest) {
  const Answer answer = asBrowser(std::string(kFolder) + "manifest.json");
  const JsonDocument document(answer.body);
  std::size_t files = 0;
  for (const JsonElement entry : JsonArray(document.root()["storefronts"])) {
    const auto file = std::string(std::string_view(entry["file"]));
    const JsonDocument changes(inflated(asBrowser(kFolder + file).body));
    EXPECT_EQ(JsonArray(changes.root()["storefront"]["apps"]).size(),
              static_cast<std::size_t>(std::int64_t(entry["apps"])))
        << file;
    ++files;
  }
  EXPECT_EQ(files, kStorefrontCount);
  for (const char* file : {"changes-zz.json.gz", "changes-us.json", "changes-", "prices.json"})
    EXPECT_EQ(asBrowser(std::string(kFolder) + file).status, 404) << file;
}

}  // namespace
}  // namespace quillet::sandbox

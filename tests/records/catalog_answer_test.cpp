// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/catalog_answer.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "support/message_of.h"

namespace quillet {
namespace {

std::string failureOf(const std::string& body) {
  return messageOf<DecodingError>([&] { const CatalogAnswer answer(body); });
}

TEST(CatalogAnswer, FailsOnlyOnABodyOfAnotherShape) {
  const std::string start = "The catalog's answer could not be read: ";
  EXPECT_EQ(failureOf(R"({"data":[{"id":"1")"), start + "it is not JSON.");
  EXPECT_EQ(failureOf(""), start + "it is empty.");
  EXPECT_EQ(failureOf("[]"), start + "it is not an object.");
  for (const char* body : {R"({"errors":[{"status":"500"}]})", R"({"data":null})", R"({"data":1})"})
    EXPECT_EQ(failureOf(body), start + "it holds no data.");
}

TEST(CatalogAnswer, ReadsValuesInTheFormsThatOccur) {
  const CatalogAnswer answer(R"({"data":{
    "day": "2024-03-01", "millis": " 2024-03-01T08:00:00.123Z", "noDay": "2024-02-30",
    "offset": "2024-03-01T00:00:00.5-08:00", "noZone": "2024-03-01T08:00:00.5",
    "number": 2.5, "text": "2.5", "whole": 7.0, "wholeText": "7", "fraction": 7.5, "huge": 1e300,
    "mixed": ["a", 1, "", null, "b"], "counts": [1, 2], "badCounts": [1, "x"], "empty": ""}})");
  const CatalogBlock block = answer.resources().front();
  const auto date = [&](const char* key) {
    const auto instant = block.get<Instant>(key);
    return instant ? formatInternetDate(*instant) : "none";
  };
  EXPECT_EQ(date("day"), "2024-03-01T00:00:00Z");
  for (const char* key : {"millis", "offset"}) EXPECT_EQ(date(key), "2024-03-01T08:00:00Z") << key;
  for (const char* key : {"noZone", "noDay", "number", "empty", "missing"})
    EXPECT_EQ(date(key), "none") << key;
  for (const char* key : {"number", "text"}) EXPECT_EQ(block.get<double>(key), 2.5) << key;
  for (const char* key : {"whole", "wholeText"}) EXPECT_EQ(block.get<std::int64_t>(key), 7) << key;
  for (const char* key : {"fraction", "huge", "mixed", "empty"})
    EXPECT_EQ(block.get<std::int64_t>(key), std::nullopt) << key;
  EXPECT_EQ(block.get<std::vector<std::string>>("mixed"), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(block.get<std::vector<std::int64_t>>("counts"), (std::vector<std::int64_t>{1, 2}));
  EXPECT_EQ(block.get<std::vector<std::int64_t>>("badCounts"), std::nullopt);
}

TEST(CatalogAnswer, AsksThePlatformsOwnBlocksFirst) {
  const CatalogAnswer answer(R"({"data":{"attributes":{"v":"all","platformAttributes":{
    "mac":{"v":"mac","u":7}, "osx":{"v":"osx","u":"osx"},
    "ipad":{"v":"ipad"}, "ios":{"v":"ios","w":"ios"}}}}})");
  const CatalogBlock& resource = answer.resources().front();
  EXPECT_EQ(attributesFor(resource, Platform::mac).text("v"), "mac");
  EXPECT_EQ(attributesFor(resource, Platform::mac).text("u"), "osx");
  EXPECT_EQ(attributesFor(resource, Platform::mac).text("w"), "");
  EXPECT_EQ(attributesFor(resource, Platform::iphone).text("v"), "ipad");
}

TEST(CatalogAnswer, PrefersAnOfferWithAPrice) {
  const std::pair<const char*, const char*> rows[] = {
      {R"([{"n":"1","price":0},{"n":"2","price":9}])", "1"},
      {R"([{"n":"1"},{"n":"2","price":"4.99"}])", "2"},
      {R"([{"n":"1","price":null},{"n":"2"}])", "1"},
      {"[]", ""},
  };
  for (const auto& [offers, chosen] : rows) {
    const CatalogAnswer answer(fmt::format(R"({{"data":{{"offers":{}}}}})", offers));
    EXPECT_EQ(offerIn(answer.resources().front()).text("n"), chosen) << offers;
  }
}

}  // namespace
}  // namespace quillet

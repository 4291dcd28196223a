// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "base/errors.h"
#include "store/records/chart_answers.h"
#include "store/records/embedded_document.h"
#include "store/records/product_page.h"
#include "store/records/sized_picture.h"

namespace quillet {
namespace {

using Ids = std::vector<std::int64_t>;

std::string pageWith(std::string_view json) {
  return fmt::format(
      "<html><script>var a = 1;</script>"
      "<script type=\"application/json\" id=\"serialized-server-data\">{}</script></html>",
      json);
}

constexpr std::string_view kContent = R"({"shelfMapping":{
  "product_media_mac":{"items":[
    {"video":{"template":"https://pic.example/film/{w}x{h}{c}.{f}"}},
    {"screenshot":{"template":"https://pic.example/a/{w}x{h}{c}.{f}"}},
    {"screenshot":{"template":"javascript:run"}}, {"screenshot":{"template":7}}, 5, null,
    {"screenshot":{"template":"https://pic.example/{w}/{w}.{f}"}}]},
  "product_media_mac_0":{"items":[{"screenshot":{"template":"https://pic.example/other"}}]},
  "description":{"items":[{"paragraph":{"text":"One."}},{"paragraph":{}},
                          {"paragraph":{"text":"Two."}}]},
  "bundleParents":{"items":[{"adamId":"11"},{"lockup":{"adamId":12}},{"adamId":"x"}]}}})";

const ProductPage kPage{
    {"https://pic.example/a/1280x800bb.webp", "https://pic.example/1280/1280.webp"},
    {"One.", "Two."},
    {11, 12}};

TEST(ProductPage, IsReadInEveryShapeOfItsLevels) {
  for (const char* shape :
       {R"({{"data":{{"data":{}}}}})", R"({{"data":[{{"data":{}}}]}})", R"([{{"data":{}}}])",
        R"({{"data":[3,{{"intent":{{}}}},{{"data":[{}]}}]}})"}) {
    const std::string json = fmt::format(fmt::runtime(shape), kContent);
    EXPECT_EQ(decodeProductPage(pageWith(json)), kPage) << shape;
  }
}

TEST(ProductPage, TakesAShelfWhoseNameGoesOn) {
  const std::string json = R"([{"data":{"shelfMapping":{
    "product_media_machine":{"items":[{"screenshot":{"template":"https://a.example/1"}}]},
    "product_media_pad_0":{"items":[{"screenshot":{"template":"https://a.example/2"}}]},
    "product_media_mac_0":{"items":[{"screenshot":{"template":"https://a.example/3"}}]}}}}])";
  const ProductPage expected{.macScreenshots = {"https://a.example/3"}};
  EXPECT_EQ(decodeProductPage(pageWith(json)), expected);
}

TEST(ProductPage, IsEmptyWithoutShelvesAndUnreadableWithoutData) {
  for (const char* json : {"{}", "[]", R"({"data":5})", R"({"data":{"data":{"shelfMapping":[]}}})",
                           R"({"data":{"data":{"shelfMapping":{"description":null}}}})"}) {
    EXPECT_EQ(decodeProductPage(pageWith(json)), ProductPage{}) << json;
  }
  for (const char* html : {"<html></html>", "<script id=\"serialized-server-data\">{}"})
    EXPECT_THROW((void)decodeProductPage(html), UnreadablePage) << html;
  for (const char* json : {"", "{", "\"text\"", "5", "{\"data\":\"\xFF\"}"})
    EXPECT_THROW((void)decodeProductPage(pageWith(json)), UnreadablePage) << json;
}

TEST(ChartPage, ListsShelvesAndThenTheRest) {
  const std::string segments = R"("segments":[
    {"chart":"top-free","shelves":[{"items":[{"adamId":"1"},{"adamId":2}]},{"title":"x"},
      {"items":[{"lockup":{"adamId":"3"}},{"adamId":-4},{"adamId":"no"},7]}],
     "nextPage":{"remainingContent":[{"id":"5","type":"apps"},{"adamId":"6","id":"9"}]}},
    {"chart":"top-paid","shelves":{"items":[{"adamId":"8"}]}}])";
  const std::string page = pageWith("{\"data\":{\"data\":{" + segments + "}}}");
  EXPECT_EQ(decodeChartPage(page, ChartType::topFree), (Ids{1, 2, 3, 5, 6}));
  EXPECT_EQ(decodeChartPage(page, ChartType::topPaid), Ids{8});
  EXPECT_EQ(decodeChartPage(page + "\xFF", ChartType::topFree), Ids{}) << "not UTF-8";
  const std::string free = pageWith(R"([{"data":{"segments":[{"chart":"top-free",
    "shelves":[{"items":[{"adamId":"1"}]}]}]}}])");
  EXPECT_EQ(decodeChartPage(free, ChartType::topPaid), Ids{});
  EXPECT_EQ(decodeChartPage("", ChartType::topFree), Ids{});
  EXPECT_EQ(decodeChartPage(pageWith("[[]"), ChartType::topFree), Ids{});
}

TEST(ChartFeed, HasManyEntriesOneOrNone) {
  const std::string one = R"({"id":{"label":"x","attributes":{"im:id":"41"}}})";
  const auto feed = [](std::string_view entry) {
    return fmt::format("\n\n{{\"feed\":{{\"title\":{{}}{}}}}}\n", entry);
  };
  EXPECT_EQ(decodeChartFeed(feed(R"(,"entry":[)" + one + R"(,{"id":{}},{"id":{"attributes":
            {"im:id":42}}},{"id":{"attributes":{"im:id":"0x2B"}}}])")),
            (Ids{41, 42}));
  EXPECT_EQ(decodeChartFeed(feed(R"(,"entry":)" + one)), Ids{41});
  EXPECT_EQ(decodeChartFeed(feed("")), Ids{});
  for (const char* body : {"", "No such feed\n", "[]", "{}", R"({"feed":[]})"})
    EXPECT_THROW((void)decodeChartFeed(body), DecodingError) << body;
}

TEST(FullSizeAddress, ReplacesTheSizeAlone) {
  for (const char* sized : {"392x696bb.png", "1280x800bb.webp"})
    EXPECT_EQ(fullSizeAddress(std::string("https://a.example/x/") + sized),
              "https://a.example/x/9999x9999bb.jpg");
  for (const char* other : {"/source.png", "/screen1136x1136.jpeg", "/392x696bb.png?a",
                            "/392x696bb-85.png", "/392x696bb.", "/x696bb.png", "392x696bb.png"})
    EXPECT_EQ(fullSizeAddress(other), other);
}

TEST(SizedAddress, TakesTheSmallestOfAFewSizesThatFills) {
  const std::string address = "https://a.example/x/100x100bb.png";
  for (const auto& [pixels, size] : {std::pair(44, "64x64"), std::pair(64, "64x64"),
                                     std::pair(88, "128x128"), std::pair(2000, "1024x1024")}) {
    EXPECT_EQ(sizedAddress(address, pixels), fmt::format("https://a.example/x/{}bb.png", size));
  }
  EXPECT_EQ(sizedAddress("/source.png", 44), "/source.png");
}

}  // namespace
}  // namespace quillet

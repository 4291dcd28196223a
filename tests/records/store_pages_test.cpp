// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "base/errors.h"
#include "store/records/chart_answers.h"
#include "store/records/embedded_document.h"
#include "store/records/full_size_picture.h"
#include "store/records/product_page.h"

namespace quillet {
namespace {

using Ids = std::vector<std::int64_t>;

std::string pageWith(std::string_view json) {
  return fmt::format(
      "<html><script>var a = 1;</script>"
      "<script type=\"application/json\" id=\"serialized-server-data\">{}</script></html>",
      json);
}

TEST(EmbeddedJson, IsTheFirstMarkedScript) {
  const std::string marked = "id=\"serialized-server-data\">";
  EXPECT_EQ(embeddedJson("<script>x</script><script " + marked + "{}</script >"), "{}");
  EXPECT_EQ(embeddedJson(marked + "1</script>" + marked + "2</script>"), "1");
  EXPECT_EQ(embeddedJson(marked + "</script>"), "");
  EXPECT_EQ(embeddedJson(marked + "{}</scrip"), std::nullopt);
  EXPECT_EQ(embeddedJson("<script id=\"other\">{}</script>"), std::nullopt);
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
  const auto pictures = [](std::string_view shelf, std::string_view address) {
    return decodeProductPage(
               pageWith(fmt::format(R"({{"data":{{"data":{{"shelfMapping":{{"{}":{{"items":[)"
                                    R"({{"screenshot":{{"template":"{}"}}}}]}}}}}}}}}})",
                                    shelf, address)))
        .macScreenshots;
  };
  using Addresses = std::vector<std::string>;
  EXPECT_EQ(pictures("product_media_mac_0", "https://a.example/1"),
            Addresses{"https://a.example/1"});
  EXPECT_EQ(pictures("product_media_machine", "https://a.example/1"), Addresses{});
  EXPECT_EQ(pictures("product_media_pad_0", "https://a.example/1"), Addresses{});
}

TEST(ProductPage, IsEmptyWithoutShelvesAndUnreadableWithoutData) {
  for (const char* json : {"{}", "[]", R"({"data":5})", R"({"data":{"data":{"shelfMapping":[]}}})",
                           R"({"data":{"data":{"shelfMapping":{"description":null}}}})"}) {
    EXPECT_EQ(decodeProductPage(pageWith(json)), ProductPage{}) << json;
  }
  EXPECT_THROW((void)decodeProductPage("<html></html>"), UnreadablePage);
  for (const char* json : {"", "{", "\"text\"", "5", "{\"data\":\"\xFF\"}"}) {
    EXPECT_THROW((void)decodeProductPage(pageWith(json)), UnreadablePage) << json;
  }
}

TEST(ChartPage, ListsShelvesAndThenTheRest) {
  const std::string segments = R"("segments":[
    {"chart":"top-free","shelves":[{"items":[{"adamId":"1"},{"adamId":2}]},{"title":"x"},
      {"items":[{"lockup":{"adamId":"3"}},{"adamId":-4},{"adamId":"no"},7]}],
     "nextPage":{"remainingContent":[{"id":"5","type":"apps"},{"adamId":"6","id":"9"}]}},
    {"chart":"top-paid","shelves":{"items":[{"adamId":"8"}]}}])";
  for (const char* shape : {R"({{"data":{{"data":{{{}}}}}}})", R"({{"data":[{{"data":{{{}}}}}]}})",
                            R"([{{"data":{{{}}}}}])"}) {
    const std::string page = pageWith(fmt::format(fmt::runtime(shape), segments));
    EXPECT_EQ(decodeChartPage(page, ChartType::topFree), (Ids{1, 2, 3, 5, 6})) << shape;
    EXPECT_EQ(decodeChartPage(page, ChartType::topPaid), Ids{8}) << shape;
    EXPECT_EQ(decodeChartPage(page + "\xFF", ChartType::topFree), Ids{}) << "not UTF-8";
  }
  const std::string free = pageWith(R"({"data":{"data":{"segments":[{"chart":"top-free",
    "shelves":[{"items":[{"adamId":"1"}]}]}]}}})");
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
  for (const char* body : {"", "No such feed\n", "[]", "{}", R"({"feed":[]})"}) {
    EXPECT_THROW((void)decodeChartFeed(body), DecodingError) << body;
  }
}

TEST(FullSizeAddress, ReplacesTheSizeAlone) {
  const std::pair<const char*, const char*> rows[] = {
      {"https://a.example/x/392x696bb.png", "https://a.example/x/9999x9999bb.jpg"},
      {"https://a.example/x/1280x800bb.webp", "https://a.example/x/9999x9999bb.jpg"},
      {"https://a.example/x/source.png", "https://a.example/x/source.png"},
      {"https://a.example/x/screen1136x1136.jpeg", "https://a.example/x/screen1136x1136.jpeg"},
      {"https://a.example/x/392x696bb.png?a", "https://a.example/x/392x696bb.png?a"},
      {"https://a.example/x/392x696bb-85.png", "https://a.example/x/392x696bb-85.png"},
      {"https://a.example/x/392x696bb.", "https://a.example/x/392x696bb."},
      {"https://a.example/x/x696bb.png", "https://a.example/x/x696bb.png"},
      {"392x696bb.png", "392x696bb.png"},
  };
  for (const auto& [address, full] : rows) EXPECT_EQ(fullSizeAddress(address), full);
}

}  // namespace
}  // namespace quillet

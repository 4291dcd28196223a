// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <set>

#include "base/json_reader.h"
#include "sample_answers.h"
#include "sandbox/bundles.h"
#include "sandbox/charts.h"
#include "sandbox/pictures.h"
#include "store/records/catalog_bundles_json.h"
#include "store/records/catalog_editorial_json.h"
#include "store/records/catalog_enrichment_json.h"

namespace quillet::sandbox {
namespace {

/// What stands in a page's data script; empty when there is none.
std::string dataOf(const Answer& answer) {
  constexpr std::string_view kMarker = "id=\"serialized-server-data\">";
  const std::size_t marker = answer.body.find(kMarker);
  if (marker == std::string::npos) return {};
  const std::size_t start = marker + kMarker.size();
  return answer.body.substr(start, answer.body.find("</script", start) - start);
}

/// The element itself, or the first where a list stands.
JsonElement firstOf(JsonElement element) {
  return element.is_array() ? JsonElement(JsonArray(element).at(0)) : element;
}

/// What a page tells of itself, behind its levels of data.
JsonObject innermost(const JsonDocument& document) {
  JsonElement element = firstOf(document.root());
  while (const auto data = jsonMember(JsonObject(element), "data")) element = firstOf(*data);
  return element;
}

std::vector<std::string> macPictures(const JsonObject& page) {
  std::vector<std::string> urls;
  for (const auto [name, shelf] : JsonObject(page["shelfMapping"])) {
    if (!name.starts_with("product_media_mac")) continue;
    for (const JsonElement item : JsonArray(shelf["items"])) {
      const auto shot = jsonMember(JsonObject(item), "screenshot");
      if (shot) urls.emplace_back(std::string_view((*shot)["template"]));
    }
  }
  return urls;
}

std::string descriptionOf(const JsonObject& page) {
  const JsonElement items = page["shelfMapping"]["description"]["items"];
  return std::string(std::string_view(items.at(0)["paragraph"]["text"]));
}

TEST(ProductPage, tellsOfEveryAppInSomeForm) {
  int hidden = 0;
  for (AppNumber number = 0; number < sampleStore().size(); ++number) {
    const SampleApp app = sampleStore().app(number);
    if (!app.isSoldIn(Storefront::us)) continue;
    SCOPED_TRACE(app.name);
    const JsonDocument document(dataOf(asBrowser(fmt::format("/us/app/id{}", app.id))));
    const JsonObject page = innermost(document);
    EXPECT_EQ(descriptionOf(page), app.description);
    const auto pictures = macPictures(page);
    ASSERT_EQ(pictures.size(), static_cast<std::size_t>(app.screenshots.mac));
    for (int i = 0; i < app.screenshots.mac; ++i)
      EXPECT_EQ(pictures[static_cast<std::size_t>(i)],
                pictureUrl(app.id, Picture::macScreenshot, i, "{w}x{h}{c}.{f}"));
    hidden += app.hidesMacScreenshots && app.screenshots.mac > 0 ? 1 : 0;
  }
  EXPECT_GT(hidden, 10) << "only the page has the pictures of some";
}

TEST(ProductPage, namesBundlesThatTheCatalogHas) {
  std::size_t bundles = 0;
  for (AppNumber number = 0; number < sampleStore().size(); ++number) {
    const SampleApp app = sampleStore().app(number);
    const Answer answer = asBrowser(fmt::format("/gb/app/id{}", app.id));
    const std::string data = dataOf(answer);
    if (data.find("bundleParents") == std::string::npos) continue;
    const auto bundle = bundleOf(sampleStore(), app.maker.id, Storefront::gb);
    ASSERT_TRUE(bundle) << app.name;
    EXPECT_NE(data.find(std::to_string(bundle->id)), std::string::npos);
    const auto told = decodeBundles(
        asBrowser(
            "/api/apps/v1/catalog/gb/app-bundles",
            {{"ids", fmt::format("5,{}", bundle->id)}, {"platform", "mac"}, {"include", "apps"}})
            .body);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].bundle.name, bundle->name);
    EXPECT_EQ(told[0].bundle.currency, "GBP");
    EXPECT_EQ(told[0].apps.size(), bundle->apps.size());
    EXPECT_TRUE(std::ranges::count(told[0].apps, app.id, &StoreItem::id) == 1) << app.name;
    ++bundles;
  }
  EXPECT_GT(bundles, 5U);
}

TEST(Editorial, hasTheStoriesThatTheCatalogNames) {
  std::size_t stories = 0;
  for (const std::int64_t id : {1480068668, 1061100872, 824183456, 1360081195}) {
    const Answer answer = asBrowser(fmt::format("/api/apps/v1/catalog/us/apps/{}", id),
                                    {{"platform", "ipad"}, {"include", "related-editorial-items"}});
    for (const std::string& story :
         decodeEnrichment(answer.body, Platform::ipad).editorialStoryIds) {
      const auto told = decodeStories(asBrowser("/api/apps/v1/editorial/us/editorial-items",
                                                {{"ids", story + ",77"}, {"platform", "ipad"}})
                                          .body);
      ASSERT_EQ(told.size(), 1U) << story;
      EXPECT_EQ(told[0].id, story);
      EXPECT_FALSE(told[0].title.empty() || told[0].label.empty() || told[0].tagline.empty());
      EXPECT_TRUE(told[0].artworkTemplate && told[0].backgroundHex);
      ++stories;
    }
  }
  EXPECT_GE(stories, 4U);
}

std::vector<std::int64_t> expectedChart(const SampleStore& store, const ChartQuery& query) {
  std::vector<std::int64_t> ids;
  for (const AppNumber number : chartOf(store, query)) ids.push_back(store.sketch(number).id);
  return ids;
}

std::int64_t idIn(JsonElement item) {
  const JsonElement id = item["adamId"];
  return id.is_string() ? std::stoll(std::string(std::string_view(id))) : std::int64_t(id);
}

std::vector<std::int64_t> chartOnPage(const Answer& answer, std::string_view chart) {
  const JsonDocument document(dataOf(answer));
  std::vector<std::int64_t> ids;
  for (const JsonElement segment : JsonArray(innermost(document)["segments"])) {
    if (std::string_view(segment["chart"]) != chart) continue;
    for (const JsonElement shelf : JsonArray(segment["shelves"]))
      for (const JsonElement item : JsonArray(shelf["items"])) ids.push_back(idIn(item));
    if (const auto next = jsonMember(JsonObject(segment), "nextPage"))
      for (const JsonElement item : JsonArray((*next)["remainingContent"]))
        ids.push_back(idIn(item));
  }
  return ids;
}

TEST(Charts, pagesHoldThemWhole) {
  const SampleStore store({.apps = 2000, .today = kSampleDay});
  const auto page = [&](const std::string& path) {
    return answerTo(store, {.path = path, .userAgent = "Mozilla/5.0"});
  };
  struct Case {
    const char* path;
    ChartQuery query;
    std::size_t least;
  };
  const Case cases[] = {
      {"/us/mac/charts/36", {Chart::topPaid, Shelf::mac}, 200},
      {"/de/iphone/charts/6014", {Chart::topFree, Shelf::iphone, Storefront::de, 6014}, 10},
      {"/jp/ipad/charts/6026", {Chart::topPaid, Shelf::ipad, Storefront::jp, 6026}, 2},
  };
  for (const Case& c : cases) {
    const auto ids = chartOnPage(page(c.path), textOf(kChartWords, c.query.chart));
    EXPECT_EQ(ids, expectedChart(store, c.query)) << c.path;
    EXPECT_GE(ids.size(), c.least) << c.path;
    EXPECT_EQ(std::set<std::int64_t>(ids.begin(), ids.end()).size(), ids.size()) << c.path;
  }
}

TEST(Charts, changeFromDayToDay) {
  const SampleStore tomorrow({.apps = 500, .today = kSampleDay + std::chrono::days(1)});
  const auto today = expectedChart(sampleStore(), {});
  const auto next = expectedChart(tomorrow, {});
  EXPECT_NE(today, next);
  EXPECT_TRUE(std::ranges::is_permutation(today, next));
}

std::vector<std::int64_t> chartInFeed(const Answer& answer) {
  const JsonDocument document(answer.body);
  std::vector<std::int64_t> ids;
  const auto entry = jsonMember(JsonObject(document.root()["feed"]), "entry");
  const auto add = [&](JsonElement each) {
    ids.push_back(std::stoll(std::string(std::string_view(each["id"]["attributes"]["im:id"]))));
  };
  if (entry && entry->is_array()) std::ranges::for_each(JsonArray(*entry), add);
  if (entry && entry->is_object()) add(*entry);
  return ids;
}

TEST(Charts, feedsTellThemToo) {
  EXPECT_EQ(chartInFeed(asBrowser("/us/rss/topgrossingipadapplications/limit=100/json")).size(),
            100U);
  const auto free = expectedChart(sampleStore(), {.genre = 6007});
  ASSERT_GT(free.size(), 2U);
  EXPECT_EQ(chartInFeed(asBrowser("/us/rss/topfreemacapps/genre=6007/limit=200/json")), free);
  EXPECT_EQ(chartInFeed(asBrowser("/us/rss/topfreemacapps/genre=6007/limit=1/json")),
            (std::vector{free.front()}));
  EXPECT_TRUE(chartInFeed(asBrowser("/us/rss/topfreemacapps/genre=1/limit=1/json")).empty());
  EXPECT_EQ(asBrowser("/us/rss/toppaidmacapps/limit=200/json").status, 400);
}

TEST(WebHost, refusesWhatItDoesNotKnow) {
  EXPECT_EQ(asBrowser("/us/app/id12").status, 404);
  EXPECT_EQ(asBrowser("/us/app/id1402277841").status, 404) << "sold in Japan alone";
  EXPECT_EQ(asBrowser("/us/watch/charts/36").status, 404);
  EXPECT_EQ(asBrowser("/us/mac/charts/37").status, 404);
  for (const char* path : {"/us/app/id1480068668", "/us/mac/charts/36"}) {
    const Answer answer = answerTo(sampleStore(), {.path = path, .userAgent = "Quillet/1.0"});
    EXPECT_EQ(answer.status, 429);
    EXPECT_EQ(dataOf(answer), "");
  }
}

}  // namespace
}  // namespace quillet::sandbox

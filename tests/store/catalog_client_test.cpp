// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/catalog_client.h"

#include <gtest/gtest.h>

#include <numeric>

#include "base/errors.h"
#include "store/records/itunes_error.h"
#include "support/fake_clock.h"
#include "support/run_virtual.h"
#include "support/scripted_http_client.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Waits = std::vector<std::chrono::milliseconds>;
using Ids = std::vector<std::int64_t>;

const std::string kCatalog = "https://apps.example/api/apps/v1/catalog/";
const std::string kEditorial = "https://apps.example/api/apps/v1/editorial/";

std::string enrichmentUrl(int id, std::string_view platform = "mac",
                          std::string_view country = "us") {
  return fmt::format(
      "{}{}/apps/{}?platform={}&extend=versionHistory"
      "&include=reviews,top-in-apps,related-editorial-items&limit%5Breviews%5D=10&l=en-US",
      kCatalog, country, id, platform);
}

std::string flagsUrl(const Ids& ids, std::string_view country = "us") {
  return fmt::format("{}{}/apps?ids={}&platform=mac&l=en-US", kCatalog, country,
                     fmt::join(ids, ","));
}

/// Resources of these IDs, each with the same attributes.
template <typename Id>
std::string answerOf(const std::vector<Id>& ids, std::string_view attributes = "{}") {
  std::vector<std::string> resources;
  for (const auto& id : ids)
    resources.push_back(fmt::format(R"({{"id":"{}","attributes":{}}})", id, attributes));
  return fmt::format(R"({{"data":[{}]}})", fmt::join(resources, ","));
}

std::string answerNamed(std::string_view tagline) {
  return answerOf(Ids{1}, fmt::format(R"({{"editorialNotes":{{"tagline":"{}"}}}})", tagline));
}

std::string flagsOf(const Ids& ids) {
  return answerOf(ids, R"({"isIOSBinaryMacOSCompatible":true})");
}

Ids idsFrom(std::int64_t first, std::size_t count) {
  Ids ids(count);
  std::iota(ids.begin(), ids.end(), first);
  return ids;
}

class CatalogClientTest : public testing::Test {
 protected:
  CatalogClient clientWith(AnswerCacheLimits limits, std::string address = "https://apps.example") {
    return {http, clock, std::move(address), [this] { return random; }, limits};
  }

  auto enrichment(CatalogClient& asked, int id = 7) {
    return asked.enrichment(id, "us", Platform::mac, {});
  }

  /// What tells answers apart in these tests.
  std::string taglineOf(Task<AppEnrichment> task) {
    return runVirtual(clock, std::move(task)).tagline.value_or("none");
  }

  FakeClock clock;
  ScriptedHttpClient http;
  double random = 0;
  CatalogClient client = clientWith({});
};

TEST_F(CatalogClientTest, AsksForExactlyTheseAddresses) {
  const std::string empty = answerOf(Ids{});
  http.answer(enrichmentUrl(7), 200, empty);
  EXPECT_EQ(runVirtual(clock, enrichment(client)), AppEnrichment{});
  http.answer(kCatalog + "de/apps/7/reviews?platform=ipad&limit=20&offset=40&l=en-US", 200,
              R"({"data":[],"next":"x"})");
  EXPECT_TRUE(runVirtual(clock, client.reviewsPage(7, "de", Platform::iphone, 20, 40, {})).hasMore);
  http.answer(flagsUrl({1, 2}), 200, answerOf(Ids{2}));
  EXPECT_EQ(runVirtual(clock, client.platformAttributes({1, 2}, "us", {})).size(), 1U);
  const std::string purchases =
      "us/apps?ids=1,2&platform=ipad&views=top-in-app-purchasables&l=en-US";
  http.answer(kCatalog + purchases, 200, empty);
  const RequestContext background{RequestClass::background, {}};
  runVirtual(clock, client.purchases({1, 2}, "us", Platform::iphone, background));

  for (const auto& request : http.requests()) {
    const bool ofPurchases = request.url.ends_with(purchases);
    ASSERT_EQ(request.headers.size(), 1U) << request.url;
    EXPECT_TRUE(request.headers[0].second.ends_with("Version/17.0 Safari/605.1.15"));
    EXPECT_EQ(request.idleTimeout, ofPurchases ? 60s : 20s) << request.url;
    EXPECT_EQ(request.requestClass == RequestClass::background, ofPurchases);
    EXPECT_EQ(request.cachePolicy, ofPurchases ? CachePolicy::ignore : CachePolicy::revalidate);
  }
}

TEST_F(CatalogClientTest, AsksForFiftyAtATimeInOrderAndNothingAboutNothing) {
  for (const Ids& batch : {idsFrom(1, 50), idsFrom(51, 50), idsFrom(101, 20)})
    http.answer(flagsUrl(batch), 200, flagsOf(batch));
  const Ids ids = idsFrom(1, 120);
  EXPECT_EQ(runVirtual(clock, client.macCompatibilityFlags(ids, "us", {})).size(), 120U);
  EXPECT_TRUE(runVirtual(clock, client.bundles({}, "us", {})).empty());
  EXPECT_TRUE(runVirtual(clock, client.stories({}, "us", Platform::mac, {})).empty());
  EXPECT_TRUE(runVirtual(clock, client.purchases({}, "us", Platform::mac, {})).empty());
}

TEST_F(CatalogClientTest, TriesAgainWithGrowingWaits) {
  const std::string url = enrichmentUrl(7);
  for (const double draw : {0.0, 0.5, 0.9999}) {
    random = draw;
    for (const int status : {429, 500, 503}) http.answer(url, status, "");
    EXPECT_THROW(taglineOf(enrichment(client)), ITunesError);
  }
  EXPECT_EQ(clock.waits(), (Waits{2000ms, 4000ms, 2750ms, 4750ms, 3499ms, 5499ms}));
  http.answer(url, 429, "");
  http.answer(url, 200, answerNamed("at last"));
  EXPECT_EQ(taglineOf(enrichment(client)), "at last");
}

TEST_F(CatalogClientTest, GivesUpAtOnceWhereRetryingIsNoUse) {
  const std::string url = enrichmentUrl(7);
  for (const int status : {404, 403, 304}) {
    http.answer(url, status, "");
    EXPECT_THROW(taglineOf(enrichment(client)), ITunesError) << status;
  }
  http.fail(url, NetworkError(NetworkError::Kind::cannotReach, "Connection refused"));
  EXPECT_THROW(taglineOf(enrichment(client)), NetworkError);
  http.answer(url, 200, "<html>Sorry</html>");
  EXPECT_THROW(taglineOf(enrichment(client)), DecodingError);
  http.answer(flagsUrl({1}), 503, "");
  EXPECT_THROW(runVirtual(clock, client.macCompatibilityFlags({1}, "us", {})), ITunesError);
  http.answer(flagsUrl({1}), 429, "");
  EXPECT_THROW(runVirtual(clock, client.platformAttributes({1}, "us", {})), ITunesError);
  EXPECT_TRUE(clock.waits().empty());
  CatalogClient broken = clientWith({}, "https://apps example");
  EXPECT_THROW(taglineOf(enrichment(broken)), ITunesError) << "nothing is sent";
  http.answer(url, 200, answerNamed("nothing was kept"));
  EXPECT_EQ(taglineOf(enrichment(client)), "nothing was kept");
}

TEST_F(CatalogClientTest, KeepsEnrichmentsByAppStorefrontAndPlatform) {
  const std::tuple<Platform, const char*, const char*, const char*> rows[] = {
      {Platform::mac, "us", "mac", "mac"},
      {Platform::iphone, "us", "ipad", "iphone"},
      {Platform::ipad, "us", "ipad", "ipad"},
      {Platform::mac, "de", "mac", "mac in Germany"},
  };
  for (const auto& [platform, country, word, tagline] : rows)
    http.answer(enrichmentUrl(7, word, country), 200, answerNamed(tagline));
  for (int round = 0; round < 2; ++round) {
    for (const auto& [platform, country, word, tagline] : rows)
      EXPECT_EQ(taglineOf(client.enrichment(7, country, platform, {})), tagline);
    clock.advance(1000h);
  }
}

TEST_F(CatalogClientTest, ForgetsByAgeAndByNumber) {
  CatalogClient small = clientWith({.age = 6h, .bound = 2});
  for (const int id : {1, 2, 3, 1}) http.answer(enrichmentUrl(id), 200, answerNamed("first"));
  for (const int id : {1, 2, 3, 3, 2, 1}) taglineOf(enrichment(small, id));
  clock.advance(6h - 1ms);
  EXPECT_EQ(taglineOf(enrichment(small, 1)), "first");
  clock.advance(1ms);
  http.answer(enrichmentUrl(1), 200, answerNamed("six hours later"));
  EXPECT_EQ(taglineOf(enrichment(small, 1)), "six hours later");
}

TEST_F(CatalogClientTest, AsksOnlyForWhatIsNotKept) {
  http.answer(kCatalog + "us/app-bundles?ids=9,8&platform=mac&include=apps&l=en-US", 200,
              answerOf(Ids{8}));
  runVirtual(clock, client.bundles({9, 8}, "us", {}));
  EXPECT_EQ(runVirtual(clock, client.bundles({8, 9, 8}, "us", {})).size(), 1U);

  using Texts = std::vector<std::string>;
  const std::string stories = kEditorial + "us/editorial-items?ids=";
  http.answer(stories + "1,2&platform=ipad&l=en-US", 200, answerOf(Texts{"2", "1"}));
  http.answer(stories + "4,3&platform=ipad&l=en-US", 200, answerOf(Texts{"3"}));
  runVirtual(clock, client.stories({"1", "2"}, "us", Platform::ipad, {}));
  Texts found;
  auto asking = client.stories({"4", "3", "2", "1"}, "us", Platform::ipad, {});
  for (const auto& story : runVirtual(clock, std::move(asking))) found.push_back(story.id);
  EXPECT_EQ(found, (Texts{"3", "2", "1"}));

  http.answer(flagsUrl({1, 2}), 200, flagsOf({1}));
  http.answer(flagsUrl({2, 3}, "de"), 200, flagsOf({3}));
  runVirtual(clock, client.macCompatibilityFlags({1, 2}, "us", {}));
  EXPECT_EQ(runVirtual(clock, client.macCompatibilityFlags({1, 2, 3}, "de", {})),
            (std::map<std::int64_t, bool>{{1, true}, {3, true}}));
}

TEST_F(CatalogClientTest, TheLaterOfTwoAnswersAtOnceIsKept) {
  const std::string url = enrichmentUrl(7);
  http.hold(url);
  auto first = enrichment(client);
  auto second = enrichment(client);
  http.answer(url, 200, answerNamed("one"));
  http.answer(url, 200, answerNamed("two"));
  http.release(url);
  EXPECT_EQ(taglineOf(std::move(first)), "one");
  EXPECT_EQ(taglineOf(std::move(second)), "two");
  EXPECT_EQ(taglineOf(enrichment(client)), "two");
}

TEST_F(CatalogClientTest, StopsWhileItWaitsToTryAgain) {
  StopSource source;
  http.answer(enrichmentUrl(7), 503, "");
  auto task = client.enrichment(7, "us", Platform::mac, {.stop = source.token()});
  handlePendingEvents();
  source.requestStop();
  EXPECT_THROW(taglineOf(std::move(task)), NetworkError);
  EXPECT_EQ(clock.waits(), (Waits{2000ms}));
  EXPECT_EQ(clock.now(), Instant{});
}

}  // namespace
}  // namespace quillet

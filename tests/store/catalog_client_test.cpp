// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/catalog_client.h"

#include <gtest/gtest.h>

#include <numeric>

#include "base/errors.h"
#include "store/records/itunes_error.h"
#include "support/hand_clock.h"
#include "support/run_virtual.h"
#include "support/scripted_http_client.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Waits = std::vector<std::chrono::milliseconds>;
using Ids = std::vector<std::int64_t>;

const std::string kCatalog = "https://apps.example/api/apps/v1/catalog/";
const std::string kEditorial = "https://apps.example/api/apps/v1/editorial/";
const std::string kEmpty = R"({"data":[]})";

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

std::string answerNamed(std::string_view tagline) {
  return fmt::format(
      R"({{"data":[{{"id":"1","attributes":{{"editorialNotes":{{"tagline":"{}"}}}}}}]}})", tagline);
}

std::string flagsOf(const Ids& ids) {
  std::string apps;
  for (const auto id : ids) {
    apps += fmt::format(R"({}{{"id":"{}","attributes":{{"isIOSBinaryMacOSCompatible":true}}}})",
                        apps.empty() ? "" : ",", id);
  }
  return fmt::format(R"({{"data":[{}]}})", apps);
}

std::string storiesOf(const std::vector<std::string>& ids) {
  std::string stories;
  for (const auto& id : ids)
    stories += fmt::format(R"({}{{"id":"{}"}})", stories.empty() ? "" : ",", id);
  return fmt::format(R"({{"data":[{}]}})", stories);
}

Ids idsFrom(std::int64_t first, std::size_t count) {
  Ids ids(count);
  std::iota(ids.begin(), ids.end(), first);
  return ids;
}

class CatalogClientTest : public testing::Test {
 protected:
  CatalogClient clientWith(AnswerCacheLimits limits) {
    return {http, clock, "https://apps.example", [this] { return random; }, limits};
  }

  /// What tells answers apart in these tests.
  std::string taglineOf(CatalogClient& asked, int id, Platform platform = Platform::mac,
                        std::string country = "us") {
    return runVirtual(clock, asked.enrichment(id, std::move(country), platform, {}))
        .tagline.value_or("none");
  }

  template <typename T>
  int statusThrownBy(Task<T> task) {
    try {
      runVirtual(clock, std::move(task));
    } catch (const ITunesError& error) {
      return error.status();
    }
    return 0;
  }

  HandClock clock;
  ScriptedHttpClient http;
  double random = 0;
  CatalogClient client = clientWith({});
};

TEST_F(CatalogClientTest, AsksForExactlyTheseAddresses) {
  http.answer(enrichmentUrl(7), 200, kEmpty);
  EXPECT_EQ(runVirtual(clock, client.enrichment(7, "us", Platform::mac, {})), AppEnrichment{});
  http.answer(kCatalog + "de/apps/7/reviews?platform=ipad&limit=20&offset=40&l=en-US", 200,
              R"({"data":[],"next":"x"})");
  EXPECT_TRUE(runVirtual(clock, client.reviewsPage(7, "de", Platform::iphone, 20, 40, {})).hasMore);
  http.answer(kCatalog + "us/app-bundles?ids=9,8&platform=mac&include=apps&l=en-US", 200, kEmpty);
  runVirtual(clock, client.bundles({9, 8}, "us", {}));
  http.answer(kEditorial + "jp/editorial-items?ids=5,6&platform=ipad&l=en-US", 200, kEmpty);
  runVirtual(clock, client.stories({"5", "6"}, "jp", Platform::ipad, {}));
  http.answer(flagsUrl({1, 2}), 200, kEmpty);
  http.answer(flagsUrl({1, 2}), 200, R"({"data":[{"id":"2"}]})");
  runVirtual(clock, client.macCompatibilityFlags({1, 2}, "us", {}));
  EXPECT_EQ(runVirtual(clock, client.platformAttributes({1, 2}, "us", {})).size(), 1U);
  const std::string purchases =
      "us/apps?ids=1,2&platform=ipad&views=top-in-app-purchasables&l=en-US";
  http.answer(kCatalog + purchases, 200, kEmpty);
  runVirtual(clock, client.purchases({1, 2}, "us", Platform::iphone, {}));

  const std::vector<std::pair<std::string, std::string>> headers{
      {"User-Agent",
       "Mozilla/5.0 (Macintosh; Intel Mac OS X 10_15_7) AppleWebKit/605.1.15 (KHTML, like Gecko) "
       "Version/17.0 Safari/605.1.15"}};
  for (const auto& request : http.requests()) {
    const bool ofPurchases = request.url.ends_with(purchases);
    EXPECT_EQ(request.headers, headers) << request.url;
    EXPECT_EQ(request.idleTimeout, ofPurchases ? 60s : 20s) << request.url;
    EXPECT_EQ(request.cachePolicy, ofPurchases ? CachePolicy::ignore : CachePolicy::revalidate);
  }
}

TEST_F(CatalogClientTest, AsksForFiftyAtATimeInOrder) {
  const Ids ids = idsFrom(1, 120);
  for (const auto& [first, count] : {std::pair{1, 50}, {51, 50}, {101, 20}}) {
    const Ids batch = idsFrom(first, static_cast<std::size_t>(count));
    http.answer(flagsUrl(batch), 200, flagsOf(batch));
  }
  EXPECT_EQ(runVirtual(clock, client.macCompatibilityFlags(ids, "us", {})).size(), 120U);
  EXPECT_EQ(http.requests().size(), 3U);
}

TEST_F(CatalogClientTest, AsksNothingAboutNothing) {
  EXPECT_TRUE(runVirtual(clock, client.bundles({}, "us", {})).empty());
  EXPECT_TRUE(runVirtual(clock, client.stories({}, "us", Platform::mac, {})).empty());
  EXPECT_TRUE(runVirtual(clock, client.macCompatibilityFlags({}, "us", {})).empty());
  EXPECT_TRUE(runVirtual(clock, client.platformAttributes({}, "us", {})).empty());
  EXPECT_TRUE(runVirtual(clock, client.purchases({}, "us", Platform::mac, {})).empty());
}

TEST_F(CatalogClientTest, TriesAgainWithGrowingWaits) {
  const std::string url = enrichmentUrl(7);
  for (const auto& [draw, waits] : {std::pair{0.0, Waits{2000ms, 4000ms}},
                                    {0.5, Waits{2750ms, 4750ms}},
                                    {0.9999, Waits{3499ms, 5499ms}}}) {
    SCOPED_TRACE(draw);
    random = draw;
    const std::size_t before = clock.waits().size();
    http.answer(url, 429, "");
    http.answer(url, 500, "");
    http.answer(url, 503, "");
    EXPECT_EQ(statusThrownBy(client.enrichment(7, "us", Platform::mac, {})), 503);
    EXPECT_EQ(
        Waits(clock.waits().begin() + static_cast<std::ptrdiff_t>(before), clock.waits().end()),
        waits);
  }
  http.answer(url, 429, "");
  http.answer(url, 200, answerNamed("at last"));
  EXPECT_EQ(taglineOf(client, 7), "at last");
}

TEST_F(CatalogClientTest, GivesUpAtOnceWhereRetryingIsNoUse) {
  const std::string url = enrichmentUrl(7);
  for (const int status : {404, 403, 304}) {
    http.answer(url, status, "");
    EXPECT_EQ(statusThrownBy(client.enrichment(7, "us", Platform::mac, {})), status);
  }
  http.fail(url, NetworkError(NetworkError::Kind::cannotReach, "Connection refused"));
  EXPECT_THROW(taglineOf(client, 7), NetworkError);
  http.answer(url, 200, "<html>Sorry</html>");
  EXPECT_THROW(taglineOf(client, 7), DecodingError);
  http.answer(flagsUrl({1}), 503, "");
  EXPECT_EQ(statusThrownBy(client.macCompatibilityFlags({1}, "us", {})), 503);
  http.answer(flagsUrl({1}), 429, "");
  EXPECT_EQ(statusThrownBy(client.platformAttributes({1}, "us", {})), 429);
  EXPECT_TRUE(clock.waits().empty());
  http.answer(url, 200, answerNamed("nothing was kept"));
  EXPECT_EQ(taglineOf(client, 7), "nothing was kept");
}

TEST_F(CatalogClientTest, SendsNothingToAnAddressThatIsNone) {
  CatalogClient broken(http, clock, "https://apps example", [] { return 0.0; }, {});
  try {
    taglineOf(broken, 7);
    FAIL() << "no such address can be asked";
  } catch (const ITunesError& error) {
    EXPECT_EQ(error.kind(), ITunesError::Kind::invalidURL);
  }
}

TEST_F(CatalogClientTest, KeepsEnrichmentsByAppStorefrontAndPlatform) {
  http.answer(enrichmentUrl(7), 200, answerNamed("mac"));
  http.answer(enrichmentUrl(7, "ipad"), 200, answerNamed("iphone"));
  http.answer(enrichmentUrl(7, "ipad"), 200, answerNamed("ipad"));
  http.answer(enrichmentUrl(7, "mac", "de"), 200, answerNamed("mac in Germany"));
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(taglineOf(client, 7), "mac");
    EXPECT_EQ(taglineOf(client, 7, Platform::iphone), "iphone");
    EXPECT_EQ(taglineOf(client, 7, Platform::ipad), "ipad");
    EXPECT_EQ(taglineOf(client, 7, Platform::mac, "de"), "mac in Germany");
    clock.advance(1000h);
  }
}

TEST_F(CatalogClientTest, ForgetsByAgeAndByNumber) {
  CatalogClient small = clientWith({.age = 6h, .bound = 2});
  for (const int id : {1, 2, 3, 1}) http.answer(enrichmentUrl(id), 200, answerNamed("first"));
  for (const int id : {1, 2, 3}) taglineOf(small, id);
  taglineOf(small, 3);
  taglineOf(small, 2);
  taglineOf(small, 1);
  clock.advance(6h - 1ms);
  EXPECT_EQ(taglineOf(small, 1), "first");
  clock.advance(1ms);
  http.answer(enrichmentUrl(1), 200, answerNamed("six hours later"));
  EXPECT_EQ(taglineOf(small, 1), "six hours later");
}

TEST_F(CatalogClientTest, AsksOnlyForWhatIsNotKept) {
  const std::string bundles = "us/app-bundles?ids=9,8&platform=mac&include=apps&l=en-US";
  http.answer(kCatalog + bundles, 200, R"({"data":[{"id":"8"}]})");
  runVirtual(clock, client.bundles({9, 8}, "us", {}));
  EXPECT_EQ(runVirtual(clock, client.bundles({8, 9, 8}, "us", {})).size(), 1U);

  const std::string stories = kEditorial + "us/editorial-items?ids=";
  http.answer(stories + "1,2&platform=mac&l=en-US", 200, storiesOf({"2", "1"}));
  http.answer(stories + "4,3&platform=mac&l=en-US", 200, storiesOf({"3"}));
  runVirtual(clock, client.stories({"1", "2"}, "us", Platform::mac, {}));
  std::vector<std::string> found;
  const std::vector<std::string> asked{"4", "3", "2", "1"};
  for (const auto& story : runVirtual(clock, client.stories(asked, "us", Platform::mac, {})))
    found.push_back(story.id);
  EXPECT_EQ(found, (std::vector<std::string>{"3", "2", "1"}));

  http.answer(flagsUrl({1, 2}), 200, flagsOf({1}));
  http.answer(flagsUrl({2, 3}, "de"), 200, flagsOf({3}));
  runVirtual(clock, client.macCompatibilityFlags({1, 2}, "us", {}));
  EXPECT_EQ(runVirtual(clock, client.macCompatibilityFlags({1, 2, 3}, "de", {})),
            (std::map<std::int64_t, bool>{{1, true}, {3, true}}));
}

TEST_F(CatalogClientTest, TheLaterOfTwoAnswersAtOnceIsKept) {
  const std::string url = enrichmentUrl(7);
  http.hold(url);
  auto first = client.enrichment(7, "us", Platform::mac, {});
  auto second = client.enrichment(7, "us", Platform::mac, {});
  http.answer(url, 200, answerNamed("one"));
  http.answer(url, 200, answerNamed("two"));
  http.release(url);
  EXPECT_EQ(runVirtual(clock, std::move(first)).tagline, "one");
  EXPECT_EQ(runVirtual(clock, std::move(second)).tagline, "two");
  EXPECT_EQ(taglineOf(client, 7), "two");
}

TEST_F(CatalogClientTest, StopsWhileItWaitsToTryAgain) {
  StopSource source;
  http.answer(enrichmentUrl(7), 503, "");
  auto task = client.enrichment(7, "us", Platform::mac, source.token());
  handlePendingEvents();
  source.requestStop();
  try {
    runVirtual(clock, std::move(task));
    FAIL() << "a stopped request must not answer";
  } catch (const NetworkError& error) {
    EXPECT_EQ(error.kind(), NetworkError::Kind::cancelled);
  }
  EXPECT_EQ(clock.waits(), (Waits{2000ms}));
  EXPECT_EQ(clock.now(), Instant{});
}

}  // namespace
}  // namespace quillet

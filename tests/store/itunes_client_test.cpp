// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/itunes_client.h"

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

const std::string kEmpty = R"({"resultCount":0,"results":[]})";
const std::string kUrl =
    "https://store.example/search?term=a&entity=macSoftware&country=us&limit=5";

std::string answerOf(std::initializer_list<int> ids) {
  std::string apps;
  for (const int id : ids) {
    if (!apps.empty()) apps += ',';
    apps += fmt::format(R"({{"trackId":{},"trackName":"App {}"}})", id, id);
  }
  return fmt::format(R"({{"resultCount":{},"results":[{}]}})", ids.size(), apps);
}

class ITunesClientTest : public testing::Test {
 protected:
  std::vector<ITunesApp> search() {
    return runVirtual(clock, client.search("a", "us", Platform::mac, 5, {}));
  }

  HandClock clock;
  ScriptedHttpClient http;
  ITunesClient client{http, clock, "https://store.example"};
};

TEST_F(ITunesClientTest, AsksForExactlyTheseAddresses) {
  http.answer(
      "https://store.example/search?term=caf%C3%A9%20%26%20co%2B&entity=iPadSoftware"
      "&country=de&limit=200",
      200, kEmpty);
  runVirtual(clock, client.search("café & co+", "de", Platform::ipad, 200, {}));
  http.answer(
      "https://store.example/lookup?bundleId=com.example.a,com.example.b&country=jp"
      "&limit=200",
      200, kEmpty);
  runVirtual(clock, client.lookupBundles({"com.example.a", "com.example.b"}, "jp", {}));
  http.answer("https://store.example/lookup?id=77&entity=software&country=us&limit=200", 200,
              R"({"resultCount":3,"results":[{"wrapperType":"artist","artistId":77},)"
              R"({"trackId":1,"trackName":"One"},{"trackId":2,"trackName":"Two"}]})");
  EXPECT_EQ(runVirtual(clock, client.developerApps(77, Platform::iphone, "us", {})).size(), 2U);
  for (const auto& request : http.requests()) {
    EXPECT_EQ(request.idleTimeout, 20s);
    EXPECT_EQ(request.cachePolicy, CachePolicy::revalidate);
    EXPECT_TRUE(request.headers.empty());
  }
}

TEST_F(ITunesClientTest, LooksUpAHundredAtATimeInOrder) {
  std::vector<std::int64_t> ids(250);
  std::iota(ids.begin(), ids.end(), 1);
  const auto addressOf = [&](std::size_t from, std::size_t count) {
    return fmt::format("https://store.example/lookup?id={}&country=us",
                       fmt::join(std::span(ids).subspan(from, count), ","));
  };
  http.answer(addressOf(0, 100), 200, answerOf({3, 1}));
  http.answer(addressOf(100, 100), 200, answerOf({150}));
  http.answer(addressOf(200, 50), 200, answerOf({201}));
  std::vector<std::int64_t> found;
  for (const ITunesApp& app : runVirtual(clock, client.lookup(ids, "us", {}))) {
    found.push_back(app.trackId);
  }
  EXPECT_EQ(found, (std::vector<std::int64_t>{3, 1, 150, 201}));
  EXPECT_TRUE(runVirtual(clock, client.lookup({}, "us", {})).empty());
  EXPECT_TRUE(runVirtual(clock, client.lookupBundles({}, "us", {})).empty());
  EXPECT_EQ(http.requests().size(), 3U);
}

TEST_F(ITunesClientTest, TriesAgainAfterPassingFailures) {
  http.answer(kUrl, 503, "busy");
  http.fail(kUrl, NetworkError(NetworkError::Kind::cannotReach, "Connection refused"));
  http.answer(kUrl, 200, answerOf({1}));
  EXPECT_EQ(search().size(), 1U);
  EXPECT_EQ(clock.waits(), (Waits{1500ms, 3000ms}));
}

TEST_F(ITunesClientTest, ReportsTheLastOfThreeFailures) {
  http.answer(kUrl, 500, "");
  http.answer(kUrl, 502, "");
  http.answer(kUrl, 503, "");
  try {
    search();
    FAIL() << "three server errors must not pass";
  } catch (const ITunesError& error) {
    EXPECT_EQ(error.status(), 503);
    EXPECT_STREQ(error.what(), "Apple's server returned an error (HTTP 503).");
  }
  http.answer(kUrl, 503, "");
  http.answer(kUrl, 503, "");
  http.fail(kUrl, NetworkError(NetworkError::Kind::failed, "SSL handshake failed"));
  EXPECT_THROW(search(), NetworkError);
}

TEST_F(ITunesClientTest, GivesUpAtOnceWhereRetryingCannotHelp) {
  for (const int status : {429, 403, 404, 304}) {
    http.answer(kUrl, status, "");
    EXPECT_THROW(search(), ITunesError) << status;
  }
  for (const auto kind : {NetworkError::Kind::cancelled, NetworkError::Kind::notConnected,
                          NetworkError::Kind::tooLarge}) {
    http.fail(kUrl, NetworkError(kind, "no"));
    EXPECT_THROW(search(), NetworkError);
  }
  http.answer(kUrl, 200, "<html>Sorry</html>");
  EXPECT_THROW(search(), DecodingError);
  EXPECT_TRUE(clock.waits().empty());
}

TEST_F(ITunesClientTest, EveryTryTakesAPlaceOfTheBudget) {
  const auto begin = clock.monotonic();
  for (int i = 0; i < 14; ++i) {
    http.answer(kUrl, 200, kEmpty);
    search();
  }
  http.answer(kUrl, 503, "");
  http.answer(kUrl, 200, kEmpty);
  search();
  EXPECT_EQ(clock.monotonic() - begin, 60500ms);
}

TEST_F(ITunesClientTest, SendsNothingToAnAddressThatIsNone) {
  for (const char* address : {"https://store example", "https://a..b", "store.example"}) {
    ITunesClient broken(http, clock, address);
    try {
      runVirtual(clock, broken.search("a", "us", Platform::mac, 5, {}));
      FAIL() << address << " cannot be asked";
    } catch (const ITunesError& error) {
      EXPECT_EQ(error.kind(), ITunesError::Kind::invalidURL);
    }
  }
}

TEST_F(ITunesClientTest, AnswersInTheirOwnOrderReachTheirOwnCallers) {
  const std::string other =
      "https://store.example/search?term=b&entity=macSoftware&country=us&limit=5";
  http.answer(kUrl, 200, answerOf({1}));
  http.answer(other, 200, answerOf({2}));
  http.hold(kUrl);
  auto first = client.search("a", "us", Platform::mac, 5, {});
  auto second = client.search("b", "us", Platform::mac, 5, {});
  EXPECT_EQ(runVirtual(clock, std::move(second)).front().trackId, 2);
  http.release(kUrl);
  EXPECT_EQ(runVirtual(clock, std::move(first)).front().trackId, 1);
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/itunes_client.h"

#include <gtest/gtest.h>

#include <numeric>

#include "base/errors.h"
#include "store/records/itunes_error.h"
#include "support/fake_clock.h"
#include "support/message_of.h"
#include "support/run_virtual.h"
#include "support/scripted_http_client.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Ids = std::vector<std::int64_t>;

const std::string kStore = "https://store.example";
const std::string kUrl = kStore + "/search?term=a&entity=macSoftware&country=us&limit=5";

std::string answerOf(const Ids& ids) {
  std::vector<std::string> apps;
  for (const auto id : ids) apps.push_back(fmt::format(R"({{"trackId":{},"trackName":"n"}})", id));
  return fmt::format(R"({{"results":[{}]}})", fmt::join(apps, ","));
}

class ITunesClientTest : public testing::Test {
 protected:
  /// The IDs that a task finds.
  Ids found(Task<std::vector<ITunesApp>> task) {
    Ids ids;
    for (const ITunesApp& app : runVirtual(clock, std::move(task))) ids.push_back(app.trackId);
    return ids;
  }
  Ids search() { return found(client.search("a", "us", Platform::mac, 5, {})); }

  FakeClock clock;
  ScriptedHttpClient http;
  ITunesClient client{http, clock, kStore};
};

TEST_F(ITunesClientTest, AsksForExactlyTheseAddresses) {
  http.answer(
      kStore + "/search?term=caf%C3%A9%20%26%20co%2B&entity=iPadSoftware&country=de&limit=9", 200,
      answerOf({}));
  EXPECT_EQ(found(client.search("café & co+", "de", Platform::ipad, 9, {})), Ids{});
  http.answer(kStore + "/lookup?bundleId=com.example.a,com.example.b&country=jp&limit=200", 200,
              answerOf({5}));
  EXPECT_EQ(found(client.lookupBundles({"com.example.a", "com.example.b"}, "jp", {})), Ids{5});
  http.answer(kStore + "/lookup?id=77&entity=software&country=us&limit=200", 200, answerOf({1, 2}));
  EXPECT_EQ(found(client.developerApps(77, Platform::iphone, "us", {})), (Ids{1, 2}));
  for (const auto& request : http.requests()) {
    EXPECT_EQ(request.idleTimeout, 20s);
    EXPECT_EQ(request.cachePolicy, CachePolicy::revalidate);
    EXPECT_TRUE(request.headers.empty());
  }
}

TEST_F(ITunesClientTest, LooksUpAHundredAtATimeInOrder) {
  Ids ids(150);
  std::iota(ids.begin(), ids.end(), 1);
  const std::span all(ids);
  http.answer(fmt::format("{}/lookup?id={}&country=us", kStore, fmt::join(all.first(100), ",")),
              200, answerOf({3, 1}));
  http.answer(fmt::format("{}/lookup?id={}&country=us", kStore, fmt::join(all.last(50), ",")), 200,
              answerOf({150}));
  EXPECT_EQ(found(client.lookup(ids, "us", {})), (Ids{3, 1, 150}));
  EXPECT_EQ(found(client.lookupBundles({}, "us", {})), Ids{});
}

TEST_F(ITunesClientTest, TriesThreeTimesAfterPassingFailures) {
  http.answer(kUrl, 503, "busy");
  http.fail(kUrl, NetworkError(NetworkError::Kind::cannotReach, "Connection refused"));
  http.answer(kUrl, 200, answerOf({1}));
  EXPECT_EQ(search(), Ids{1});
  EXPECT_EQ(clock.waits(), (std::vector<std::chrono::milliseconds>{1500ms, 3000ms}));
  for (const int status : {500, 502, 503}) http.answer(kUrl, status, "");
  EXPECT_EQ(messageOf<ITunesError>([&] { search(); }),
            "Apple's server returned an error (HTTP 503).");
  for (const int status : {500, 502}) http.answer(kUrl, status, "");
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
    http.answer(kUrl, 200, answerOf({}));
    search();
  }
  http.answer(kUrl, 503, "");
  http.answer(kUrl, 200, answerOf({}));
  search();
  EXPECT_EQ(clock.monotonic() - begin, 60500ms);
}

TEST_F(ITunesClientTest, SendsNothingToAnAddressThatIsNone) {
  for (const char* address : {"https://store example", "https://a..b", "store.example"}) {
    ITunesClient broken(http, clock, address);
    EXPECT_THROW(found(broken.lookup({1}, "us", {})), ITunesError) << address;
  }
}

}  // namespace
}  // namespace quillet

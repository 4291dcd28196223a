// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <filesystem>
#include <string>

#include "net/qt_http_client.h"
#include "net/run_task.h"
#include "publisher/gzip_file.h"
#include "support/http_test_server.h"

namespace quillet {
namespace {

using Connection = HttpTestServer::Connection;
using Request = HttpTestServer::Request;
using Headers = HttpTestServer::Headers;

class HttpCacheTest : public testing::Test {
 protected:
  HttpResponse get(CachePolicy policy = CachePolicy::revalidate) { return getWith(client, policy); }

  HttpResponse getWith(QtHttpClient& asker, CachePolicy policy = CachePolicy::revalidate,
                       Inflation inflation = Inflation::automatic) const {
    HttpRequest request;
    request.url = server.url("/kept");
    request.cachePolicy = policy;
    request.inflation = inflation;
    return runTask(asker.get(std::move(request), {}));
  }

  /// Serves `body` under the validator `tag`; whoever holds that already is told so.
  void serveTagged(const std::string& tag, const std::string& body, Headers headers = {}) {
    headers.emplace_back("ETag", tag);
    headers.emplace_back("Cache-Control", "max-age=86400");
    const std::string same = HttpTestServer::head(304, headers);
    headers.emplace_back("Content-Length", std::to_string(body.size()));
    const std::string whole = HttpTestServer::head(200, headers) + body;
    server.on("/kept", [tag, same, whole](const Connection& to, const Request& request) {
      to.send(request.header("if-none-match") == tag ? same : whole);
    });
  }

  /// The validator that came with the last request.
  std::string lastValidator() { return server.requests("/kept").back().header("if-none-match"); }

  /// Asks; this is answered, after a question with this validator.
  void expectAnswer(CachePolicy policy, const char* body, const char* validator) {
    EXPECT_EQ(get(policy).body, body);
    EXPECT_EQ(lastValidator(), validator) << body;
  }

  QTemporaryDir directory;
  std::filesystem::path cachePath = directory.path().toStdString() + "/made/on demand";
  HttpTestServer server;
  QtHttpClient client{cachePath};
};

TEST_F(HttpCacheTest, AsksEachTimeAndKeepsWhatTheServerConfirms) {
  serveTagged("\"a\"", "first");
  const HttpResponse first = get();
  EXPECT_EQ(first.body, "first");
  EXPECT_EQ(first.source, BodySource::network);
  EXPECT_EQ(first.received, 5U);
  EXPECT_EQ(lastValidator(), "");

  QtHttpClient later(cachePath);  // as the next run of the program
  for (QtHttpClient* asker : {&client, &later, &client}) {
    const HttpResponse confirmed = getWith(*asker);
    EXPECT_EQ(confirmed.status, 200);
    EXPECT_EQ(confirmed.body, "first");
    EXPECT_EQ(confirmed.source, BodySource::cache);
    EXPECT_EQ(confirmed.received, 0U);
    EXPECT_EQ(lastValidator(), "\"a\"");
  }

  serveTagged("\"b\"", "second");
  expectAnswer(CachePolicy::revalidate, "second", "\"a\"");
  expectAnswer(CachePolicy::revalidate, "second", "\"b\"");
}

TEST_F(HttpCacheTest, AnErrorOfTheServerIsNoneOfTheConnection) {
  serveTagged("\"a\"", "first");
  EXPECT_EQ(get().body, "first");
  for (const int status : {500, 502, 503, 404}) {
    server.on("/kept", [status](const Connection& to, const Request&) {
      to.send(HttpTestServer::head(status, {{"Content-Length", "0"}}));
    });
    EXPECT_EQ(get().status, status);
  }
}

TEST_F(HttpCacheTest, IgnoreNeitherReadsNorWrites) {
  serveTagged("\"a\"", "first");
  expectAnswer(CachePolicy::ignore, "first", "");
  expectAnswer(CachePolicy::revalidate, "first", "");
  serveTagged("\"b\"", "second");
  expectAnswer(CachePolicy::ignore, "second", "");
  serveTagged("\"a\"", "first");
  expectAnswer(CachePolicy::revalidate, "first", "\"a\"");
}

TEST_F(HttpCacheTest, RenewReplacesWhatIsKept) {
  serveTagged("\"a\"", "first");
  expectAnswer(CachePolicy::revalidate, "first", "");
  serveTagged("\"b\"", "second");
  expectAnswer(CachePolicy::renew, "second", "");
  expectAnswer(CachePolicy::revalidate, "second", "\"b\"");
}

TEST_F(HttpCacheTest, KeptGzipComesBackAsTheServerWouldSendIt) {
  const std::string packed = gzipped("packed text");
  serveTagged("\"z\"", packed, {{"Content-Encoding", "gzip"}});
  for (const char* validator : {"", "\"z\"", "\"z\""}) {
    expectAnswer(CachePolicy::revalidate, "packed text", validator);
    EXPECT_EQ(getWith(client, CachePolicy::revalidate, Inflation::none).body, packed);
  }
}

TEST_F(HttpCacheTest, AnEntryLostWhileTheServerConfirmsItIsFetchedAgain) {
  serveTagged("\"a\"", "first");
  EXPECT_EQ(get().body, "first");
  server.on("/kept", [this](const Connection& to, const Request& request) {
    const bool asksForChange = request.headers.contains("if-none-match");
    if (asksForChange) std::filesystem::remove_all(cachePath);
    to.send(asksForChange ? HttpTestServer::head(304, {{"ETag", "\"a\""}})
                          : HttpTestServer::head(200, {{"Content-Length", "5"}}) + "again");
  });
  const HttpResponse response = get();
  EXPECT_EQ(response.status, 200);
  EXPECT_EQ(response.body, "again");
}

TEST_F(HttpCacheTest, AnswersWhereNothingCanBeKept) {
  serveTagged("\"a\"", "first");
  QtHttpClient keepless("/dev/null/cache");
  for (int round = 0; round < 2; ++round) EXPECT_EQ(getWith(keepless).body, "first");
  EXPECT_EQ(lastValidator(), "");
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/qt_http_client.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "base/errors.h"
#include "net/run_task.h"
#include "publisher/gzip_file.h"
#include "support/http_test_server.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Connection = HttpTestServer::Connection;
using Request = HttpTestServer::Request;
using Kind = NetworkError::Kind;

constexpr auto patience = 200ms;
constexpr std::size_t mebibyte = std::size_t{1024} * 1024;

class QtHttpClientTest : public testing::Test {
 protected:
  /// A request for `url` (or a path of the server) that does not wait long.
  HttpRequest request(const std::string& url) const {
    HttpRequest result;
    result.url = url.starts_with('/') ? server.url(url) : url;
    return result;
  }

  HttpResponse get(HttpRequest question, StopToken stop = {}) {
    return runTask(client.get(std::move(question), std::move(stop)));
  }

  /// What get() throws.
  NetworkError errorOf(HttpRequest question, StopToken stop = {}) {
    try {
      const HttpResponse response = get(std::move(question), std::move(stop));
      ADD_FAILURE() << "answered with " << response.status << " " << response.body.size();
    } catch (const NetworkError& error) {
      return error;
    }
    return {Kind::failed, "no error"};
  }

  HttpTestServer server;
  QtHttpClient client{{}};
};

TEST_F(QtHttpClientTest, AnAnswerIsAnAnswerWhateverItsStatus) {
  for (const int status : {201, 304, 401, 404, 429, 503}) {
    const std::string path = "/" + std::to_string(status);
    const std::string body = status == 304 ? "" : "body of " + path;
    server.serve(path, status, body);
    const HttpResponse response = get(request(path));
    EXPECT_EQ(response.status, status);
    EXPECT_EQ(response.body, body);
  }
}

TEST_F(QtHttpClientTest, TransfersWithoutAWholeAnswerAreErrors) {
  struct Row {
    const char* situation;
    HttpTestServer::Handler handler;
    Kind kind;
    const char* text;
  };
  const std::string cut = HttpTestServer::head(200, {{"Content-Length", "100"}}) + "only this";
  const std::string cutChunk =
      HttpTestServer::head(200, {{"Transfer-Encoding", "chunked"}}) + "20\r\nonly this";
  const std::string packedHead =
      HttpTestServer::head(200, {{"Content-Encoding", "gzip"}, {"Content-Length", "20"}});
  const std::string noGzip = packedHead + "no gzip, only a text";
  const std::string cutGzip = packedHead + gzipped("the plain text").substr(0, 20);
  const Row rows[] = {
      {"closed before an answer", [](const Connection&, const Request&) {}, Kind::cannotReach,
       "The connection was lost"},
      {"truncated", [=](const Connection& to, const Request&) { to.send(cut); }, Kind::cannotReach,
       "The connection was lost"},
      {"truncated chunk", [=](const Connection& to, const Request&) { to.send(cutChunk); },
       Kind::cannotReach, "The connection was lost"},
      {"no HTTP", [](const Connection& to, const Request&) { to.send("garbage\n\n"); },
       Kind::cannotReach, "The connection was lost"},
      {"stalled before the head", [](const Connection& to, const Request&) { to.stall(); },
       Kind::cannotReach, "The request timed out"},
      {"stalled in the body",
       [=](const Connection& to, const Request&) {
         to.send(cut);
         to.stall();
       },
       Kind::cannotReach, "The request timed out"},
      {"no gzip", [=](const Connection& to, const Request&) { to.send(noGzip); }, Kind::failed,
       "The answer could not be decompressed"},
      {"cut gzip", [=](const Connection& to, const Request&) { to.send(cutGzip); }, Kind::failed,
       "The answer could not be decompressed"},
  };
  for (const Row& row : rows) {
    server.on("/broken", row.handler);
    HttpRequest question = request("/broken");
    question.idleTimeout = patience;
    const NetworkError error = errorOf(question);
    EXPECT_EQ(error.kind(), row.kind) << row.situation;
    EXPECT_TRUE(std::string(error.what()).starts_with(row.text)) << row.situation << error.what();
  }
}

TEST_F(QtHttpClientTest, ALargeBodyThatIsCutIsNeverAWholeOne) {
  // A connection that was to be kept open: Qt takes its loss for the end in about half the tries.
  server.on("/half", [](const Connection& to, const Request&) {
    to.send("HTTP/1.1 200 OK\r\nContent-Length: 485251\r\n\r\n" + std::string(242625, ' '));
  });
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(errorOf(request("/half")).kind(), Kind::cannotReach);
  }
}

TEST_F(QtHttpClientTest, RefusedAndUnusableAddresses) {
  const NetworkError refused = errorOf(request(HttpTestServer::refusedUrl()));
  EXPECT_EQ(refused.kind(), Kind::cannotReach);
  EXPECT_STREQ(refused.what(), "Connection refused");

  for (const char* url : {"", "store.example/1", "ftp://store.example/", "http://", "http://[::1",
                          "data:text/plain,1", "http://store.example:99999/"}) {
    const NetworkError error = errorOf(request(url));
    EXPECT_EQ(error.kind(), Kind::failed) << url;
    EXPECT_EQ(error.what(), "\"" + std::string(url) + "\" is not a usable address");
  }
}

TEST_F(QtHttpClientTest, WaitingForAConnectionOrADrippingAnswerIsNoTimeOut) {
  server.on("/drip", [](const Connection& to, const Request&) {
    to.send(HttpTestServer::head(200, {{"Content-Length", "15"}}));
    to.drip("fifteen letters", 20ms);
  });
  HttpRequest question = request("/drip");
  question.idleTimeout = patience;
  std::vector<Task<HttpResponse>> underWay;
  for (int i = 0; i < 13; ++i) underWay.push_back(client.get(question, {}));
  for (auto& task : underWay) EXPECT_EQ(runTask(std::move(task)).body, "fifteen letters");
}

TEST_F(QtHttpClientTest, AnErrorStatusIsAnAnswerEvenWhenItsBodyIsLost) {
  server.on("/lost", [](const Connection& to, const Request&) {
    to.send(HttpTestServer::head(503, {{"Content-Length", "100"}}) + "busy");
    to.stall();
  });
  HttpRequest question = request("/lost");
  question.idleTimeout = patience;
  const HttpResponse response = get(question);
  EXPECT_EQ(response.status, 503);
  EXPECT_EQ(response.body, "busy");
}

TEST_F(QtHttpClientTest, FollowsFiveRedirectsAndNoMore) {
  for (int i = 0; i < 6; ++i) {
    server.redirect("/hop" + std::to_string(i), "/hop" + std::to_string(i + 1));
  }
  server.serve("/hop6", 200, "arrived");
  server.redirect("/circle", "/circle");
  server.redirect("/away", "ftp://store.example/");
  server.redirect("/into", "file:///kept/here");
  const HttpResponse arrived = get(request("/hop1"));
  EXPECT_EQ(arrived.body, "arrived");
  EXPECT_EQ(arrived.redirectedTo, server.url("/hop6"));
  EXPECT_STREQ(errorOf(request("/hop0")).what(), "Too many redirects");
  EXPECT_EQ(server.requests("/hop6").size(), 1U);
  for (const char* path : {"/hop0", "/circle", "/away", "/into"}) {
    EXPECT_EQ(errorOf(request(path)).kind(), Kind::failed) << path;
  }
}

TEST_F(QtHttpClientTest, EndsAtTheLimitWhileTheBodyStreams) {
  server.on("/stream", [](const Connection& to, const Request&) {
    const std::string piece(mebibyte, 'x');
    to.send(HttpTestServer::head(200, {}));
    for (int i = 0; i < 70 && to.send(piece); ++i) {
    }
    to.stall();  // only an abort ends it
  });
  const NetworkError error = errorOf(request("/stream"));
  EXPECT_EQ(error.kind(), Kind::tooLarge);
  EXPECT_STREQ(error.what(), "The answer is larger than 64 MiB");
}

TEST_F(QtHttpClientTest, TheLimitCountsInflatedBytesToTheLast) {
  const std::string plain(20 * mebibyte, '\0');
  server.serve("/packed", 200, gzipped(plain), {{"Content-Encoding", "gzip"}});
  HttpRequest question = request("/packed");
  question.bodyLimit = plain.size();
  EXPECT_EQ(get(question).body, plain);
  EXPECT_EQ(server.requests("/packed").at(0).headers["accept-encoding"], "gzip");
  question.bodyLimit = plain.size() - 1;
  EXPECT_EQ(errorOf(question).kind(), Kind::tooLarge);
}

TEST_F(QtHttpClientTest, SendsTheHeadersOfTheRequestAndTheAddressAsItIs) {
  const std::string path = "/a%2Fb?term=caf%C3%A9%20%26+x&limit=5";
  server.serve(path, 200, "found");
  HttpRequest question = request(path);
  question.headers = {{"X-Storefront", "143441-1,29"}, {"User-Agent", "Sample/1.0"}};
  EXPECT_EQ(get(question).body, "found");
  auto sent = server.requests(path).at(0).headers;
  EXPECT_EQ(sent["x-storefront"], "143441-1,29");
  EXPECT_EQ(sent["user-agent"], "Sample/1.0");
}

TEST_F(QtHttpClientTest, KeepsNoCookies) {
  server.serve("/jar", 200, "", {{"Set-Cookie", "visitor=1; Path=/"}});
  get(request("/jar"));
  get(request("/jar"));
  EXPECT_EQ(server.requests("/jar").at(1).headers.count("cookie"), 0U);
}

TEST_F(QtHttpClientTest, AStopBeforeTheStartSendsNothing) {
  StopSource source;
  source.requestStop();
  server.serve("/1", 200, "one");
  EXPECT_EQ(errorOf(request("/1"), source.token()).kind(), Kind::cancelled);
  EXPECT_TRUE(server.requests("/1").empty());
}

TEST_F(QtHttpClientTest, StopsOneOfTwoInFlight) {
  StopSource source;
  server.on("/stalled", [](const Connection& to, const Request&) {
    to.send(HttpTestServer::head(200, {}) + "a beginning");
    to.stall();
  });
  server.on("/other", [](const Connection& to, const Request&) {
    to.send(HttpTestServer::head(200, {{"Content-Length", "5"}}));
    to.drip("other", 5ms);
  });
  auto stalled = client.get(request("/stalled"), source.token());
  auto other = client.get(request("/other"), {});
  EXPECT_EQ(get(request("/missing")).status, 404);  // both are under way by now
  source.requestStop();
  EXPECT_FALSE(stalled.isReady()) << "resumed inside requestStop()";
  try {
    runTask(std::move(stalled));
    ADD_FAILURE() << "nothing was thrown";
  } catch (const NetworkError& error) {
    EXPECT_EQ(error.kind(), Kind::cancelled);
  }
  EXPECT_EQ(runTask(std::move(other)).body, "other");
}

TEST_F(QtHttpClientTest, AnswersForFilesAsAServerWould) {
  const std::string path = testing::TempDir() + "quillet net file.txt";
  std::ofstream(path) << "kept here";
  const HttpResponse found =
      get(request("file://" + testing::TempDir() + "quillet%20net%20file.txt"));
  EXPECT_EQ(found.status, 200);
  EXPECT_EQ(found.body, "kept here");
  EXPECT_EQ(get(request("file://" + testing::TempDir() + "quillet-none.txt")).status, 404);
  EXPECT_EQ(errorOf(request("file://" + testing::TempDir())).kind(), Kind::failed);
}

}  // namespace
}  // namespace quillet

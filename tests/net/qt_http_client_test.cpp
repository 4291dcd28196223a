// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/qt_http_client.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <future>
#include <random>
#include <string>
#include <vector>

#include "base/errors.h"
#include "net/run_task.h"
#include "publisher/gzip_file.h"
#include "support/http_test_server.h"
#include "support/message_of.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Connection = HttpTestServer::Connection;
using Request = HttpTestServer::Request;
using Kind = NetworkError::Kind;
using std::chrono::milliseconds;

constexpr std::size_t mebibyte = std::size_t{1024} * 1024;

enum class Then { close, stall };

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

  /// A request for what sends `bytes`.
  HttpRequest requestFor(const std::string& bytes, Then then, milliseconds idleTimeout = 200ms) {
    server.on("/raw", [bytes, then](const Connection& to, const Request&) {
      to.send(bytes);
      if (then == Then::stall) to.stall();
    });
    HttpRequest question = request("/raw");
    question.idleTimeout = idleTimeout;
    return question;
  }

  HttpTestServer server;
  QtHttpClient client{{}};
};

TEST_F(QtHttpClientTest, TransfersWithoutAWholeAnswerAreErrors) {
  const auto cut = HttpTestServer::head(200, {{"Content-Length", "100"}}) + "only this";
  const auto chunked = HttpTestServer::head(200, {{"Transfer-Encoding", "chunked"}});
  const auto packed =
      HttpTestServer::head(200, {{"Content-Encoding", "gzip"}, {"Content-Length", "20"}});
  const char* const lost = "The connection was lost";
  const char* const late = "The request timed out";
  const char* const unreadable = "The answer could not be decompressed";
  const struct {
    const char* situation;
    std::string bytes;
    Then then;
    Kind kind;
    const char* text;
  } rows[] = {
      {"closed before an answer", "", Then::close, Kind::cannotReach, lost},
      {"truncated", cut, Then::close, Kind::cannotReach, lost},
      {"truncated chunk", chunked + "20\r\nonly this", Then::close, Kind::cannotReach, lost},
      {"no HTTP", "garbage\n\n", Then::close, Kind::cannotReach, lost},
      {"stalled before the head", "", Then::stall, Kind::cannotReach, late},
      {"stalled in the body", cut, Then::stall, Kind::cannotReach, late},
      {"no gzip", packed + "no gzip, only a text", Then::close, Kind::failed, unreadable},
      {"cut gzip", packed + gzipped("text").substr(0, 20), Then::close, Kind::failed, unreadable},
  };
  for (const auto& row : rows) {
    const NetworkError error = errorOf(requestFor(row.bytes, row.then));
    EXPECT_EQ(error.kind(), row.kind) << row.situation;
    EXPECT_STREQ(error.what(), row.text) << row.situation;
  }
}

TEST_F(QtHttpClientTest, ALargeBodyThatIsCutIsNeverAWholeOne) {
  // A connection that was to be kept open: Qt takes its loss for the end in about half the tries.
  const HttpRequest half = requestFor(
      "HTTP/1.1 200 OK\r\nContent-Length: 485251\r\n\r\n" + std::string(242625, ' '), Then::close);
  for (int i = 0; i < 20; ++i) EXPECT_EQ(errorOf(half).kind(), Kind::cannotReach);
}

TEST_F(QtHttpClientTest, RefusedAndUnusableAddresses) {
  EXPECT_STREQ(errorOf(request("http://127.0.0.1:1/")).what(), "Connection refused");
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
  question.idleTimeout = 200ms;
  std::vector<Task<HttpResponse>> underWay;
  for (int i = 0; i < 13; ++i) underWay.push_back(client.get(question, {}));
  for (auto& task : underWay) EXPECT_EQ(runTask(std::move(task)).body, "fifteen letters");
}

TEST_F(QtHttpClientTest, ADrippingAnswerEndsWithTheRequestsTime) {
  const auto head = HttpTestServer::head(200, {{"Transfer-Encoding", "chunked"}}) + "1000\r\n";
  const std::pair<std::string, std::string> rows[] = {
      {head, std::string(1000, ' ')},
      {"", head + std::string(1000, ' ')},
  };
  for (const auto& [atOnce, oneByOne] : rows) {
    server.on("/drip", [atOnce, oneByOne](const Connection& to, const Request&) {
      to.send(atOnce);
      to.drip(oneByOne, 20ms);
    });
    HttpRequest question = request("/drip");
    question.totalTimeout = 300ms;
    const NetworkError error = errorOf(question);
    EXPECT_EQ(error.kind(), Kind::cannotReach);
    EXPECT_STREQ(error.what(), "The request timed out");
  }
}

TEST_F(QtHttpClientTest, AnErrorStatusIsAnAnswerEvenWhenItsBodyIsLost) {
  const HttpResponse response =
      get(requestFor(HttpTestServer::head(503, {{"Content-Length", "100"}}) + "busy", Then::stall));
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
  const std::string endless(70 * mebibyte, 'x');
  const NetworkError error =
      errorOf(requestFor(HttpTestServer::head(200, {}) + endless, Then::stall, 30s));
  EXPECT_STREQ(error.what(), "The answer is larger than 64 MiB");
}

TEST_F(QtHttpClientTest, ReadsNoFurtherAheadThanItsLimitAsksFor) {
  constexpr std::size_t limit = 4 * mebibyte;
  constexpr std::size_t inSockets = 16 * mebibyte;
  for (int round = 0; round < 5; ++round) {  // whoever reads ahead does so in most of them
    const auto sent = std::make_shared<std::promise<std::size_t>>();
    server.on("/endless", [sent](const Connection& to, const Request&) {
      const std::string piece = "100000\r\n" + std::string(mebibyte, 'x') + "\r\n";
      std::size_t count = 0;
      to.send(HttpTestServer::head(200, {{"Transfer-Encoding", "chunked"}}));
      while (count < 128 && to.send(piece)) ++count;
      sent->set_value(count * mebibyte);
    });
    HttpRequest question = request("/endless");
    question.bodyLimit = limit;
    EXPECT_EQ(errorOf(question).kind(), Kind::tooLarge);
    EXPECT_LE(sent->get_future().get(), limit + inSockets);
  }
}

TEST_F(QtHttpClientTest, TheLimitCountsPackedBytesToo) {
  std::string noise(mebibyte, '\0');
  std::generate(noise.begin(), noise.end(),
                [random = std::minstd_rand()]() mutable { return static_cast<char>(random()); });
  const std::string packed = gzipped(noise);
  server.serve("/packed", 200, packed, {{"Content-Encoding", "gzip"}});
  HttpRequest question = request("/packed");
  question.bodyLimit = packed.size();
  EXPECT_EQ(get(question).body, noise);
  question.bodyLimit = packed.size() - 1;
  EXPECT_EQ(errorOf(question).kind(), Kind::tooLarge);
}

TEST_F(QtHttpClientTest, TheLimitCountsInflatedBytesToTheLast) {
  const std::string plain(20 * mebibyte, '\0');
  server.serve("/packed", 200, gzipped(plain), {{"Content-Encoding", "gzip"}});
  HttpRequest question = request("/packed");
  question.bodyLimit = plain.size();
  EXPECT_EQ(get(question).body, plain);
  EXPECT_EQ(server.requests("/packed").at(0).header("accept-encoding"), "gzip");
  question.bodyLimit = plain.size() - 1;
  EXPECT_EQ(errorOf(question).kind(), Kind::tooLarge);
}

TEST_F(QtHttpClientTest, SendsTheHeadersOfTheRequestTheAddressAsItIsAndNoCookies) {
  const std::string path = "/a%2Fb?term=caf%C3%A9%20%26+x&limit=5";
  server.serve(path, 200, "found", {{"Set-Cookie", "visitor=1; Path=/"}});
  HttpRequest question = request(path);
  question.headers = {{"X-Storefront", "143441-1,29"}, {"User-Agent", "Sample/1.0"}};
  for (int i = 0; i < 2; ++i) EXPECT_EQ(get(question).body, "found");
  const Request sent = server.requests(path).at(1);
  EXPECT_EQ(sent.header("x-storefront"), "143441-1,29");
  EXPECT_EQ(sent.header("user-agent"), "Sample/1.0");
  EXPECT_EQ(sent.header("cookie"), "");
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
  server.on("/other", [](const Connection& to, const Request&) {
    to.send(HttpTestServer::head(200, {{"Content-Length", "5"}}));
    to.drip("other", 5ms);
  });
  HttpRequest stalling =
      requestFor(HttpTestServer::head(200, {}) + "a beginning", Then::stall, 30s);
  auto stalled = client.get(stalling, source.token());
  auto other = client.get(request("/other"), {});
  EXPECT_EQ(get(request("/missing")).status, 404);  // both are under way by now
  source.requestStop();
  EXPECT_FALSE(stalled.isReady()) << "resumed inside requestStop()";
  EXPECT_EQ(messageOf<NetworkError>([&] { runTask(std::move(stalled)); }), "Cancelled");
  EXPECT_EQ(runTask(std::move(other)).body, "other");
}

TEST_F(QtHttpClientTest, AnswersForFilesAsAServerWould) {
  const std::string path = testing::TempDir() + "quillet net file.txt";
  std::ofstream(path) << "kept here";
  const std::string folder = "file://" + testing::TempDir();
  const HttpResponse found = get(request(folder + "quillet%20net%20file.txt"));
  EXPECT_EQ(found.status, 200);
  EXPECT_EQ(found.body, "kept here");
  EXPECT_EQ(get(request(folder + "quillet-none.txt")).status, 404);
  EXPECT_EQ(errorOf(request(folder)).kind(), Kind::failed);
}

}  // namespace
}  // namespace quillet

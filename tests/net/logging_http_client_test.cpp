// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/logging_http_client.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "support/run_virtual.h"
#include "support/scripted_http_client.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Kind = NetworkError::Kind;

class LoggingHttpClientTest : public testing::Test {
 protected:
  /// Asks for `url`, whose answer comes after `delay`, and returns the lines written.
  std::string linesOf(const std::string& url, Clock::Monotonic::duration delay = 0ms) {
    lines.clear();
    network.hold(url);
    const Task<> asking = ask(&client, url);
    clock.advance(delay);
    network.release(url);
    handlePendingEvents();
    return lines;
  }

  static Task<> ask(HttpClient* client, std::string url) {
    try {
      const HttpRequest request{.url = std::move(url), .headers = {{"Authorization", "secret"}}};
      co_await client->get(request, {});
    } catch (const NetworkError&) {
      co_return;  // told by the line
    }
  }

  std::string lines;
  HandClock clock;
  ScriptedHttpClient network;
  LoggingHttpClient client{network, clock, [this](const auto& line) { lines += line + '\n'; }};
};

TEST_F(LoggingHttpClientTest, TellsOfEachAnswer) {
  struct Row {
    HttpResponse response;
    Clock::Monotonic::duration delay;
    const char* line;
  };
  const std::string url = "https://store.example/search?term=a%20b";
  const Row rows[] = {
      {{200, "unpacked", BodySource::network, 12345, ""},
       143ms,
       "net 200    143 ms     12345 B network     https://store.example/search?term=a%20b\n"},
      {{200, "kept", BodySource::cache, 0, ""},
       0ms,
       "net 200      0 ms         0 B cache       https://store.example/search?term=a%20b\n"},
      {{404, "", BodySource::file, 0, ""},
       1ms,
       "net 404      1 ms         0 B file        https://store.example/search?term=a%20b\n"},
      {{503, "x", BodySource::network, 123456789, "http://b.example/"},
       100s,
       "net 503 100000 ms 123456789 B network     "
       "https://store.example/search?term=a%20b -> http://b.example/\n"},
  };
  for (const Row& row : rows) {
    network.answer(url, row.response);
    EXPECT_EQ(linesOf(url, row.delay), row.line);
  }
}

TEST_F(LoggingHttpClientTest, TellsOfEachFailureAndPassesItOn) {
  struct Row {
    Kind kind;
    const char* line;
  };
  const Row rows[] = {
      {Kind::cancelled, "net   -     20 ms         - B cancelled   https://a/ Too bad\n"},
      {Kind::notConnected, "net   -     20 ms         - B offline     https://a/ Too bad\n"},
      {Kind::cannotReach, "net   -     20 ms         - B unreachable https://a/ Too bad\n"},
      {Kind::tooLarge, "net   -     20 ms         - B too-large   https://a/ Too bad\n"},
      {Kind::failed, "net   -     20 ms         - B failed      https://a/ Too bad\n"},
  };
  for (const Row& row : rows) {
    network.fail("https://a/", NetworkError(row.kind, "Too bad"));
    EXPECT_EQ(linesOf("https://a/", 20ms), row.line);
  }
  network.fail("https://a/", NetworkError(Kind::failed, "Too bad"));
  EXPECT_THROW(runVirtual(clock, client.get({.url = "https://a/"}, {})), NetworkError);
}

}  // namespace
}  // namespace quillet

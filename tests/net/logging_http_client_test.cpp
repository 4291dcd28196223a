// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/logging_http_client.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "base/errors.h"
#include "support/message_of.h"
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
    Task<HttpResponse> asking = client.get({.url = url, .headers = {{"Authorization", "x"}}}, {});
    clock.advance(delay);
    network.release(url);
    messageOf<NetworkError>([&] { runVirtual(clock, std::move(asking)); });
    return lines;
  }

  std::string lines;
  FakeClock clock;
  ScriptedHttpClient network;
  LoggingHttpClient client{network, clock, [this](const auto& line) { lines += line + '\n'; }};
};

TEST_F(LoggingHttpClientTest, TellsOfEachAnswer) {
  const std::string url = "https://store.example/search?term=a%20b";
  const std::tuple<HttpResponse, Clock::Monotonic::duration, std::string> rows[] = {
      {{200, "", BodySource::network, 12345, ""}, 143ms, "200    143 ms     12345 B network     "},
      {{200, "", BodySource::cache, 0, ""}, 0ms, "200      0 ms         0 B cache       "},
      {{404, "", BodySource::file, 0, ""}, 1ms, "404      1 ms         0 B file        "},
      {{503, "", {}, 123456789, ""}, 100s, "503 100000 ms 123456789 B network     "},
  };
  for (const auto& [response, delay, line] : rows) {
    network.answer(url, response);
    EXPECT_EQ(linesOf(url, delay), "net " + line + url + '\n');
  }
  network.answer(url, {200, "", BodySource::network, 1, "http://b.example/"});
  EXPECT_TRUE(linesOf(url).ends_with("a%20b -> http://b.example/\n")) << lines;
}

TEST_F(LoggingHttpClientTest, TellsOfEachFailureAndPassesItOn) {
  const std::string url = "https://a/";
  for (const auto& [kind, word] :
       {std::pair{Kind::cancelled, "cancelled  "}, std::pair{Kind::notConnected, "offline    "},
        std::pair{Kind::cannotReach, "unreachable"}, std::pair{Kind::tooLarge, "too-large  "},
        std::pair{Kind::failed, "failed     "}}) {
    network.fail(url, NetworkError(kind, "Too bad"));
    EXPECT_EQ(linesOf(url, 20ms),
              fmt::format("net   -     20 ms         - B {} {} Too bad\n", word, url));
  }
  network.fail(url, NetworkError(Kind::failed, "Too bad"));
  EXPECT_THROW(runVirtual(clock, client.get({.url = url}, {})), NetworkError);
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "support/scripted_http_client.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <string>

#include "net/network_errors.h"
#include "support/event_loop.h"
#include "support/run_virtual.h"

namespace quillet {
namespace {

const std::string first = "http://store.example/1";
const std::string second = "http://store.example/2";

Task<> fetch(HttpClient* client, std::string url, StopToken stop, std::string* log) {
  HttpRequest request;
  request.url = url;
  try {
    const HttpResponse response = co_await client->get(std::move(request), stop);
    *log += response.body + " ";
  } catch (const std::exception& error) {
    *log += std::string(error.what()) + " ";
  }
}

TEST(ScriptedHttpClient, AnswersInOrderFromTheEventLoop) {
  HandClock clock;
  ScriptedHttpClient client;
  std::string log;
  client.answer(first, 200, "one");
  client.fail(first, tooLargeError(5));
  client.answer(second, 404, "two");
  Task<> early = fetch(&client, first, {}, &log);
  EXPECT_EQ(log, "");
  runVirtual(clock, std::move(early));
  runVirtual(clock, fetch(&client, first, {}, &log));
  runVirtual(clock, fetch(&client, second, {}, &log));
  EXPECT_EQ(log, "one The answer is larger than 5 bytes two ");
  EXPECT_EQ(client.requests().at(2).url, second);
}

TEST(ScriptedHttpClient, KeepsBackWhatIsHeld) {
  HandClock clock;
  ScriptedHttpClient client;
  StopSource source;
  std::string log;
  client.hold(first);
  client.answer(first, 200, "unwanted");
  Task<> stopped = fetch(&client, first, source.token(), &log);
  Task<> slow = fetch(&client, first, {}, &log);
  client.answer(first, 200, "slow");
  client.answer(second, 200, "quick");
  Task<> quick = fetch(&client, second, {}, &log);
  EXPECT_THROW(runVirtual(clock, std::move(slow)), std::logic_error);
  source.requestStop();
  handlePendingEvents();
  EXPECT_EQ(log, "quick Cancelled ");
  client.release(first);
  handlePendingEvents();
  EXPECT_EQ(log, "quick Cancelled slow ");
}

TEST(ScriptedHttpClient, FailsTheTestOnSurplusRequestsAndAnswers) {
  std::string log;
  std::optional<ScriptedHttpClient> client(std::in_place);
  EXPECT_NONFATAL_FAILURE(
      {
        detach(fetch(&*client, first, {}, &log), "fetch");
        handlePendingEvents();
      },
      "Unexpected request: " + first);
  EXPECT_EQ(log, "Unexpected request: " + first + " ");
  client->answer(first, 200, "");
  EXPECT_NONFATAL_FAILURE(client.reset(), "1 unused answer(s) for " + first);
}

}  // namespace
}  // namespace quillet

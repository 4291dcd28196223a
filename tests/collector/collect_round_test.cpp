// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/collect_round.h"

#include <fmt/format.h>

#include "base/errors.h"
#include "collector/price_record.h"
#include "collector/store_test.h"
#include "store/records/itunes_error.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Waits = std::vector<std::chrono::milliseconds>;

std::string addressOf(int id) {
  return fmt::format("https://store.example/lookup?id={}&country=us", id);
}

std::string answerWith(int id, double price) {
  return fmt::format(
      R"({{"results":[{{"trackId":{0},"trackName":"App {0}","currency":"USD","price":{1}}},)"
      R"({{"trackId":999,"trackName":"Nobody asked","currency":"USD","price":1}}]}})",
      id, price);
}

class CollectRoundTest : public StoreTest {
 protected:
  void begin(std::initializer_list<int> ids) {
    std::vector<LookupRequest> requests;
    for (const int id : ids) requests.push_back({"us", {id}});
    change(beginRound, requests, clock.now());
  }

  void answer(std::initializer_list<int> ids, double price) {
    for (const int id : ids) http.answer(addressOf(id), 200, answerWith(id, price));
  }

  Round run() { return runVirtual(clock, collectRound(services(), {})); }
};

TEST_P(CollectRoundTest, CountsWhatWasAskedForAlone) {
  begin({1, 2});
  answer({1}, 5);
  http.answer(addressOf(2), 200, R"({"results":[]})");
  const Round round = run();
  EXPECT_EQ(round.sums.found, 1);
  EXPECT_EQ(round.sums.missing, 1);
}

TEST_P(CollectRoundTest, PausesLongerEachTimeTheStoreRefusesAndGivesUpInTheEnd) {
  begin({1, 2});
  answer({1}, 5);
  for (const int status : {429, 403, 429, 429, 403, 429}) http.answer(addressOf(2), status, "");
  EXPECT_THROW(run(), ITunesError);
  EXPECT_EQ(clock.waits(), (Waits{60s, 120s, 240s, 480s, 960s}));
  EXPECT_EQ(said.front(),
            "Lookup 2 (us, 1 IDs from 2 on): Apple's server returned an error (HTTP 429).");
  EXPECT_EQ(said[1], "Pausing for 1 min.");
  EXPECT_TRUE(warned.empty()) << "it ends before a pause needs somebody";
  answer({2}, 5);
  EXPECT_EQ(run().sums.found, 2)
      << "the refused lookup is still there, the other is not asked again";
}

TEST_P(CollectRoundTest, LeavesOutLookupsThatFailByThemselves) {
  begin({1, 2, 3, 4, 5});
  for (const int id : {1, 2, 4, 5}) {
    for (int i = 0; i < 3; ++i) http.answer(addressOf(id), 400, "");
  }
  answer({3}, 5);
  const Round round = run();
  EXPECT_EQ(round.failed, 4);
  EXPECT_EQ(http.requests()[2].url, addressOf(3)) << "what failed comes last";
  EXPECT_EQ(round.sums.found, 1);
  EXPECT_TRUE(clock.waits().empty());
}

TEST_P(CollectRoundTest, WaitsForTheEndOfAnOutageThatBeginsInTheMiddle) {
  for (const auto& [situation, status, body] :
       {std::tuple{"a portal", 200, "<html>"}, std::tuple{"no such page", 404, ""}}) {
    begin({1, 2, 3, 4, 5, 6});
    answer({1}, 5);
    for (const int id : {2, 3, 4}) http.answer(addressOf(id), status, body);
    for (int i = 0; i < 10; ++i) http.answer(addressOf(5), status, body);
    answer({2, 3, 4, 5, 6}, 5);
    const Instant start = clock.now();
    const Round round = run();
    EXPECT_EQ(std::pair(round.failed, round.sums.found),
              std::pair(std::int64_t{0}, std::int64_t{6}))
        << situation;
    EXPECT_GT(clock.now() - start, 3h) << situation;
  }
}

TEST_P(CollectRoundTest, IsPatientAnewWithAStoreThatRefusesAfterAnOutage) {
  begin({1});
  for (int i = 0; i < 6 * 3; ++i) http.answer(addressOf(1), 503, "");
  http.answer(addressOf(1), 403, "");
  answer({1}, 5);
  EXPECT_EQ(run().sums.found, 1);
  EXPECT_EQ(clock.waits().back(), 1min);
}

TEST_P(CollectRoundTest, GoesOnWhenAStoreThatWasOutOfReachForHoursReturns) {
  for (const auto& [situation, status, body] :
       {std::tuple{"the server is down", 503, ""}, std::tuple{"a portal", 200, "<html>"},
        std::tuple{"a record that cannot be read", 200, R"({"results":[{"trackId":"x"}]})"}}) {
    begin({1, 2});
    const Instant start = clock.now();
    const int times = status == 200 ? 10 : 30;  // a server's error is asked again at once, twice
    for (int i = 0; i < times; ++i) http.answer(addressOf(1), status, body);
    answer({1, 2}, 5);
    const Round round = run();
    EXPECT_EQ(std::pair(round.failed, round.sums.found),
              std::pair(std::int64_t{0}, std::int64_t{2}))
        << situation;
    EXPECT_GT(clock.now() - start, 3h) << situation;
    ASSERT_FALSE(warned.empty()) << situation;
    EXPECT_TRUE(warned.front().starts_with("Pausing for 30 min: ")) << warned.front();
    warned.clear();
  }
}

TEST_P(CollectRoundTest, BelievesNoAnswerWithoutAnyOfManyAppsThatWereSold) {
  std::vector<std::int64_t> ids;
  std::vector<ObservedApp> known;
  for (std::int64_t id = 1; id <= 10; ++id) {
    ids.push_back(id);
    known.push_back({.trackId = id, .name = "Fen", .currency = "USD", .price = 5});
  }
  change(recordPrices, "us", known, clock.now());
  change(beginRound, std::vector<LookupRequest>{{"us", ids}}, clock.now());
  const std::string url =
      fmt::format("https://store.example/lookup?id={}&country=us", fmt::join(ids, ","));
  http.answer(url, 200, R"({"results":[]})");
  http.answer(url, 200, answerWith(1, 5));
  EXPECT_EQ(run().sums.missing, 9);
  EXPECT_EQ(change(soldAmong, "us", ids), 1);
}

TEST_P(CollectRoundTest, TakesNoAppForGoneThatItCannotRead) {
  const std::vector<std::int64_t> ids{1, 2, 3};
  for (const auto& [unread, stillSold] :
       {std::pair{R"({"trackId":2})", 2}, std::pair{R"({"trackId":"2","trackName":"Fen"})", 3},
        std::pair{R"({"wrapperType":"artist","artistId":2})", 1}}) {
    std::vector<ObservedApp> known;
    for (const std::int64_t id : ids)
      known.push_back({.trackId = id, .name = "Fen", .currency = "USD", .price = 5});
    change(recordPrices, "us", known, clock.now());
    change(beginRound, std::vector<LookupRequest>{{"us", ids}}, clock.now());
    http.answer("https://store.example/lookup?id=1,2,3&country=us", 200,
                fmt::format(R"({{"results":[{{"trackId":1,"trackName":"Fen"}},{}]}})", unread));
    (void)run();
    EXPECT_EQ(change(soldAmong, "us", ids), stillSold) << unread;
  }
}

TEST_P(CollectRoundTest, GivesBackWhatItIsAtWhenStopped) {
  begin({1, 2});
  answer({1, 2}, 5);
  http.hold(addressOf(2));
  StopSource stop;
  Task<Round> round = collectRound(services(), stop.token());
  while (http.requests().size() < 2) handlePendingEvents();
  stop.requestStop();
  EXPECT_THROW(runVirtual(clock, std::move(round)), NetworkError);
  http.release(addressOf(2));
  answer({2}, 5);
  EXPECT_EQ(run().sums.found, 2);
  EXPECT_TRUE(clock.waits().empty()) << "nothing was left leased";
}

TEST_P(CollectRoundTest, WaitsForTheLeaseOfOneThatMayStillBeThere) {
  begin({1, 2});
  EXPECT_TRUE(change(takeLookup, database->dialect(), "elsewhere", clock.now()));
  answer({1, 2}, 5);
  const Instant start = clock.now();
  EXPECT_EQ(run().sums.found, 2);
  EXPECT_EQ(clock.now() - start, kLease);
  EXPECT_EQ(said, (Lines{"Waiting for elsewhere, until 2026-11-01T03:10:00Z at most.",
                         "2 of 2 lookups are done; prices changed: 0."}));
}

TEST_P(CollectRoundTest, RecordsNothingOnceAnotherHasTheLookup) {
  begin({1});
  answer({1}, 5);
  http.hold(addressOf(1));
  Task<Round> round = collectRound(services(), {});
  handlePendingEvents();
  clock.setNow(clock.now() + kLease);
  const auto taken = change(takeLookup, database->dialect(), "elsewhere", clock.now()).value();
  http.release(addressOf(1));
  handlePendingEvents();
  EXPECT_TRUE(change(recordedIds).empty());
  EXPECT_TRUE(change(finishLookup, taken, "elsewhere", LookupResult{}));
  EXPECT_EQ(runVirtual(clock, std::move(round)).sums.found, 0);
}

QUILLET_IN_BOTH_DATABASES(CollectRoundTest);

}  // namespace
}  // namespace quillet

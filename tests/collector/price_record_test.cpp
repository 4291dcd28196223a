// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/price_record.h"

#include <fmt/format.h>

#include <atomic>
#include <thread>

#include "collector/lookup_queue.h"
#include "collector/record_repair.h"
#include "collector/record_test.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

const Instant kFirst = parseInternetDate("2026-11-01T03:00:00Z").value();

/// An app's price in an answer about a version that came out so much before the newest.
ObservedApp at(double price, const char* name = "Fen", const char* currency = "USD",
               std::chrono::hours older = 0h) {
  return {7, name, "Wren Ltd", currency, "mac-software", price, kFirst - 240h - older};
}

ObservedApp ofVersion(double price, std::chrono::hours older) {
  return at(price, "Fen", "USD", older);
}

ObservedApp ofOther(double price) {
  ObservedApp other = at(price);
  other.kind = "software";
  return other;
}

ObservedApp ofNoKind(double price) {
  ObservedApp untold = at(price);
  untold.kind.clear();
  return untold;
}

class PriceRecordTest : public RecordTest {
 protected:
  std::int64_t record(const ObservedApp& app, Instant now) {
    return change(recordPrices, "us", std::vector{app}, now);
  }

  TakenOut repair(Instant now) {
    return takeOutTheFuture(*database, [&] { return now; });
  }

  /// "STAMP'S DAY: name currency | day price | …" of what would be published.
  std::string published() {
    const auto stamp = change(stampOf, "us");
    if (!stamp) return "";
    std::string text = formatDay(*stamp) + ":";
    change(eachMovedApp, "us", [&](const RecordedApp& app) {
      text += fmt::format(" {} {}", app.name, app.currency);
      if (app.goneSince) text += " gone since " + formatDay(*app.goneSince);
      for (const CollectedPrice& price : app.prices) {
        text += fmt::format(" | {} {}", formatDay(price.seen), price.price);
      }
    });
    return text;
  }
};

TEST_P(PriceRecordTest, KeepsTheFirstPriceAndEachThatFollowed) {
  using Row = std::tuple<const char*, std::vector<ObservedApp>, std::int64_t, const char*>;
  for (const auto& [situation, daily, expectedChanges, expected] : std::vector<Row>{
           {"never asked", {}, 0, ""},
           {"seen once", {at(4.99)}, 0, "2026-11-01:"},
           {"reduced, and as it was since",
            {at(4.99), at(4.99), at(0), at(0)},
            1,
            "2026-11-03: Fen USD | 2026-11-01 4.99 | 2026-11-03 0"},
           {"up and down",
            {at(0), at(0.99), at(0)},
            2,
            "2026-11-03: Fen USD | 2026-11-01 0 | 2026-11-02 0.99 | 2026-11-03 0"},
           {"renamed before its price moved", {at(5), at(5, "Reed")}, 0, "2026-11-01:"},
           {"renamed after its price moved",
            {at(5), at(3), at(3, "Reed 'n' \"Rush\"")},
            1,
            "2026-11-03: Reed 'n' \"Rush\" USD | 2026-11-01 5 | 2026-11-02 3"},
           {"sold in another currency",
            {at(5), at(3), at(3, "Fen", "EUR"), at(2, "Fen", "EUR")},
            2,
            "2026-11-04: Fen EUR | 2026-11-03 3 | 2026-11-04 2"},
           {"the iOS record of the same ID, now and then",
            {at(0), ofOther(19.99), at(0), at(1)},
            1,
            "2026-11-04: Fen USD | 2026-11-01 0 | 2026-11-04 1"},
           {"an answer that does not tell the kind",
            {at(5), ofNoKind(4), at(3), ofOther(2)},
            2,
            "2026-11-03: Fen USD | 2026-11-01 5 | 2026-11-02 4 | 2026-11-03 3"},
           {"a kind that is told later",
            {ofNoKind(5), at(4), ofOther(3)},
            1,
            "2026-11-02: Fen USD | 2026-11-01 5 | 2026-11-02 4"},
           {"an answer of a forgotten cache", {at(5), ofVersion(9, 1h)}, 0, "2026-11-01:"},
           {"a new version",
            {ofVersion(5, 1h), at(5), ofVersion(5, -1h), ofVersion(3, -1h)},
            1,
            "2026-11-04: Fen USD | 2026-11-01 5 | 2026-11-04 3"},
       }) {
    change([](SqlTransaction& transaction) {
      for (const char* table : {"apps", "prices", "storefronts"})
        transaction.run(fmt::format("DELETE FROM {}", table));
    });
    std::int64_t changes = 0;
    Instant now = kFirst;
    for (const ObservedApp& app : daily) {
      changes += record(app, now);
      now += 24h;
    }
    EXPECT_EQ(changes, expectedChanges) << situation;
    EXPECT_EQ(published(), expected) << situation;
  }
}

TEST_P(PriceRecordTest, KeepsSinceWhenAnAppIsGone) {
  const auto miss = [&](Instant now) {
    change(recordMissing, "us", std::vector<std::int64_t>{7}, now);
  };
  record(at(5), kFirst);
  record(at(4), kFirst + 24h);
  for (const auto days : {48h, 72h}) miss(kFirst + days);
  EXPECT_EQ(published(), "2026-11-03: Fen USD gone since 2026-11-03 | 2026-11-01 5 | 2026-11-02 4");
  EXPECT_EQ(change(soldAmong, "us", std::vector<std::int64_t>{7, 8}), 0);
  EXPECT_EQ(record(at(4), kFirst + 96h), 0);
  EXPECT_EQ(published(), "2026-11-05: Fen USD | 2026-11-01 5 | 2026-11-02 4") << "it is back";
}

TEST_P(PriceRecordTest, FollowsTheOtherRecordOnceItsOwnHasNotBeenSeenForLong) {
  record(at(5), kFirst);
  for (const int day : {1, 13, 14, 15}) record(ofOther(10 + day), kFirst + day * 24h);
  EXPECT_EQ(published(), "2026-11-16: Fen USD | 2026-11-15 24 | 2026-11-16 25");
}

TEST_P(PriceRecordTest, TellsApartStorefrontsAndListsAllApps) {
  record(at(5), kFirst);
  ObservedApp other = at(6);
  other.trackId = 3;
  change(recordPrices, "jp", std::vector{at(600), other}, kFirst + 24h);
  EXPECT_EQ(change(recordedIds), (std::vector<std::int64_t>{3, 7}));
  EXPECT_EQ(published(), "2026-11-01:");
}

TEST_P(PriceRecordTest, TakesOutWhatAWrongClockRecorded) {
  ObservedApp late = at(1);
  late.trackId = 9;
  record(at(5), kFirst);
  record(at(4), kFirst + 24h);
  const auto begin = [&](Instant now) {
    change(beginRound, std::vector<LookupRequest>{{"us", {7}}}, now);
  };
  const Instant wrong = kFirst + 24h * 13'000;
  const auto look = [&](Instant now) { change(noteLook, std::string("us"), now); };
  look(kFirst + 24h);
  record(at(4), wrong);
  look(wrong);
  EXPECT_THROW(requirePast(*database, kFirst + 48h), RecordInTheFuture) << "in mid-round";
  (void)repair(kFirst + 48h);
  requirePast(*database, kFirst + 48h);
  begin(wrong);
  record(at(3), wrong);
  record(late, wrong);
  EXPECT_THROW(requirePast(*database, kFirst + 48h), RecordInTheFuture);
  const TakenOut out = repair(kFirst + 48h);
  EXPECT_EQ(std::pair(out.rounds, out.prices), std::pair(std::int64_t{1}, std::int64_t{2}));
  requirePast(*database, kFirst + 48h);
  begin(kFirst + 72h);
  EXPECT_EQ(change(newestRound).value().done, 0);
  EXPECT_EQ(record(at(4), kFirst + 72h), 0) << "as it was before";
  EXPECT_EQ(record(at(2), kFirst + 96h), 1);
  record(at(5, "Other", "EUR"), wrong);
  (void)repair(kFirst + 120h);
  record(at(6), kFirst + 144h);
  EXPECT_EQ(published(),
            "2026-11-07: Fen USD | 2026-11-01 5 | 2026-11-02 4 | 2026-11-05 2 | 2026-11-07 6")
      << "a series that began anew then";
}

TEST_P(PriceRecordTest, WaitsForThoseThatRecordBeforeItTakesAnythingOut) {
  if (GetParam() == Engine::sqlite) GTEST_SKIP() << "one writes after the other";
  record(at(5), kFirst);
  const auto other = openDatabase(address, StopWatch());
  auto recording = other->begin(SqlAccess::write);
  recordPrices(*recording, "us", {at(4)}, kFirst + 24h);
  recording->run("LOCK TABLE record");
  std::atomic<bool> isTimeAsked = false;
  std::thread repairing([&] {
    (void)takeOutTheFuture(*database, [&] {
      isTimeAsked = true;
      return kFirst + 1h;
    });
  });
  const auto third = openDatabase(address, StopWatch());
  for (std::int64_t waiting = 0; waiting == 0;) {
    third->begin(SqlAccess::read)
        ->each("SELECT COUNT(*) FROM pg_locks WHERE NOT granted", {},
               [&](const SqlRow& row) { waiting = row.integer(0); });
  }
  EXPECT_FALSE(isTimeAsked);
  recording->commit();
  repairing.join();
  EXPECT_EQ(record(at(4), kFirst + 48h), 1) << "what was taken out is found anew";
}

TEST_P(PriceRecordTest, UndoesWhatIsNotCommitted) {
  EXPECT_THROW(change([&](SqlTransaction& transaction) -> int {
                 recordPrices(transaction, "us", {at(5)}, kFirst);
                 throw std::logic_error("cut short");
               }),
               std::logic_error);
  EXPECT_EQ(published(), "");
}

TEST(Observed, GuessesNothingAndSendsNothingOdd) {
  ITunesApp app{.trackId = 7, .trackName = "Fe\x01n\xFF", .artistName = "Wren"};
  app.price = 0.0;
  EXPECT_FALSE(observed(app)) << "no currency";
  app.currency = "USD";
  EXPECT_EQ(observed(app), (ObservedApp{7, "Fen\xEF\xBF\xBD", "Wren", "USD", "", 0, {}}));
  app.price.reset();
  EXPECT_FALSE(observed(app)) << "no price";
}

QUILLET_IN_BOTH_DATABASES(PriceRecordTest);

}  // namespace
}  // namespace quillet

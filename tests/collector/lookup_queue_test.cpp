// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/lookup_queue.h"

#include "base/errors.h"
#include "collector/price_record.h"
#include "collector/record_test.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

const Instant kNow = parseInternetDate("2026-11-01T03:00:00Z").value();

class LookupQueueTest : public RecordTest {
 protected:
  void begin(const std::vector<LookupRequest>& requests, Instant now = kNow) {
    change(beginRound, requests, now);
  }
  std::optional<Lookup> take(const std::string& worker, Instant now = kNow) {
    return change(takeLookup, database->dialect(), worker, now);
  }
  bool finish(const Lookup& lookup, const std::string& worker, LookupResult result = {}) {
    return change(finishLookup, lookup, worker, result);
  }
  bool end() { return change(endRound, kNow + 1h); }
  Round newest() { return change(newestRound).value(); }
};

TEST_P(LookupQueueTest, GivesEachLookupToOneAtATime) {
  begin({{"us", {1, 2}}, {"jp", {1}}});
  const auto first = take("a").value();
  EXPECT_EQ(first.request.ids, (std::vector<std::int64_t>{1, 2}));
  const auto second = take("b").value();
  EXPECT_EQ(second.request.country, "jp");
  EXPECT_FALSE(take("c"));
  EXPECT_FALSE(finish(first, "b")) << "it is not b's";
  EXPECT_TRUE(finish(first, "a", {1, 1, 0}));
  EXPECT_FALSE(end()) << "b is still at it";
  EXPECT_EQ(newest().done, 1);
  EXPECT_TRUE(finish(second, "b", {1, 0, 1}));
  EXPECT_TRUE(end());
  const auto [found, missing, changed] = newest().sums;
  EXPECT_EQ(newest().ended, kNow + 1h);
  EXPECT_EQ(found, 2);
  EXPECT_EQ(missing, 1);
  EXPECT_EQ(changed, 1);
}

TEST_P(LookupQueueTest, GivesOnWhatWasLeasedTooLong) {
  begin({{"us", {1}}});
  const Lookup slow = take("slow").value();
  EXPECT_FALSE(take("next", kNow + kLease - 1ms));
  const Lookup taken = take("next", kNow + kLease).value();
  EXPECT_FALSE(finish(slow, "slow")) << "another is at it now";
  EXPECT_TRUE(finish(taken, "next"));
  EXPECT_TRUE(end());
}

TEST_P(LookupQueueTest, GivesOnWhatAWrongClockLeasedForMonths) {
  begin({{"us", {1}}});
  EXPECT_TRUE(take("behind", kNow - 5min));
  EXPECT_FALSE(take("next", kNow - 10min)) << "clocks differ a little";
  EXPECT_TRUE(take("ahead", kNow + 90 * 24h));
  EXPECT_TRUE(take("next"));
}

TEST_P(LookupQueueTest, TakesAwayWhatTheDeadHeldAndNoMore) {
  begin({{"us", {1}}, {"us", {2}}, {"us", {3}}});
  (void)take("dead");
  (void)take("dead", kNow + 1s);
  (void)take("alive");
  EXPECT_EQ(change(leaseHolders).at(1).until, kNow + kLease);
  change(endLeases, "dead");
  EXPECT_EQ(take("alive").value().number, 1);
  EXPECT_EQ(take("alive").value().number, 2);
  EXPECT_FALSE(take("alive"));
}

TEST_P(LookupQueueTest, RefusesATimeBeforeTheLastRound) {
  begin({{"us", {1}}});
  EXPECT_TRUE(finish(take("a").value(), "a"));
  EXPECT_TRUE(end());
  begin({{"us", {1}}});
  EXPECT_EQ(newest().id, 2);
}

TEST_P(LookupQueueTest, IsMadeOnceAndRefusesWhatANewerCollectorMade) {
  EXPECT_EQ(makeRecordTables(*database), RecordState::asItWas);
  const std::vector<ObservedApp> apps{{.trackId = 7, .currency = "USD", .kind = "mac-software"}};
  change(recordPrices, "us", apps, kNow - 240h);
  begin({});
  EXPECT_TRUE(end());
  change([](SqlTransaction& transaction) {
    for (const char* column : {"seen", "gone"})
      transaction.run(fmt::format("ALTER TABLE apps DROP COLUMN {}", column));
    for (const char* column : {"preparing", "storefronts"})
      transaction.run(fmt::format("ALTER TABLE rounds DROP COLUMN {}", column));
    transaction.run("ALTER TABLE lookups DROP COLUMN question");
    for (const char* table : {"former_series", "wanted", "collectors"})
      transaction.run(fmt::format("DROP TABLE {}", table));
    transaction.run("ALTER TABLE storefronts DROP COLUMN looked");
    for (const char* column : {"troubled", "trouble", "given_up"})
      transaction.run(fmt::format("ALTER TABLE record DROP COLUMN {}", column));
    transaction.run("UPDATE record SET revision = 1");
  });
  EXPECT_THROW(requireRecord(*database), DatabaseError);
  EXPECT_EQ(makeRecordTables(*database), RecordState::broughtUpToDate);
  requireRecord(*database);
  change([](SqlTransaction& transaction) {
    transaction.each("SELECT seen FROM apps", {},
                     [](const SqlRow& row) { EXPECT_EQ(restored(row.integer(0)), kNow); });
  });
  begin({{"us", {1}, "chart mac top-free"}});
  EXPECT_EQ(take("a").value().request.question, "chart mac top-free");
  change([](SqlTransaction& transaction) { transaction.run("UPDATE record SET revision = 99"); });
  EXPECT_THROW(makeRecordTables(*database), DatabaseError);
  EXPECT_THROW(requireRecord(*database), DatabaseError);
}

QUILLET_IN_BOTH_DATABASES(LookupQueueTest);

}  // namespace
}  // namespace quillet

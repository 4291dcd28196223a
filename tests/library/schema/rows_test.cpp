// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/schema/rows.h"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <tuple>

#include "library/schema/entities.h"
#include "library/schema/revisions.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

// What a field can hold at its edges; each round of filling takes another one of each kind.

template <typename Value>
void take(Value& value, int round, Value first, Value second, Value third) {
  value = round == 0 ? first : round == 1 ? second : third;
}

void fill(std::int64_t& value, int round) {
  using Limits = std::numeric_limits<std::int64_t>;
  take<std::int64_t>(value, round, Limits::max(), Limits::min(), 0);
}
void fill(double& value, int round) {
  using Limits = std::numeric_limits<double>;
  take<double>(value, round, Limits::max(), -Limits::denorm_min(), 0.1);
}
void fill(bool& value, int round) { value = round == 0; }
void fill(Instant& value, int round) {
  // Seconds as a double fall a little short of the last one.
  take(value, round, Instant::max(), Instant::min(), Instant{978307068931ms});
}
void fill(std::string& value, int round) {
  take<std::string>(value, round, "", std::string("a\0\xFF'b", 5), "日本語 🇩🇪");
}
void fill(std::vector<std::int64_t>& values, int round) {
  for (int i = 0; i < round * 20; ++i) fill(values.emplace_back(), round);
}
void fill(std::vector<std::string>& values, int round) {
  if (round != 1) values = {"", "é", "plain"};
}
template <typename Value>
void fill(std::optional<Value>& value, int round) {
  if (round != 2) fill(value.emplace(), round);
}

template <typename Entity>
Entity filled(int round) {
  Entity row;
  std::apply([&](const auto&... each) { (fill(row.*(each.field), round), ...); },
             kTable<Entity>.attributes);
  return row;
}

SQLite::Database newLibrary() {
  SQLite::Database database(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  bringUpToDate(database);
  return database;
}

template <typename Entity>
void expectThatEdgesAreKept() {
  SCOPED_TRACE(shapeOf<Entity>().name);
  for (const int round : {0, 1, 2}) {
    SQLite::Database database = newLibrary();
    Entity row = filled<Entity>(round);
    row.id = insertRow(database, row);
    EXPECT_EQ(selectRows<Entity>(database, ""), std::vector{row}) << round;
    Entity next = filled<Entity>((round + 1) % 3);
    next.id = row.id;
    updateRow(database, next);
    EXPECT_EQ(selectRows<Entity>(database, ""), std::vector{next}) << round;
  }
}

template <typename... Each>
void expectThatEdgesOfAllAreKept(const std::tuple<Each...>& /*entities*/) {
  (expectThatEdgesAreKept<Each>(), ...);
}

TEST(Rows, KeepEveryFieldAtItsEdges) { expectThatEdgesOfAllAreKept(Entities()); }

TEST(Rows, ReadWhateverIsStored) {
  SQLite::Database database = newLibrary();
  insertRow(database, filled<WatchedApp>(2));
  database.exec(
      "UPDATE ZWATCHEDAPP SET ZALERTONFREE = 7, ZCURRENTPRICE = 'dear', ZADDEDAT = 9e999, "
      "ZLASTCHECKEDAT = -978307200, ZMUTEDUNTIL = -1e300");
  const WatchedApp row = selectRows<WatchedApp>(database, "").at(0);
  EXPECT_TRUE(row.alertOnFree);
  EXPECT_EQ(row.currentPrice, 0);
  EXPECT_EQ(row.addedAt, Instant::max());
  EXPECT_EQ(row.lastCheckedAt, Instant{}) << "seconds count from 2001 on";
  EXPECT_EQ(row.mutedUntil, Instant::min());
  insertRow(database, filled<ChartCache>(1));
  database.exec("UPDATE ZCHARTCACHE SET ZTRACKIDS = x'62706C69737430300000'");
  EXPECT_EQ(selectRows<ChartCache>(database, "").at(0).trackIds, std::vector<std::int64_t>());
}

TEST(Rows, NeverTakeTheKeyOfARemovedRow) {
  SQLite::Database database = newLibrary();
  const RowId first = insertRow(database, WatchedApp{});
  database.exec("DELETE FROM ZWATCHEDAPP");
  EXPECT_GT(insertRow(database, WatchedApp{}), first);
}

}  // namespace
}  // namespace quillet

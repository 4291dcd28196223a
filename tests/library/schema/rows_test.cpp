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

/// What a field can hold at its edges; each round of filling takes another one of each kind.
class Edges {
 public:
  explicit Edges(int round) : round_(static_cast<std::size_t>(round)) {}

  void fill(std::int64_t& value) const {
    using Limits = std::numeric_limits<std::int64_t>;
    value = std::array{Limits::max(), Limits::min(), std::int64_t{0}}[round_];
  }
  void fill(double& value) const {
    using Limits = std::numeric_limits<double>;
    value = std::array{Limits::max(), -Limits::denorm_min(), 0.1}[round_];
  }
  void fill(bool& value) const { value = round_ == 0; }
  void fill(Instant& value) const {
    // Seconds as a double fall a little short of the last one.
    constexpr Instant kBetween{std::chrono::milliseconds{978307068931}};
    value = std::array{Instant::max(), Instant::min(), kBetween}[round_];
  }
  void fill(std::string& value) const {
    value = std::array<std::string, 3>{"", std::string("a\0\xFF'b", 5), "日本語 🇩🇪"}[round_];
  }
  void fill(std::vector<std::int64_t>& values) const {
    for (std::size_t i = 0; i < round_ * 20; ++i) fill(values.emplace_back());
  }
  void fill(std::vector<std::string>& values) const {
    if (round_ != 1) values = {"", "é", "plain"};
  }
  template <typename Value>
  void fill(std::optional<Value>& value) const {
    if (round_ != 2) fill(value.emplace());
  }

 private:
  std::size_t round_;
};

template <typename Entity>
Entity filled(int round) {
  Entity row;
  std::apply([&](const auto&... each) { (Edges(round).fill(row.*(each.field)), ...); },
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
      "UPDATE ZWATCHEDAPP SET ZALERTONFREE = 7, ZCURRENTPRICE = 'dear', ZADDEDAT = 9e999");
  const WatchedApp row = selectRows<WatchedApp>(database, "").at(0);
  EXPECT_TRUE(row.alertOnFree);
  EXPECT_EQ(row.currentPrice, 0);
  EXPECT_EQ(row.addedAt, Instant::max());
  insertRow(database, filled<ChartCache>(1));
  database.exec("UPDATE ZCHARTCACHE SET ZTRACKIDS = x'62706C69737430300000'");
  EXPECT_EQ(selectRows<ChartCache>(database, "").at(0).trackIds, std::vector<std::int64_t>());
}

TEST(RowInserter, SkipsWhatIsThereButNoRowThatBreaksARule) {
  SQLite::Database database = newLibrary();
  RowInserter<WatchedApp> inserter(database, OnConflict::skip);
  WatchedApp app;
  app.trackId = 1480068668;
  app.country = "us";
  EXPECT_EQ(inserter.insert(app), 1);
  EXPECT_EQ(inserter.insert(app), std::nullopt);
  app.country = "de";
  app.id = 1;
  EXPECT_EQ(inserter.insert(app), std::nullopt);
  app.id = 9;
  app.currentPrice = std::numeric_limits<double>::quiet_NaN();
  EXPECT_THROW(inserter.insert(app), SQLite::Exception);
}

TEST(RowInserter, NeverGivesTheKeyOfARemovedRowAgain) {
  SQLite::Database database = newLibrary();
  const RowId first = insertRow(database, AppCollection{});
  database.exec("DELETE FROM ZAPPCOLLECTION");
  EXPECT_GT(insertRow(database, AppCollection{}), first);
}

}  // namespace
}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// What keeps a record over the years: copies of it, a beginning from published files, and taking
// out what is wrong or old.

#include <fmt/format.h>

#include <set>
#include <thread>

#include "collector/lookup_queue.h"
#include "collector/price_record.h"
#include "collector/price_removal.h"
#include "collector/record_copy.h"
#include "collector/record_test.h"
#include "support/message_of.h"
#include "support/place.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

const Instant kFirst = parseInternetDate("2025-03-01T03:00:00Z").value();

ObservedApp app(std::int64_t id, double price, const char* name = "Fen") {
  return {id, name, "Wren Ltd", "USD", "mac-software", price, kFirst - 240h};
}

class KeepTest : public RecordTest {
 protected:
  void record(const ObservedApp& seen, Instant now, const char* country = "us") {
    change(recordPrices, std::string(country), std::vector{seen}, now);
  }

  struct Ended {
    std::string out;
    std::string err;
    int status;
  };

  /// Runs the program on the test's record, or another one.
  Ended run(const std::string& arguments, std::string record = {}) const {
    Program program(fmt::format(
        "cd '{}'; export QUILLET_DATA_DIR=data QUILLET_COLLECTOR_DATABASE='{}'; {} exec {} {} "
        "2>errors",
        folder.string(), record.empty() ? address : record, kErrorsAreAJournal,
        placeOf(QUILLET_COLLECTOR_PROGRAM), arguments));
    Ended ended{program.lines(), {}, 0};
    ended.status = program.status();
    ended.err = contentOf(folder / "errors");
    return ended;
  }

  /// All published files, one after the other.
  std::string published(const std::string& to, const std::string& record = {}) const {
    const Ended ended = run("publish " + to, record);
    EXPECT_EQ(ended.status, 0) << ended.err;
    std::string bytes;
    for (const char* name : {"manifest.json", "changes-us.json.gz", "changes-de.json.gz"})
      bytes += contentOf(folder / to / kPriceFilesPath / name) + '\n';
    return bytes;
  }

  void clear() {
    change([](SqlTransaction& transaction) {
      for (const RecordTable& table : recordTables())
        transaction.run(fmt::format("DELETE FROM {}", table.name));
    });
  }

  void writeChanges() {
    record(app(1, 5, "Tab\\tle \\N \"und\" Bücher\\"), kFirst);
    record(app(1, 0.1 + 0.2, "Tab\\tle \\N \"und\" Bücher\\"), kFirst + 24h);
    record(app(2, 7), kFirst);
    record(app(2, 8), kFirst + 24h);
    record(app(3, 9), kFirst, "de");
    change(recordMissing, "us", std::vector<std::int64_t>{2}, kFirst + 48h);
    change(noteLook, std::string("us"), kFirst + 48h);
  }
};

TEST_P(KeepTest, CopiesEachTableThatThereIs) {
  // What a record is, and who is at work on it, is of each record itself.
  std::multiset<std::string> listed;
  for (const RecordTable& table : recordTables()) listed.emplace(table.name);
  std::multiset<std::string> found;
  database->begin(SqlAccess::read)
      ->each(GetParam() == Engine::sqlite
                 ? "SELECT name FROM sqlite_master WHERE type = 'table'"
                 : "SELECT tablename::text FROM pg_tables WHERE schemaname = current_schema()",
             {}, [&](const SqlRow& row) { found.insert(row.text(0)); });
  for (const char* own : {"record", "collectors"}) found.erase(own);
  EXPECT_EQ(listed, found);
}

TEST_P(KeepTest, BringsBackTheRoundUnderWayFromABackupInEitherDatabase) {
  writeChanges();
  change(beginRound, std::vector<LookupRequest>{{"us", {1}}, {"de", {3}}}, kFirst + 72h);
  const auto take = [&](Instant now) {
    return change(takeLookup, database->dialect(), std::string("machine"), now);
  };
  const auto first = take(kFirst + 72h);
  (void)change(finishLookup, *first, std::string("machine"), LookupResult{.found = 1});
  ASSERT_TRUE(take(kFirst + 72h));
  const std::string before = published("before");
  std::ofstream(folder / ".copy.db.new") << "of one that was killed";
  {
    // Another collector is in the middle of a transaction: the copy neither waits nor sees it.
    const auto other = openDatabase(address, StopWatch());
    const auto writing = other->begin(SqlAccess::write);
    recordPrices(*writing, "us", {app(1, 99)}, kFirst + 73h);
    const Ended backup = run("backup copy.db");
    EXPECT_EQ(backup.out, "Backed up: apps: 3, prices: 5, rounds: 1.\n") << backup.err;
    writing->commit();
  }
  for (const auto& file : fs::directory_iterator(folder))
    EXPECT_FALSE(file.path().filename().string().starts_with('.')) << file.path();
  EXPECT_EQ(run("backup copy.db").err,
            "quillet-collector: There is a file copy.db already; it stays as it is.\n");
  EXPECT_EQ(run("restore copy.db").err,
            "quillet-collector: There is a record already (apps: 3, prices: 6, rounds: 1). Name "
            "another database, or put this one aside.\n");
  EXPECT_EQ(published("itself", "copy.db"), before);
  EXPECT_EQ(run("restore copy.db", "new.db").status, 0);
  EXPECT_EQ(published("new", "new.db"), before);
  clear();
  EXPECT_EQ(run("restore copy.db").out, "Restored: apps: 3, prices: 5, rounds: 1.\n");
  EXPECT_EQ(published("restored"), before);
  EXPECT_EQ(change(newestRound).value().done, 1);
  EXPECT_EQ(take(kFirst + 72h).value().request.ids, std::vector<std::int64_t>{3})
      << "whoever was at it is at work elsewhere";
}

TEST_P(KeepTest, BacksUpOneStateOfAServer) {
  if (GetParam() == Engine::sqlite) GTEST_SKIP() << "is copied page by page";
  writeChanges();
  auto other = database->begin(SqlAccess::write);
  other->run("LOCK TABLE prices IN ACCESS EXCLUSIVE MODE");
  Ended backup{};
  std::thread running([&] { backup = run("backup copy.db"); });
  const auto third = openDatabase(address, StopWatch());
  for (std::int64_t waiting = 0; waiting == 0;) {  // which it does once it has read the apps
    third->begin(SqlAccess::read)
        ->each("SELECT COUNT(*) FROM pg_locks WHERE NOT granted", {},
               [&](const SqlRow& row) { waiting = row.integer(0); });
  }
  recordPrices(*other, "us", {app(1, 99)}, kFirst + 73h);
  other->commit();
  other.reset();
  running.join();
  EXPECT_EQ(backup.out, "Backed up: apps: 3, prices: 5, rounds: 0.\n") << backup.err;
}

TEST_P(KeepTest, RestoresAllOrNothing) {
  writeChanges();
  ASSERT_EQ(run("backup copy.db").status, 0);
  clear();
  const std::string whole = contentOf(folder / "copy.db");
  ASSERT_EQ(run("init", "newer.db").status, 0);
  inTransaction(*openDatabase((folder / "newer.db").string(), StopWatch()), SqlAccess::alone,
                [](SqlTransaction& newer) { newer.run("UPDATE record SET revision = 99"); });
  std::string damaged = whole;
  damaged.replace(whole.size() - 5'000, 5'000, 5'000, 'x');
  for (const auto& [name, bytes] : std::vector<std::pair<std::string, std::string>>{
           {"damaged.db", damaged}, {"cut.db", whole.substr(0, whole.size() / 2)}, {"text", "x"}})
    std::ofstream(folder / name, std::ios::binary) << bytes;
  for (const char* file : {"newer.db", "damaged.db", "cut.db", "text", "absent.db"})
    EXPECT_EQ(run(fmt::format("restore {}", file)).status, 5) << file;
  EXPECT_FALSE(fs::exists(folder / "absent.db"));
  EXPECT_THROW(fillRecord(*database,
                          [](SqlTransaction& transaction) {
                            const auto rows = transaction.insertion(
                                "prices", {"country", "track_id", "seen", "price"});
                            rows->add({std::string("us"), std::int64_t{1}, std::int64_t{1}, 2.0});
                            throw Stopped();
                          }),
               Stopped);
  EXPECT_EQ(change(sizeOf), RecordSize{});
  EXPECT_EQ(run("restore copy.db").status, 0);
}

TEST_P(KeepTest, BeginsFromWhatIsPublished) {
  writeChanges();
  const std::string before = published("out");
  clear();
  const fs::path file = folder / "out" / kPriceFilesPath / "changes-us.json.gz";
  const std::string whole = contentOf(file);
  for (const std::string& damaged :
       {whole.substr(0, whole.size() - 9), std::string("x"),
        contentOf(folder / "out" / kPriceFilesPath / "changes-de.json.gz")}) {
    std::ofstream(file, std::ios::binary) << damaged;
    EXPECT_EQ(run("import out").status, 5);
    EXPECT_EQ(change(sizeOf), RecordSize{});
  }
  std::ofstream(file, std::ios::binary) << whole;
  EXPECT_EQ(run("import out").out, "Imported: apps: 2, prices: 4.\n")
      << contentOf(folder / "errors");
  EXPECT_EQ(run("import out").status, 5);
  EXPECT_EQ(published("again"), before);
  record(app(1, 0.1 + 0.2, "Tab\\tle \\N \"und\" Bücher\\"), kFirst + 96h);
  change(recordMissing, "us", std::vector<std::int64_t>{2}, kFirst + 96h);
  EXPECT_EQ(published("again"), before) << "nothing is new";
  record(app(2, 8), kFirst + 120h);
  EXPECT_NE(published("again"), before) << "it is sold again";
}

/// "moved: day price, …" of app 1 as it is recorded, the price that it is taken to have at the end.
std::string seriesIn(SqlTransaction& transaction) {
  std::string text;
  double last = -1;
  transaction.each("SELECT moved, price FROM apps", {}, [&](const SqlRow& row) {
    text = row.integer(0) == 1 ? "moved:" : "stayed:";
    last = row.real(1);
  });
  transaction.each("SELECT seen, price FROM prices ORDER BY seen", {}, [&](const SqlRow& row) {
    text += fmt::format(" {}={}", formatDay(restored(row.integer(0))).substr(8), row.real(1));
  });
  return last < 0 ? "gone" + text : fmt::format("{} now {}", text, last);
}

TEST_P(KeepTest, TakesWrongPricesOutAsIfTheyHadNeverBeen) {
  using Row = std::tuple<const char*, std::vector<double>, int, const char*, bool>;
  for (const auto& [situation, daily, day, expected, isPublishedAnew] : std::vector<Row>{
           {"between two that differ", {5, 0, 4}, 2, "moved: 01=5 03=4 now 4", true},
           {"between two alike", {5, 0, 5, 3}, 2, "moved: 01=5 04=3 now 3", true},
           {"between two alike, alone", {5, 0, 5}, 2, "stayed: 01=5 now 5", true},
           {"the last", {5, 4, 0}, 3, "moved: 01=5 02=4 now 4", true},
           {"the first", {0, 5, 4}, 1, "moved: 02=5 03=4 now 4", true},
           {"the only one", {5}, 1, "gone", false},
           {"of another day", {5, 4}, 3, "moved: 01=5 02=4 now 4", false},
       }) {
    clear();
    for (std::size_t i = 0; i < daily.size(); ++i) record(app(1, daily[i]), kFirst + 24h * i);
    const Instant begin = std::chrono::floor<std::chrono::days>(kFirst) + 24h * (day - 1);
    const Instant stamp = change(stampOf, "us").value();
    change(removePrices, "us", std::int64_t{1}, TimeSpan{begin, begin + 24h}, kFirst + 480h);
    EXPECT_EQ(change(seriesIn), expected) << situation;
    EXPECT_EQ(change(stampOf, "us").value() > stamp, isPublishedAnew) << situation;
  }
}

TEST_P(KeepTest, SaysWhatItTookOut) {
  for (const char* country : {"us", "de"}) {
    for (const int day : {0, 1, 2}) record(app(1, day % 2), kFirst + 24h * day, country);
  }
  EXPECT_EQ(run("forget 1 --price-of 2025-03-02T03:00:01Z").status, 1);
  EXPECT_EQ(run("forget 1 --price-of 2025-03-02 --storefronts de").out,
            "Taken out:\nde: Fen: 1 of 2025-03-02T03:00:00Z\n"
            "de: Fen: 0 of 2025-03-03T03:00:00Z, as the one before\n");
  EXPECT_EQ(run("forget 1").out,
            "Taken out:\nus: Fen, with its prices: 3\nde: Fen, with its prices: 1\n");
  EXPECT_EQ(run("forget 1").err,
            "quillet-collector: Nothing of the kind is recorded; all is as it was.\n");
  EXPECT_EQ(change(sizeOf), RecordSize{});
}

TEST_P(KeepTest, ForgetsHistoryThatNoLongerHeld) {
  ObservedApp euro = app(1, 9);
  euro.currency = "EUR";
  record(euro, kFirst - 48h);  // of a series that is no longer published
  for (const int day : {0, 1, 2, 3}) record(app(1, 5 - day), kFirst + 24h * day);
  for (const Instant began : {kFirst, kFirst + 24h, kFirst + 48h})
    change(beginRound, std::vector<LookupRequest>{}, began);
  const auto forget = [&](const char* day) {
    return run(fmt::format("forget --before {}", day)).out;
  };
  EXPECT_EQ(forget("2025-03-03"), "Taken out: prices: 2, rounds: 2.\n");
  EXPECT_EQ(change(seriesIn), "moved: 02=4 03=3 04=2 now 2");
  EXPECT_EQ(forget("2025-03-03"), "Taken out: prices: 0, rounds: 0.\n");
  EXPECT_EQ(forget("2025-03-20"), "Taken out: prices: 2, rounds: 0.\n");
  EXPECT_EQ(change(seriesIn), "stayed: 04=2 now 2");
  EXPECT_EQ(change(newestRound).value().id, 3) << "the next one is numbered after it";
  EXPECT_EQ(run("forget --before 2999-01-01").status, 2);
}

TEST_P(KeepTest, RepairsToADayWhosePricesAreForgotten) {
  ObservedApp euro = app(1, 9);
  euro.currency = "EUR";
  for (const auto& [series, day] :
       {std::pair{"the former one", "2025-02-28"}, std::pair{"the present one", "2025-03-02"}}) {
    clear();
    record(euro, kFirst - 48h);
    for (const int later : {0, 1, 2}) record(app(1, 5 - later), kFirst + 24h * later);
    EXPECT_EQ(run("forget --before 2025-03-03").out, "Taken out: prices: 2, rounds: 0.\n");
    EXPECT_EQ(run(fmt::format("repair --as-of {}", day)).status, 0)
        << series << contentOf(folder / "errors");
    EXPECT_EQ(change(seriesIn), "gone") << series;
    record(app(1, 6), kFirst + 72h);
    EXPECT_EQ(change(seriesIn), "stayed: 04=6 now 6") << series;
  }
}

QUILLET_IN_BOTH_DATABASES(KeepTest);

}  // namespace
}  // namespace quillet

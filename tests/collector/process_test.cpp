// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// The program itself: what it prints, and what is left when it is killed.

#include <fmt/format.h>
#include <signal.h>

#include <atomic>
#include <fstream>
#include <regex>

#include "collector/lookup_queue.h"
#include "collector/record_test.h"
#include "store/price_seed_client.h"
#include "support/http_test_server.h"
#include "support/place.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

constexpr int kLookups = 12;
constexpr int kIdsEach = 100;

std::string pathOf(int lookup) {
  std::string ids;
  for (int i = 1; i <= kIdsEach; ++i) {
    ids += fmt::format("{}{}", i == 1 ? "" : ",", (lookup - 1) * kIdsEach + i);
  }
  return fmt::format("/lookup?id={}&country=us", ids);
}

class CollectorProcessTest : public RecordTest {
 protected:
  /// What the store sells from now on: the first app of each lookup, at a price.
  void sell(double price) {
    for (int lookup = 1; lookup <= kLookups; ++lookup) {
      const std::string body = fmt::format(
          R"({{"results":[{{"trackId":{},"trackName":"App","currency":"USD","price":{}}}]}})",
          (lookup - 1) * kIdsEach + 1, price);
      server.on(pathOf(lookup), [this, lookup, body](const HttpTestServer::Connection& client,
                                                     const auto&) {
        if (lookup == fatalLookup && !wasFatal.exchange(true)) killVictim();
        client.send(HttpTestServer::head(200, {{"Content-Length", std::to_string(body.size())}}) +
                    body);
      });
    }
  }

  Program start(const std::string& arguments) const {
    return Program(fmt::format(
        "cd '{}'; export QUILLET_ITUNES_URL={} QUILLET_DATA_DIR=data QUILLET_COLLECTOR_DATABASE={} "
        "QUILLET_COLLECTOR_BUDGET_DIR=.; {} exec {} {} 2>errors",
        folder.string(), server.url(""), address, kErrorsAreAJournal,
        placeOf(QUILLET_COLLECTOR_PROGRAM), arguments));
  }

  Program collect(const char* day) const {
    return start(
        std::string("collect --ids ids --storefronts us --requests-per-minute 1000 --as-of ") +
        day);
  }

  void SetUp() override {
    RecordTest::SetUp();
    std::ofstream ids(folder / "ids");
    for (int id = 1; id <= kLookups * kIdsEach; ++id) ids << id << '\n';
  }

  /// Whoever asks for the fatal lookup, this process is killed before it is answered.
  void setVictim(const Program& program) {
    victim = program.id();
    victim.notify_all();
  }

  void killVictim() {
    victim.wait(0);  // the lookup may come before the test knows the process
    ::kill(victim, SIGKILL);
  }

  std::size_t requests(int lookup) { return server.requests(pathOf(lookup)).size(); }

  HttpTestServer server;
  int fatalLookup = 0;
  std::atomic<bool> wasFatal = false;
  std::atomic<pid_t> victim = 0;
};

const std::string kSecondRound =
    "Round 2 has ended. Lookups: 12, failed: 0. Prices: 12, changed: 12. Not sold: 1188.\n";

TEST_P(CollectorProcessTest, GoesOnWhereItWasKilledAndPublishesTheWhole) {
  sell(5);
  EXPECT_EQ(collect("2026-11-01").lines(),
            "Round 1 has ended. Lookups: 12, failed: 0. Prices: 12, changed: 0. Not sold: 1188.\n");
  fatalLookup = 5;
  sell(3);
  {
    Program killed = collect("2026-11-02");
    setVictim(killed);
    EXPECT_EQ(killed.lines(), "");
    EXPECT_EQ(killed.status(), -1);
  }
  EXPECT_EQ(collect("2026-11-02").lines(), kSecondRound);
  EXPECT_EQ(contentOf(folder / "errors"),
            "Going on with round 2: 4 of 12 lookups are done.\nIt keeps the apps and storefronts "
            "that it began with; those named now wait for the next one.\n");
  for (int lookup = 1; lookup <= kLookups; ++lookup) {
    EXPECT_EQ(requests(lookup), lookup == fatalLookup ? 3U : 2U) << lookup;
  }
  EXPECT_EQ(start("publish").lines().substr(0, 18), "changes-us.json.gz");
  const auto published = folder / "data" / "price-data" / "file" / "quillbase-prices" / "v1";
  const std::string packed = contentOf(published / "changes-us.json.gz");
  std::string expected =
      R"({"generatedAt":"2026-11-02T00:00:00Z","schema":1,"storefront":{"apps":[)";
  for (int lookup = 1; lookup <= kLookups; ++lookup) {
    expected += fmt::format(R"({}{{"a":"{}","c":"USD","n":"App","p":[{{"d":"2026-11-01","v":5}},)"
                            R"({{"d":"2026-11-02","v":3}}]}})",
                            lookup == 1 ? "" : ",", (lookup - 1) * kIdsEach + 1);
  }
  EXPECT_EQ(unpackedPriceFile(packed, 10'000).view(), expected + R"(],"country":"us"}})");
  EXPECT_EQ(
      start("publish").lines(),
      fmt::format("changes-us.json.gz: {} bytes, unchanged\nmanifest.json: {} bytes, unchanged\n",
                  packed.size(), std::filesystem::file_size(published / "manifest.json")));
}

TEST_P(CollectorProcessTest, TwoShareTheWorkAndOneFinishesWhenTheOtherIsKilled) {
  sell(5);
  (void)collect("2026-11-01").lines();
  fatalLookup = 4;
  sell(3);
  Program killed = collect("2026-11-02");
  setVictim(killed);
  EXPECT_EQ(collect("2026-11-02").lines(), kSecondRound);
  EXPECT_EQ(killed.status(), -1);
  std::size_t repeated = 0;
  for (int lookup = 1; lookup <= kLookups; ++lookup) {
    EXPECT_GE(requests(lookup), 2U) << lookup;
    repeated += requests(lookup) - 2;
  }
  EXPECT_LE(repeated, 1U) << "only what the killed one was at is asked again";
}

TEST_P(CollectorProcessTest, SaysWhatIsMissing) {
  EXPECT_EQ(start("publish").status(), 1);
  EXPECT_EQ(contentOf(folder / "errors"), "quillet-collector: Nothing is recorded yet.\n");
  EXPECT_EQ(start("init --database /proc/none/x.db").status(), 5);
}

TEST_P(CollectorProcessTest, MakesARecordOnlyWhereItIsToldTo) {
  const std::string wrong =
      GetParam() == Engine::sqlite
          ? "wrong.db"
          : fmt::format("'host={} user=quillet dbname=template1'", testServer().folder());
  for (const char* command : {"publish", "collect --charts"}) {
    EXPECT_EQ(start(command + (" --database " + wrong)).status(), 5);
    EXPECT_TRUE(contentOf(folder / "errors").ends_with("quillet-collector init makes one.\n"));
  }
  for (const char* address : {"mysql://db/x", "''"})
    EXPECT_NE(start(fmt::format("init --database {}", address)).status(), 0) << address;
  EXPECT_FALSE(std::filesystem::exists(folder / "wrong.db"));
  EXPECT_EQ(start("init --database " + wrong).lines(), "The record is made.\n");
  EXPECT_EQ(start("init --database " + wrong).lines(),
            "There is a record already; it stays as it is.\n");
}

TEST_P(CollectorProcessTest, SaysWhatNeedsSomebodyAloneWhereQuietIsWanted) {
  sell(5);
  const auto run = [&](const std::string& arguments) {
    Program program = start(arguments + " --quiet");
    const std::string lines = program.lines();
    return fmt::format("{}{}: {}", lines, program.status(), contentOf(folder / "errors"));
  };
  const std::string collect =
      "collect --storefronts us --requests-per-minute 1000 --every 1 --ids ";
  EXPECT_EQ(run(collect + "ids"), "0: ");
  EXPECT_EQ(run(collect + "ids"), "1: ") << "it is not due yet";
  EXPECT_EQ(run("publish"), "0: ");
  EXPECT_EQ(run("publish --database none.db"),
            "5: quillet-collector: There is no database none.db: quillet-collector init makes "
            "one.\n");
  server.on("/lookup?id=7&country=us", [](const HttpTestServer::Connection& client, const auto&) {
    client.send(HttpTestServer::head(400, {{"Content-Length", "0"}}));
  });
  std::ofstream(folder / "seven") << 7;
  EXPECT_EQ(run("collect --storefronts us --requests-per-minute 1000 --ids seven"),
            "3: Failed (us): 7\n");
}

TEST(CollectorLines, BeginWithTheTimeWhereNothingElseNotesIt) {
  const TemporaryFolder folder;
  const std::string time = "[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}Z ";
  for (const auto& [environment, before] :
       {std::pair{"", time}, std::pair{"export JOURNAL_STREAM=1:2;", time},
        std::pair{kErrorsAreAJournal, std::string()}}) {
    Program program(fmt::format("cd '{}'; {} exec {} colect 2>errors", folder.path().string(),
                                environment, placeOf(QUILLET_COLLECTOR_PROGRAM)));
    EXPECT_EQ(program.status(), 2);
    const std::regex whole(
        fmt::format("{0}quillet-collector: Unknown command 'colect'\\.\n"
                    "{0}Try quillet-collector --help\\.\n",
                    before));
    const std::string errors = contentOf(folder.path() / "errors");
    EXPECT_TRUE(std::regex_match(errors, whole)) << environment << errors;
  }
}

TEST_P(CollectorProcessTest, TellsOfARecordInTheFuture) {
  const Instant now =
      std::chrono::time_point_cast<std::chrono::milliseconds>(std::chrono::system_clock::now());
  for (const Instant later :
       {parseInternetDate("2090-01-01T00:00:00Z").value(), now + std::chrono::minutes(20)})
    EXPECT_EQ(collect(formatInternetDate(later).c_str()).status(), 2);
  change(beginRound, std::vector<LookupRequest>{{"us", {1}}},
         parseInternetDate("2090-01-01T00:00:00Z").value());
  for (const char* command : {"collect --charts --every 1", "publish"})
    EXPECT_EQ(start(command).status(), 7) << command;
  EXPECT_EQ(start("repair").lines(), "Taken out: rounds: 1, prices: 0.\n");
  EXPECT_EQ(start("publish").status(), 1);
}

TEST_P(CollectorProcessTest, EachRoleOfAServerNeedsItsOwnRightsOnly) {
  if (GetParam() == Engine::sqlite) GTEST_SKIP() << "a file has no roles";
  const auto tell = [&](std::initializer_list<const char*> statements) {
    change([&](SqlTransaction& transaction) {
      for (const char* each : statements) transaction.run(each);
    });
  };
  tell({"DROP SCHEMA public CASCADE", "CREATE SCHEMA public",
        "GRANT USAGE ON SCHEMA public TO PUBLIC", "CREATE ROLE maker LOGIN",
        "CREATE ROLE collector LOGIN", "CREATE ROLE publisher LOGIN",
        "ALTER SCHEMA public OWNER TO maker"});
  const auto as = [&](const char* role, const std::string& arguments) {
    return start(fmt::format("{} --database 'postgresql://{}@/postgres?host={}'", arguments, role,
                             testServer().folder()));
  };
  const std::string collect =
      "collect --ids ids --storefronts us --requests-per-minute 1000 --as-of 2026-11-0";
  EXPECT_EQ(as("collector", "init").status(), 5);
  EXPECT_EQ(as("maker", "init").status(), 0) << contentOf(folder / "errors");
  tell({"GRANT SELECT, INSERT, UPDATE, DELETE ON ALL TABLES IN SCHEMA public TO collector",
        "GRANT SELECT ON ALL TABLES IN SCHEMA public TO publisher"});
  for (const int day : {1, 2}) {
    sell(day);
    EXPECT_EQ(as("collector", collect + std::to_string(day)).status(), 0)
        << contentOf(folder / "errors");
  }
  EXPECT_EQ(as("publisher", collect + "3").status(), 5);
  EXPECT_EQ(as("publisher", "publish").status(), 0) << contentOf(folder / "errors");
  const std::string told = as("publisher", "status --json").lines();
  EXPECT_NE(told.find("\"prices\": 24,"), std::string::npos)
      << told << contentOf(folder / "errors");
}

QUILLET_IN_BOTH_DATABASES(CollectorProcessTest);

}  // namespace
}  // namespace quillet

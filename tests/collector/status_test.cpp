// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>
#include <sys/stat.h>

#include <fstream>
#include <regex>
#include <set>

#include "collector/run.h"
#include "collector/status_report.h"
#include "collector/store_test.h"
#include "publisher/price_files.h"
#include "store/price_seed_client.h"
#include "support/flattened.h"
#include "support/map_environment.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

/// The whole program against a scripted store, on a clock moved by hand.
class StatusTest : public StoreTest {
 protected:
  int run(std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--database", address});
    printed.clear();
    warned.clear();
    const CollectorWorld world{environment,
                               http,
                               clock,
                               "a",
                               [](const std::string&) { return false; },
                               [this](const std::string& text) { printed += text; },
                               [this](const std::string& text) { warned += text; }};
    return runVirtual(clock, runCollector(world, std::move(arguments), {}));
  }

  /// A round over the apps 1 to 2 in the us storefront.
  int collect(double price) {
    answer(200, fmt::format(R"({{"results":[{{"trackId":1,"trackName":"Fen","currency":"USD",)"
                            R"("price":{}}}]}})",
                            price));
    return go();
  }
  int go() { return run({"collect", "--ids", idsFile(), "--storefronts", "us"}); }
  void answer(int status, const std::string& body) {
    http.answer("https://store.example/lookup?id=1,2&country=us", status, body);
  }
  std::string idsFile() {
    std::ofstream(folder / "ids") << "1\n2\n";
    return folder / "ids";
  }

  /// The codes of what must be done, and the status; "" where all is well.
  std::string problems(std::vector<std::string> more = {}) {
    more.insert(more.begin(), {"status", "--json"});
    const int status = run(more);
    std::string codes;
    const std::string text = flattened(printed);
    static const std::regex kCode(R"re("code": "(\w+)")re");
    for (std::sregex_iterator each(text.begin(), text.end(), kCode), end; each != end; ++each)
      codes += (codes.empty() ? "" : " ") + (*each)[1].str();
    EXPECT_EQ(status, codes.empty() ? kCollectorOk : kCollectorUnwell) << printed << warned;
    return codes;
  }

  MapEnvironment environment{{{"QUILLET_DATA_DIR", (folder / "data").string()},
                              {"QUILLET_ITUNES_URL", "https://store.example"},
                              {"HOME", folder.string()}}};
  std::string printed;
  std::string warned;
};

TEST_P(StatusTest, FindsWhatSomebodyMustDoSomethingAbout) {
  EXPECT_EQ(problems(), "noRound");
  EXPECT_EQ(collect(5), 0);
  EXPECT_EQ(problems(), "") << "there is time to publish";
  clock.advance(2h);
  EXPECT_EQ(problems(), "notPublished");
  EXPECT_EQ(run({"publish"}), 0);
  EXPECT_EQ(problems(), "");

  clock.advance(20h);
  EXPECT_EQ(collect(5), 0);
  clock.advance(2h);
  EXPECT_EQ(problems(), "publicationLags") << "though no price changed";
  EXPECT_EQ(run({"publish"}), 0);
  clock.advance(37h);
  EXPECT_EQ(problems({"--every", "20"}), "");
  clock.advance(2h);
  EXPECT_EQ(problems({"--every", "20"}), "overdue");
  EXPECT_EQ(problems(), "");

  for (int i = 0; i < 3; ++i) answer(400, "");
  EXPECT_EQ(go(), kCollectorUpstream);
  EXPECT_EQ(run({"publish"}), 0);
  EXPECT_EQ(problems(), "failedLookups");
  clock.advance(10h);
  EXPECT_EQ(problems(), "overdue failedLookups") << "no success since";

  for (int i = 0; i < 6; ++i) answer(429, "");
  EXPECT_EQ(go(), kCollectorRefused);
  EXPECT_EQ(problems(), "overdue gaveUp failedLookups");
  EXPECT_EQ(collect(4), 0);
  EXPECT_EQ(problems(), "") << "it went on, and ended well";

  change(
      [](SqlTransaction& transaction) { transaction.run("UPDATE rounds SET began = began * 2"); });
  EXPECT_EQ(run({"status"}), kCollectorFuture);
  address = folder / "none.db";
  EXPECT_EQ(run({"status"}), kCollectorStorage);
}

TEST_P(StatusTest, TellsAPersonAndOtherPrograms) {
  EXPECT_EQ(collect(5), 0);
  clock.advance(24h);
  EXPECT_EQ(collect(4), 0);
  EXPECT_EQ(run({"publish"}), 0);
  clock.advance(24h);
  for (const int status : {503, 503, 503, 400, 400, 400}) answer(status, "");
  EXPECT_EQ(go(), kCollectorUpstream);
  clock.advance(3h);
  EXPECT_EQ(run({"status", "--every", "24"}), kCollectorUnwell);
  const fs::path published = folder / "data" / "price-data";
  static const std::regex kBytes(R"(bytes: \d+)");
  EXPECT_EQ(std::regex_replace(printed, kBytes, "bytes: N"),
            fmt::format(R"(Something must be done: Round 3 ended with 1 failed lookup.

Round         3, began 2026-11-03T03:00:00Z, ended 2026-11-03T03:01:04Z
              failed lookups: 1, prices: 0, changed: 0, not sold: 0
Last success  round 2, ended 2026-11-02T03:00:00Z, 27 h 1 min ago
Failed        us: 1 2
Last trouble  2026-11-03T03:00:04Z, 3 h 1 min ago: Lookup 1 (us, 2 IDs from 1 on): Apple's server returned an error (HTTP 503).
Next due      2026-11-04T03:00:00Z
Record        apps: 1 (sold: 1, gone: 0; moved: 1), prices: 2, bytes: N
Published in  {}

Storefront  Looked at             Changed               Published                     Age    Apps
us          2026-11-02T03:00:00Z  2026-11-02T03:00:00Z  2026-11-02T03:00:00Z   27 h 1 min       1
)",
                        published.string()));
  EXPECT_EQ(run({"status", "--every", "24", "--json"}), kCollectorUnwell);
  static const std::regex kBytesOfJson(R"re("bytes": \d+)re");
  EXPECT_EQ(
      std::regex_replace(flattened(printed), kBytesOfJson, "\"bytes\": 0"),
      fmt::format(
          R"({{"failed": [{{"apps": 2,"country": "us","ids": [1,2]}}],"lagSeconds": 97264,)"
          R"("lastSuccess": {{"began": "2026-11-02T03:00:00Z","ended": "2026-11-02T03:00:00Z",)"
          R"("id": 2}},"lastTrouble": {{"at": "2026-11-03T03:00:04Z",)"
          R"("text": "Lookup 1 (us, 2 IDs from 1 on): Apple's server returned an error )"
          R"((HTTP 503)."}},"nextDue": "2026-11-04T03:00:00Z","problems": [)"
          R"({{"code": "failedLookups","text": "Round 3 ended with 1 failed lookup."}}],)"
          R"("published": {{"folder": "{}","storefronts": [{{"ageSeconds": 97264,"apps": 1,)"
          R"("country": "us","generatedAt": "2026-11-02T03:00:00Z",)"
          R"("lookedAt": "2026-11-02T03:00:00Z"}}]}},"record": {{"apps": 1,"bytes": 0,"gone": 0,)"
          R"("moved": 1,"prices": 2,"sold": 1}},"round": {{"began": "2026-11-03T03:00:00Z",)"
          R"("changed": 0,"done": 1,"ended": "2026-11-03T03:01:04Z","failed": 1,"id": 3,)"
          R"("lookups": 1,"notSold": 0,"prices": 0}},"storefronts": [)"
          R"({{"changedAt": "2026-11-02T03:00:00Z","country": "us",)"
          R"("lookedAt": "2026-11-02T03:00:00Z"}}],"toldAt": "2026-11-03T06:01:04Z",)"
          R"("well": false}})",
          published.string()));
}

TEST(StatusReport, TellsOfARoundThatIsPublishedHalfWay) {
  const Instant began = parseInternetDate("2026-11-01T03:00:00Z").value() + 500ms;
  for (const auto& [situation, recorded, published, lags] :
       {std::tuple{"published before its end", 120min, 60min, true},
        std::tuple{"all of it", 120min, 120min, false},
        std::tuple{"the next one goes on", 1500min, 60min, false},
        std::tuple{"the one before", 120min, -60min, true}}) {
    RecordStatus record;
    record.newest = Round{.id = 1, .began = began, .ended = began + 2h};
    record.lastEnded = record.lastSuccess = EndedRound{1, began, began + 2h};
    record.storefronts = {{"us", began, began + recorded}};
    const auto looked = std::chrono::floor<std::chrono::seconds>(began + published);
    const auto problems =
        reportOn(record, {"folder", {{"us", 1, looked, looked}}}, 0h, began + 25h).problems;
    EXPECT_EQ(problems.size(), lags ? 1U : 0U) << situation;
  }
}

TEST_P(StatusTest, TellsOfSearchesThatWereNotAnswered) {
  const auto collectWith = [&](int status) {
    for (const char* entity : {"macSoftware", "software", "iPadSoftware"})
      http.answer(
          fmt::format("https://store.example/search?term=ink&entity={}&country=us&limit=200",
                      entity),
          std::string_view(entity) == "software" ? status : 200, R"({"results":[]})");
    answer(200, R"({"results":[]})");
    return run(
        {"collect", "--ids", idsFile(), "--storefronts", "us", "--search", "ink", "--quiet"});
  };
  EXPECT_EQ(collectWith(404), kCollectorOk);
  EXPECT_TRUE(warned.ends_with("Failed: search 'ink' (iphone, us)\n")) << warned;
  EXPECT_EQ(problems(), "failedQuestions");
  EXPECT_NE(printed.find("Round 1 had no answer to: search 'ink' (iphone, us)."),
            std::string::npos);
  EXPECT_EQ(collectWith(200), kCollectorOk);
  EXPECT_EQ(warned, "");
  EXPECT_EQ(problems(), "");
}

/// What the exporter's parser asks of a text: each sample under a TYPE of its name, a name's
/// samples together, none twice, whole numbers, and a line feed at the end.
void expectExposition(const std::string& text) {
  ASSERT_TRUE(text.ends_with('\n'));
  static const std::regex kHelp(R"(# HELP (quillet_collector_[a-z_]+) [A-Z0-9][^\n]*\.)");
  static const std::regex kType(R"(# TYPE (quillet_collector_[a-z_]+) gauge)");
  static const std::regex kSample(
      R"re((quillet_collector_[a-z_]+)(\{[a-z_]+="[A-Za-z]+"\})? (-?\d+))re");
  std::set<std::string> types;
  std::set<std::string> samples;
  std::string current;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    std::smatch match;
    if (std::regex_match(line, match, kHelp)) {
      EXPECT_TRUE(types.insert(match[1]).second) << line;
      current = match[1];
    } else if (std::regex_match(line, match, kType)) {
      EXPECT_EQ(match[1], current) << line;
    } else {
      ASSERT_TRUE(std::regex_match(line, match, kSample)) << line;
      EXPECT_EQ(match[1], current) << line;
      EXPECT_TRUE(samples.insert(match[1].str() + match[2].str()).second) << line;
    }
  }
}

TEST_P(StatusTest, WritesMetricsThatAnExporterReads) {
  const fs::path file = folder / "quillet.prom";
  const mode_t before = ::umask(077);
  EXPECT_EQ(run({"status", "--metrics", file}), kCollectorUnwell);
  ::umask(before);
  EXPECT_NE(fs::status(file).permissions() & fs::perms::others_read, fs::perms::none);
  expectExposition(contentOf(file));
  EXPECT_EQ(collect(5), 0);
  EXPECT_EQ(run({"publish"}), 0);
  EXPECT_EQ(run({"status", "--every", "20", "--metrics", file}), kCollectorOk);
  const std::string text = contentOf(file);
  expectExposition(text);
  for (const char* line :
       {"quillet_collector_well 1\n", "quillet_collector_problem{code=\"overdue\"} 0\n",
        "quillet_collector_last_success_timestamp_seconds 1793502000\n",
        "quillet_collector_next_due_timestamp_seconds 1793574000\n",
        "quillet_collector_looked_timestamp_seconds{storefront=\"us\"} 1793502000\n"})
    EXPECT_NE(text.find(line), std::string::npos) << line << text;
  EXPECT_EQ(text.find("last_trouble"), std::string::npos) << "there was none";
  for (const auto& entry : fs::directory_iterator(folder))
    EXPECT_FALSE(entry.path().filename().string().ends_with(".part"));
  EXPECT_EQ(run({"status", "--metrics", folder / "none" / "quillet.prom"}), kCollectorStorage);
}

TEST_P(StatusTest, PublishesWhenTheStoreWasLastAskedAndLeavesTheFilesAlone) {
  for (const double price : {5, 4}) {
    EXPECT_EQ(collect(price), 0);
    clock.advance(24h);
  }
  EXPECT_EQ(run({"publish"}), 0);
  const fs::path files = folder / "data" / "price-data" / kPriceFilesPath;
  const std::string before = contentOf(files / "changes-us.json.gz");
  const auto lookedAt = [&] {
    return decodeSeedManifest(contentOf(files / kManifestName)).storefronts.at(0).lookedAt;
  };
  EXPECT_EQ(lookedAt(), parseInternetDate("2026-11-02T03:00:00Z"));
  EXPECT_EQ(collect(4), 0);
  EXPECT_EQ(run({"publish"}), 0);
  EXPECT_NE(printed.find("changes-us.json.gz: "), std::string::npos);
  EXPECT_EQ(contentOf(files / "changes-us.json.gz"), before);
  EXPECT_EQ(lookedAt(), parseInternetDate("2026-11-03T03:00:00Z"));
  answer(403, "");
  clock.advance(24h);
  for (int i = 0; i < 5; ++i) answer(403, "");
  EXPECT_EQ(go(), kCollectorRefused);
  EXPECT_EQ(run({"publish"}), 0);
  EXPECT_EQ(lookedAt(), parseInternetDate("2026-11-03T03:00:00Z")) << "a refusal is no answer";
}

QUILLET_IN_BOTH_DATABASES(StatusTest);

}  // namespace
}  // namespace quillet

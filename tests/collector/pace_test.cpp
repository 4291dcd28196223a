// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// How fast a machine asks, however many collectors are at work on it.

#include <fmt/format.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <fstream>
#include <map>
#include <set>

#include "collector/paced_http_client.h"
#include "collector/record_test.h"
#include "collector/round_pace.h"
#include "collector/run.h"
#include "support/fake_clock.h"
#include "support/map_environment.h"
#include "support/run_virtual.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

using Times = std::vector<Clock::Monotonic>;

/// The most that were asked within any window of the store's.
std::size_t mostInAWindow(const Times& times) {
  std::size_t most = 0;
  for (std::size_t first = 0, next = 0; first < times.size(); ++first) {
    while (next < times.size() && times[next] < times[first] + kRequestWindow) ++next;
    most = std::max(most, next - first);
  }
  return most;
}

/// A store without chart pages, in whose feeds is one app.
class SlowStore final : public HttpClient {
 public:
  explicit SlowStore(FakeClock& clock) : clock_(clock) {}

  Task<HttpResponse> get(HttpRequest request, StopToken stop) override {
    times.push_back(clock_.monotonic());
    ++asked[request.url];
    co_await clock_.sleepFor(1s, stop);
    HttpResponse response{.status = 200, .body = R"({"results":[]})"};
    if (request.url.find("/charts/") != std::string::npos) response.status = 404;
    if (request.url.find("/rss/") != std::string::npos)
      response.body = R"({"feed":{"entry":{"id":{"attributes":{"im:id":"7"}}}}})";
    co_return response;
  }

  Times times;
  std::map<std::string, int> asked;

 private:
  FakeClock& clock_;
};

class PaceTest : public RecordTest {
 protected:
  Task<int> start(int process, const std::string& rate) {
    CollectorWorld world{environment,
                         store,
                         clock,
                         fmt::format("machine/{}", process),
                         [this](const std::string& worker) { return ended.contains(worker); },
                         [](const std::string&) {},
                         [this](const std::string& text) { said += text; }};
    return runCollector(world,
                        {"collect", "--charts", "--storefronts", "us,de", "--database", address,
                         "--requests-per-minute", rate},
                        {});
  }

  bool hasSaid(const std::string& text) const { return said.find(text) != std::string::npos; }

  FakeClock clock{parseInternetDate("2026-11-01T03:00:00Z").value()};
  SlowStore store{clock};
  MapEnvironment environment{
      {{"QUILLET_DATA_DIR", folder}, {"HOME", folder}, {"QUILLET_COLLECTOR_BUDGET_DIR", folder}}};
  std::set<std::string> ended;
  std::string said;
};

TEST_P(PaceTest, FourOfAMachineShareItsBudgetAndThePreparation) {
  std::vector<Task<int>> starts;
  for (const int process : {1, 2, 3, 4}) starts.push_back(start(process, "15"));
  for (Task<int>& each : starts) EXPECT_EQ(runVirtual(clock, std::move(each)), 0);
  // Six chart pages and seven feeds in each storefront, two of the pages twice: paid and free apps
  // stand on one page, and each is a question of its own.
  EXPECT_EQ(store.times.size(), 2U * 13 + 2);
  for (const auto& [url, times] : store.asked)
    EXPECT_EQ(times, url.find("/charts/") == std::string::npos ? 1 : 2) << url;
  EXPECT_EQ(mostInAWindow(store.times), 15U);
  EXPECT_TRUE(
      hasSaid("Another collector (process 1) on this machine is at this record; both share "
              "one budget.\n"));
  EXPECT_FALSE(hasSaid("process 4"));
}

TEST_P(PaceTest, EachHeedsItsOwnNumberOverAllRequests) {
  EXPECT_EQ(runVirtual(clock, start(1, "15")), 0);
  ended = {"machine/1"};
  const std::size_t before = store.times.size();
  EXPECT_EQ(runVirtual(clock, start(2, "4")), 0);
  const Times second(store.times.begin() + static_cast<std::ptrdiff_t>(before), store.times.end());
  EXPECT_EQ(mostInAWindow(second), 4U);
  EXPECT_GE(second.front(), store.times[before - 4] + kRequestWindow);
  EXPECT_FALSE(hasSaid("Another")) << "it has ended";
}

QUILLET_IN_BOTH_DATABASES(PaceTest);

/// Tells one time; what happens while it is read is the test's.
class ClockAt final : public Clock {
 public:
  explicit ClockAt(
      std::chrono::milliseconds time, std::function<void()> meanwhile = [] {})
      : time_(time), meanwhile_(std::move(meanwhile)) {}

  [[nodiscard]] Instant now() const override { return {}; }
  [[nodiscard]] Monotonic monotonic() const override {
    meanwhile_();
    return Monotonic(time_);
  }
  Task<> sleepFor(std::chrono::milliseconds, StopToken) override { co_return; }

 private:
  std::chrono::milliseconds time_;
  std::function<void()> meanwhile_;
};

class RequestLedgerTest : public testing::Test {
 protected:
  RequestLedger opened() const { return {{folder.path()}, "list"}; }

  const TemporaryFolder folder;
  const fs::path file = folder.path() / "list";
};

TEST_F(RequestLedgerTest, TouchesNothingThatAnotherPutInItsPlace) {
  const fs::path other = folder.path() / "other";
  std::ofstream(other) << "untouched";
  for (const auto& [what, put] :
       {std::pair{"a link",
                  +[](const fs::path& to, const fs::path& at) { create_symlink(to, at); }},
        std::pair{"a hard link",
                  +[](const fs::path& to, const fs::path& at) { create_hard_link(to, at); }},
        std::pair{"a folder",
                  +[](const fs::path&, const fs::path& at) { create_directory(at); }}}) {
    put(other, file);
    EXPECT_THROW((void)opened(), std::system_error) << what;
    fs::remove(file);
  }
  EXPECT_EQ(contentOf(other), "untouched");
}

TEST_F(RequestLedgerTest, ForgetsTheTimesOfAnotherStartOfTheMachine) {
  EXPECT_EQ(opened().enter(ClockAt(500h), 1).entry, RequestLedger::Entry::taken);
  EXPECT_EQ(opened().enter(ClockAt(500h), 1).wait, kRequestWindow);
  EXPECT_EQ(opened().enter(ClockAt(1min), 1).entry, RequestLedger::Entry::taken);
  EXPECT_EQ(opened().enter(ClockAt(1min), 1).entry, RequestLedger::Entry::full);
}

TEST_F(RequestLedgerTest, LetsNobodyBetweenTheClockAndTheList) {
  RequestLedger ledger = opened();
  RequestLedger other = opened();
  std::vector<RequestLedger::Entry> entries;
  const ClockAt clock(1000ms, [&] { entries.push_back(other.enter(ClockAt(1001ms), 5).entry); });
  EXPECT_EQ(ledger.enter(clock, 5).entry, RequestLedger::Entry::taken);
  EXPECT_EQ(entries, std::vector{RequestLedger::Entry::locked});
}

/// Answers from another address than was asked for, on a disk that is full by then.
class RedirectingStore final : public HttpClient {
 public:
  Task<HttpResponse> get(HttpRequest, StopToken) override {
    const rlimit full{.rlim_cur = sizeof(std::int64_t), .rlim_max = RLIM_INFINITY};
    ::setrlimit(RLIMIT_FSIZE, &full);
    co_return HttpResponse{.status = 200, .body = "good", .redirectedTo = "https://elsewhere"};
  }
};

TEST_F(RequestLedgerTest, LosesNoAnswerToAFullDisk) {
  ::signal(SIGXFSZ, SIG_IGN);
  FakeClock clock;
  RedirectingStore store;
  std::string said;
  PacedHttpClient http(
      store, clock, 15, [this] { return opened(); }, [&](const std::string& line) { said = line; });
  std::string answer;
  EXPECT_NO_THROW(answer = runVirtual(clock, http.get({}, {})).body);
  const rlimit all{.rlim_cur = RLIM_INFINITY, .rlim_max = RLIM_INFINITY};
  ::setrlimit(RLIMIT_FSIZE, &all);
  EXPECT_EQ(answer, "good");
  EXPECT_EQ(said,
            "This machine's list of requests cannot be used: File too large. This collector "
            "keeps a budget of its own.");
}

TEST_F(RequestLedgerTest, StaysSmall) {
  RequestLedger ledger = opened();
  for (int i = 0; i < 210'000; ++i) (void)ledger.enter(ClockAt(1ms * i), 1'000'000);
  EXPECT_LT(fs::file_size(file), 2'000'000U);
  EXPECT_EQ(ledger.enter(ClockAt(210s), 60'500).entry, RequestLedger::Entry::taken);
  EXPECT_EQ(ledger.enter(ClockAt(210s), 60'500).entry, RequestLedger::Entry::full);
}

TEST(RoundPace, SaysWhichRoundCannotFitIntoItsPeriod) {
  const Round large{.id = 3, .lookups = 200'000};
  EXPECT_EQ(beginningOf(large, {}), "Round 3: 200,000 lookups; 9 d 6 h at 15 requests a minute.");
  EXPECT_EQ(shortageOf(large, {15, 0h}), std::nullopt);
  EXPECT_EQ(shortageOf(large, {15, 24h}),
            "200,000 lookups take 9 d 6 h at 15 a minute, longer than the 24 h of --every: 12 "
            "addresses would do it.");
  EXPECT_EQ(shortageOf({.id = 3, .lookups = 21'600}, {15, 24h}), std::nullopt);
}

}  // namespace
}  // namespace quillet

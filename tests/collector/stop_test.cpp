// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// What Ctrl-C and SIGTERM end: each wait in which the collector's event loop does not run.

#include <arpa/inet.h>
#include <fcntl.h>
#include <fmt/format.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "collector/lookup_queue.h"
#include "collector/price_record.h"
#include "collector/publish.h"
#include "collector/record_test.h"
#include "publisher/published_folder.h"
#include "support/place.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// As long as an end may take.
constexpr auto kLongestEnd = 2s;

/// Kills a process that does not end in time.
class Deadline {
 public:
  explicit Deadline(pid_t id) : thread_([this, id] { guard(id); }) {}
  ~Deadline() {
    {
      const std::lock_guard lock(mutex_);
      isOver_ = true;
    }
    over_.notify_one();
    thread_.join();
  }
  Deadline(const Deadline&) = delete;
  Deadline& operator=(const Deadline&) = delete;

 private:
  void guard(pid_t id) {
    std::unique_lock lock(mutex_);
    if (!over_.wait_for(lock, kLongestEnd, [this] { return isOver_; })) ::kill(id, SIGKILL);
  }

  std::mutex mutex_;
  std::condition_variable over_;
  bool isOver_ = false;
  std::thread thread_;
};

/// The status that the signal ends the program with; -1 when that takes too long.
int endedBy(Program& program, int signal) {
  const Deadline deadline(program.id());
  return program.end(signal);
}

Program collector(const fs::path& folder, const std::string& arguments) {
  return Program(fmt::format(
      "cd '{}'; export QUILLET_DATA_DIR=data QUILLET_COLLECTOR_BUDGET_DIR=.; {} exec {} {} "
      "2>errors",
      folder.string(), kErrorsAreAJournal, placeOf(QUILLET_COLLECTOR_PROGRAM), arguments));
}

void untilItHasOpen(const Program& program, const fs::path& file) {
  const fs::path descriptors = fmt::format("/proc/{}/fd", program.id());
  for (;; std::this_thread::yield()) {
    std::error_code gone;
    for (const auto& each : fs::directory_iterator(descriptors)) {
      if (fs::read_symlink(each, gone) == file) return;
    }
  }
}

TEST(Stop, EndsTheWaitForInput) {
  const TemporaryFolder folder;
  const fs::path pipe = folder.path() / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  ASSERT_EQ(collector(folder.path(), "init").status(), 0);
  for (const char* arguments : {"collect --ids - <pipe", "collect --ids pipe"}) {
    Program program = collector(folder.path(), arguments);
    const int writer = ::open(pipe.c_str(), O_WRONLY | O_CLOEXEC);
    // More than a pipe holds: some of it has been read when this returns.
    const std::string remarks(std::size_t{200} * 1024, '#');
    EXPECT_EQ(::write(writer, remarks.data(), remarks.size()),
              static_cast<ssize_t>(remarks.size()));
    EXPECT_EQ(endedBy(program, SIGTERM), 128 + SIGTERM) << arguments;
    ::close(writer);
    EXPECT_EQ(contentOf(folder.path() / "errors"),
              "quillet-collector: Stopped; the next run goes on from here.\n");
  }
}

/// A listening socket, and its port.
std::pair<int, int> listening() {
  const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* const general = reinterpret_cast<sockaddr*>(&address);
  EXPECT_EQ(::bind(listener, general, size), 0);
  EXPECT_EQ(::listen(listener, 1), 0);
  ::getsockname(listener, general, &size);
  return {listener, ::ntohs(address.sin_port)};
}

TEST(Stop, EndsTheWaitForADatabaseServerThatSaysNothing) {
  const TemporaryFolder folder;
  const auto [listener, port] = listening();
  Program program = collector(
      folder.path(), fmt::format("publish --database postgresql://x@127.0.0.1:{}/y", port));
  const int connection = ::accept(listener, nullptr, nullptr);
  char first = 0;
  EXPECT_EQ(::read(connection, &first, 1), 1);
  EXPECT_EQ(endedBy(program, SIGINT), 128 + SIGINT);
  ::close(connection);
  ::close(listener);
}

class StopTest : public RecordTest {
 protected:
  void untilItWaitsForTheDatabase(const Program& program) {
    if (GetParam() == Engine::sqlite) return untilItHasOpen(program, address);
    const auto other = openDatabase(address, StopWatch());
    for (std::int64_t waiting = 0; waiting == 0;) {
      other->begin(SqlAccess::read)
          ->each("SELECT COUNT(*) FROM pg_locks WHERE NOT granted", {},
                 [&](const SqlRow& row) { waiting = row.integer(0); });
    }
  }

  /// A price that has changed, in two storefronts.
  void recordChanges() {
    for (const char* country : {"us", "de"}) {
      for (const int day : {1, 2}) {
        change(recordPrices, std::string(country),
               std::vector<ObservedApp>{{.trackId = 1,
                                         .name = "App",
                                         .currency = "USD",
                                         .price = static_cast<double>(day)}},
               Instant(std::chrono::days(20'000 + day)));
      }
    }
  }

  std::string databaseOption() const { return fmt::format(" --database '{}'", address); }

  const fs::path published = folder / "out" / kPriceFilesPath;
};

TEST_P(StopTest, EndsTheWaitForAnothersTransaction) {
  recordChanges();
  {
    const auto held = database->begin(SqlAccess::alone);
    Program program = collector(folder, "collect --recorded" + databaseOption());
    untilItWaitsForTheDatabase(program);
    EXPECT_EQ(endedBy(program, SIGINT), 128 + SIGINT);
  }
  EXPECT_EQ(collector(folder, "publish out" + databaseOption()).status(), 0)
      << "nothing is in the way";
}

TEST_P(StopTest, EndsTheWaitForAnotherWhoPublishes) {
  recordChanges();
  const PublishedFolder held(published, [] { throw std::logic_error("nobody else publishes"); });
  Program program = collector(folder, "publish out" + databaseOption());
  untilItHasOpen(program, published);
  EXPECT_EQ(endedBy(program, SIGTERM), 128 + SIGTERM);
  EXPECT_TRUE(fs::is_empty(published));
}

TEST_P(StopTest, EndsPublishingBetweenTwoFiles) {
  recordChanges();
  StopSource stop;
  const auto say = [&](const std::string&) { stop.requestStop(); };
  EXPECT_THROW(
      (void)publishRecord(*database, {.folder = folder / "out"}, say, StopWatch(stop.token())),
      Stopped);
  std::vector<std::string> files;
  for (const auto& file : fs::directory_iterator(published))
    files.push_back(file.path().filename());
  EXPECT_EQ(files, std::vector<std::string>{"changes-us.json.gz"});
}

TEST_P(StopTest, LetsTransactionsEndWellWhereNothingHoldsThemUp) {
  StopSource stop;
  stop.requestStop();
  const auto stopped = openDatabase(address, StopWatch(stop.token()));
  inTransaction(*stopped, SqlAccess::alone, [](SqlTransaction& transaction) {
    beginRound(transaction, {{"us", {1}}}, Instant());
  });
  EXPECT_EQ(change(newestRound).value().lookups, 1);
  const auto held = database->begin(SqlAccess::alone);
  EXPECT_THROW((void)stopped->begin(SqlAccess::alone), Stopped);
}

QUILLET_IN_BOTH_DATABASES(StopTest);

}  // namespace
}  // namespace quillet

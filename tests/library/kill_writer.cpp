// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// kill_writer [kills]: kills a process that writes to a library without pause, at random moments,
// and looks each time whether the library holds every change that was reported as done, and no
// half of any.

#include <fmt/format.h>

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <random>
#include <string>
#include <thread>

#include "base/numbers.h"
#include "library/alerts.h"
#include "library/data_store.h"
#include "library/import_records.h"
#include "library/recorded_history.h"
#include "net/run_task.h"

namespace quillet {
namespace {

using std::chrono::microseconds;

constexpr std::int64_t kDefaultKills = 20;
constexpr std::int64_t kKillsPerLibrary = 10;  // checking takes longer as a library grows
constexpr const char* kCounter = "counter";    // its stamp is the number of the last change

// Every tenth change is too large for SQLite's cache, so that a kill also meets pages of an open
// transaction in the log.
std::size_t pointsOf(std::int64_t number) { return number % 10 == 0 ? 40'000 : 3; }

/// The change of that number: rows in two tables, and a new stamp of the counter.
void makeChange(WriteTransaction& transaction, std::int64_t number) {
  addAlerts(transaction, {{.trackId = number}});
  const PricePoint point{0, number, "us", 4.99, "USD", {}, false};
  addPricePoints(transaction, std::vector<PricePoint>(pointsOf(number), point));
  recordImport(transaction, {0, kCounter, std::to_string(number), {}});
}

std::int64_t changesIn(SQLite::Database& database) {
  return database.execAndGet("SELECT count(*) FROM ZALERTRECORD").getInt64();
}

Task<> writeForEver(std::string file) {
  const auto store = co_await DataStore::open(std::move(file));
  std::int64_t number = co_await store->read(changesIn);
  for (;;) {
    ++number;
    co_await store->change(makeChange, number);
    fmt::print("{}\n", number);
    std::fflush(stdout);
  }
}

void require(bool holds, const std::string& what) {
  if (!holds) throw std::runtime_error(what);
}

/// What is in the library after a kill; throws where something is torn.
std::int64_t checkedChanges(SQLite::Database& database) {
  const std::string integrity = database.execAndGet("PRAGMA integrity_check").getString();
  require(integrity == "ok", "integrity_check: " + integrity);
  const std::int64_t changes = changesIn(database);
  SQLite::Statement points(
      database, "SELECT ZTRACKID, count(*) FROM ZPRICEPOINT GROUP BY ZTRACKID ORDER BY ZTRACKID");
  std::int64_t number = 0;
  while (points.executeStep()) {
    ++number;
    require(points.getColumn(0).getInt64() == number, fmt::format("change {} is missing", number));
    require(static_cast<std::size_t>(points.getColumn(1).getInt64()) == pointsOf(number),
            fmt::format("half of change {} is there", number));
  }
  require(number == changes, fmt::format("{} alerts, but points of {}", changes, number));
  const auto counter = importRecord(database, kCounter);
  require(changes == 0 || (counter && counter->stamp == std::to_string(changes)),
          fmt::format("the counter differs from {} changes", changes));
  return changes;
}

/// Lets a writer live for a while and returns the last change that it reported.
std::int64_t writeAndKill(const QString& file, std::mt19937& random) {
  // Half of the kills meet the writer while it opens the library, the others while it writes.
  const bool whileWriting = random() % 2 == 0;
  const microseconds life(random() % 60'000);
  QProcess writer;
  writer.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  writer.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--write"), file});
  require(writer.waitForStarted(), "the writer does not start");
  if (whileWriting) require(writer.waitForReadyRead(), "the writer writes nothing");
  std::this_thread::sleep_for(life);
  writer.kill();
  writer.waitForFinished();
  require(writer.exitStatus() == QProcess::CrashExit, "the writer ended by itself");
  QByteArray lines = writer.readAllStandardOutput();
  lines.truncate(lines.lastIndexOf('\n'));
  return lines.mid(lines.lastIndexOf('\n') + 1).toLongLong();
}

/// Kills writers of one library, from its making on; returns how many changes it holds then.
std::int64_t killWriters(std::int64_t kills, std::mt19937& random) {
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("default.store"));
  std::int64_t changes = 0;
  for (std::int64_t kill = 0; kill < kills; ++kill) {
    const std::int64_t reported = std::max(changes, writeAndKill(file, random));
    changes = LibraryConnection(file.toStdString()).read(checkedChanges);
    // The last one may be committed and not yet reported.
    require(changes == reported || changes == reported + 1,
            fmt::format("{} changes reported, {} found", reported, changes));
  }
  return changes;
}

void run(std::int64_t kills, unsigned seed) {
  std::mt19937 random(seed);
  std::int64_t changes = 0;
  for (std::int64_t done = 0; done < kills; done += kKillsPerLibrary) {
    changes += killWriters(std::min(kKillsPerLibrary, kills - done), random);
  }
  fmt::print("{} kills, {} changes: none lost, none torn\n", kills, changes);
}

}  // namespace
}  // namespace quillet

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const std::string first = argc > 1 ? argv[1] : "";
  const unsigned seed = std::random_device()();
  try {
    if (first == "--write" && argc > 2) {
      quillet::runTask(quillet::writeForEver(argv[2]));
    } else {
      quillet::run(quillet::parseWhole(first).value_or(quillet::kDefaultKills), seed);
    }
    return 0;
  } catch (const std::exception& error) {
    fmt::print(stderr, "kill_writer (seed {}): {}\n", seed, error.what());
    return 1;
  }
}

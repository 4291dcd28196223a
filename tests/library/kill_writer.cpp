// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// kill_writer [kills]: kills a process that writes to a library without pause, at random moments:
// so often while it edits or checks prices, and sometimes while it imports. Each time it looks
// whether the library holds every change that was reported as done, and no half of any.

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <chrono>
#include <exception>
#include <map>
#include <random>
#include <thread>

#include "base/numbers.h"
#include "library/killed_writers.h"
#include "library/library_connection.h"
#include "net/run_task.h"

namespace quillet {
namespace {

using std::chrono::microseconds;

constexpr std::int64_t kDefaultKills = 20;
constexpr std::int64_t kKillsPerLibrary = 10;  // checking takes longer as a library grows
constexpr std::int64_t kKillsPerImport = 100;
constexpr std::array kWriters{&kEdits, &kPasses, &kImports};

const KilledWriter& writerOf(const std::string& name) {
  return **std::ranges::find(kWriters, name, [](const KilledWriter* each) { return each->name; });
}

/// What is in the library after a kill; throws where something is torn.
std::int64_t checkedChange(SQLite::Database& database, const KilledWriter& writer) {
  const std::string integrity = database.execAndGet("PRAGMA integrity_check").getString();
  require(integrity == "ok", "integrity_check: " + integrity);
  SQLite::Statement strays(database, "PRAGMA foreign_key_check");
  require(!strays.executeStep(), "a row refers to one that is not there");
  return writer.lastChange(database);
}

/// Lets a writer live for a while and returns the last change that it reported.
std::int64_t writeAndKill(const KilledWriter& kind, const QString& file, std::mt19937& random) {
  // Half of the kills meet the writer while it opens the library, the others while it writes.
  const bool whileWriting = random() % 2 == 0;
  const microseconds life(random() % 60'000);
  QProcess writer;
  writer.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  writer.start(QCoreApplication::applicationFilePath(),
               {QStringLiteral("--write"), QString::fromUtf8(kind.name), file});
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
std::int64_t killWriters(const KilledWriter& kind, std::int64_t kills, std::mt19937& random) {
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("default.store"));
  std::int64_t change = 0;
  for (std::int64_t kill = 0; kill < kills; ++kill) {
    const std::int64_t reported = std::max(change, writeAndKill(kind, file, random));
    change = LibraryConnection(file.toStdString()).read([&](SQLite::Database& database) {
      return checkedChange(database, kind);
    });
    // The last one may be committed and not yet reported.
    require(change == reported || change == reported + 1,
            fmt::format("{}: {} changes reported, {} found", kind.name, reported, change));
  }
  return change;
}

/// One library after another, edited and checked in turns; now and then one that is imported to,
/// beside the count.
void run(std::int64_t kills, unsigned seed) {
  std::mt19937 random(seed);
  std::map<std::string, std::int64_t> changes;
  const auto kill = [&](const KilledWriter& kind) {
    changes[kind.name] += killWriters(kind, kKillsPerLibrary, random);
  };
  for (std::int64_t done = 0; done < kills; done += 2 * kKillsPerLibrary) {
    kill(kEdits);
    kill(kPasses);
    if (done % kKillsPerImport == 0) kill(kImports);
  }
  fmt::print(
      "{} kills in {} edits and {} lookups of passes, more in {} imports: none lost, none "
      "torn\n",
      kills, changes["edits"], changes["passes"], changes["imports"]);
}

}  // namespace
}  // namespace quillet

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const std::string first = argc > 1 ? argv[1] : "";
  const unsigned seed = std::random_device()();
  try {
    if (first == "--write" && argc > 3) {
      quillet::runTask(quillet::writerOf(argv[2]).write(argv[3]));
    } else {
      quillet::run(quillet::parseWhole(first).value_or(quillet::kDefaultKills), seed);
    }
    return 0;
  } catch (const std::exception& error) {
    fmt::print(stderr, "kill_writer (seed {}): {}\n", seed, error.what());
    return 1;
  }
}

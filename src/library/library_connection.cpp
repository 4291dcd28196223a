// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/library_connection.h"

#include <SQLiteCpp/Exception.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include <chrono>
#include <system_error>

#include "base/errors.h"
#include "library/schema/revisions.h"

namespace quillet {
namespace {

/// Another program may write for a moment, to repair or to look around; ours never do.
constexpr std::chrono::milliseconds kPatience{5000};

/// An import touches pages of the indexes all over: 500,000 prices in pieces of 100,000 took 2.0 s
/// with SQLite's own 2 MB and 1.65 s with these; more cost memory and gained little.
constexpr int kCacheKilobytes = 8000;

[[noreturn]] void failToOpen(std::string_view reason) {
  throw DatabaseError(fmt::format("The library could not be opened: {}.", reason));
}

/// Held for as long as the library is open: there is one writer.
FileLock locked(const std::filesystem::path& file) {
  const std::filesystem::path lockFile = std::filesystem::path(file) += ".lock";
  Descriptor opened;
  try {
    opened = openLockFile(lockFile);
  } catch (const std::system_error& error) {
    failToOpen(fmt::format("{}: {}", lockFile.string(), error.code().message()));
  }
  try {
    if (auto lock = FileLock::tryTake(opened)) return std::move(*lock);
  } catch (const std::system_error& error) {
    throw DatabaseError(
        fmt::format("The library could not be locked: {}.", error.code().message()));
  }
  throw DatabaseError("Another Quillet is writing to the library.", DatabaseError::Kind::inUse);
}

/// The library's folder, made where there is none, for its owner alone.
std::filesystem::path withFolder(const std::filesystem::path& file) {
  std::error_code error;
  if (std::filesystem::create_directories(file.parent_path(), error)) {
    std::filesystem::permissions(file.parent_path(), std::filesystem::perms::owner_all, error);
  }
  if (error) failToOpen(error.message());
  return file;
}

/// Whether closing moves what the log holds into the database.
void setCheckpointOnClose(SQLite::Database& database, bool wanted) {
  sqlite3_db_config(database.getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, wanted ? 0 : 1,
                    static_cast<int*>(nullptr));
}

SQLite::Database opened(const std::filesystem::path& file, QueryLog* log) {
  try {
    // Whoever has the connection uses it from one thread at a time: SQLite need not lock each step.
    const int mode = SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE | SQLite::OPEN_NOMUTEX;
    SQLite::Database database(file.string(), mode, static_cast<int>(kPatience.count()));
    if (log != nullptr) log->watch(database.getHandle());
    // A library that is refused is left as it was, to the byte.
    setCheckpointOnClose(database, false);
    requireKnownRevision(database);
    setCheckpointOnClose(database, true);
    database.exec("PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL; PRAGMA foreign_keys = ON");
    database.exec(fmt::format("PRAGMA cache_size = -{}", kCacheKilobytes));
    bringUpToDate(database);
    return database;
  } catch (const SQLite::Exception& error) {
    failToOpen(error.what());
  }
}

}  // namespace

LibraryConnection::LibraryConnection(const std::filesystem::path& file, const LogSink& sink)
    : lock_(locked(withFolder(file))),
      log_(sink ? std::make_unique<QueryLog>(sink) : nullptr),
      database_(opened(file, log_.get())) {}

void LibraryConnection::fail(std::string_view what, const SQLite::Exception& error) {
  throw DatabaseError(fmt::format("The library could not be {}: {}.", what, error.what()));
}

}  // namespace quillet

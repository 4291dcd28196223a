// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/library_reader.h"

#include <fmt/format.h>

#include <chrono>
#include <utility>

#include "base/errors.h"
#include "library/schema/revisions.h"

namespace quillet {
namespace {

// Of a writer that holds the whole file for a moment.
constexpr std::chrono::milliseconds kPatience{500};

}  // namespace

LibraryReader::LibraryReader(const std::filesystem::path& file) : database_(opened(file)) {}

/// SQLite opens whatever there is: what it is shows when something is read.
SQLite::Database LibraryReader::opened(const std::filesystem::path& file) {
  try {
    const int mode = SQLite::OPEN_READONLY | SQLite::OPEN_NOMUTEX;
    SQLite::Database database(file.string(), mode, static_cast<int>(kPatience.count()));
    requireKnownRevision(database);
    return database;
  } catch (const SQLite::Exception& error) {
    fail(error);
  }
}

bool LibraryReader::hasChanged() {
  const std::int64_t version = read([](SQLite::Database& database) {
    return database.execAndGet("PRAGMA data_version").getInt64();
  });
  return std::exchange(version_, version) != version;
}

void LibraryReader::fail(const SQLite::Exception& error) {
  throw DatabaseError(fmt::format("The library could not be read: {}.", error.what()));
}

}  // namespace quillet

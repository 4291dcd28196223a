// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>

#include <cstdint>
#include <filesystem>
#include <optional>

namespace quillet {

/// A connection that only reads a library, which another process may be writing to. It belongs to
/// one thread.
class LibraryReader {
 public:
  /// Throws DatabaseError where there is no library that this build knows.
  explicit LibraryReader(const std::filesystem::path& file);

  /// Returns what `operation` returns for the database. Throws DatabaseError for SQLite's errors,
  /// as for a library that is still of an older revision.
  template <typename Operation>
  auto read(Operation operation) {
    try {
      return operation(database_);
    } catch (const SQLite::Exception& error) {
      fail(error);
    }
  }

  /// Whether anything may be different from what it was at the last call; true at first. Throws
  /// DatabaseError.
  [[nodiscard]] bool hasChanged();

 private:
  [[noreturn]] static void fail(const SQLite::Exception& error);
  static SQLite::Database opened(const std::filesystem::path& file);

  SQLite::Database database_;
  std::optional<std::int64_t> version_;
};

}  // namespace quillet

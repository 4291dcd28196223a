// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Transaction.h>

#include <filesystem>
#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>

#include "base/log_sink.h"
#include "library/schema/query_log.h"
#include "library/write_transaction.h"
#include "system/file_lock.h"

namespace quillet {

/// The one writable connection to a library. It belongs to one thread at a time.
class LibraryConnection {
 public:
  /// Opens the library, makes it where there is none, and brings it up to date. Throws
  /// DatabaseError where that cannot be, another process writes to it, or a newer Quillet wrote it.
  /// `sink`, unless it is empty, is told of each query, on the thread that asks it.
  explicit LibraryConnection(const std::filesystem::path& file, const LogSink& sink = {});

  /// Returns what `operation` returns for the database. Throws DatabaseError for SQLite's errors,
  /// and whatever the operation throws.
  template <typename Operation>
  auto read(Operation operation) {
    try {
      return operation(database_);
    } catch (const SQLite::Exception& error) {
      fail("read", error);
    }
  }

  /// Runs `operation` on a transaction and commits; then `changes` holds what it touched. When it
  /// throws, nothing has happened. Errors as of read().
  template <typename Operation>
  auto change(LibraryChanges& changes, Operation operation) {
    try {
      SQLite::Transaction transaction(database_, SQLite::TransactionBehavior::IMMEDIATE);
      WriteTransaction work{database_, {}};
      const auto commit = [&] {
        transaction.commit();
        changes = std::move(work.changes);
      };
      if constexpr (std::is_void_v<std::invoke_result_t<Operation&, WriteTransaction&>>) {
        operation(work);
        commit();
      } else {
        auto result = operation(work);
        commit();
        return result;
      }
    } catch (const SQLite::Exception& error) {
      fail("changed", error);
    }
  }

 private:
  [[noreturn]] static void fail(std::string_view what, const SQLite::Exception& error);

  FileLock lock_;
  std::unique_ptr<QueryLog> log_;  // null where nobody asked for one; outlives the connection
  SQLite::Database database_;
};

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "base/dates.h"
#include "collector/stop_watch.h"

namespace quillet {

using SqlValue = std::variant<std::int64_t, double, std::string>;
using SqlValues = std::vector<SqlValue>;

/// An instant as databases hold it: in milliseconds since 1970.
[[nodiscard]] inline std::int64_t stored(Instant instant) {
  return instant.time_since_epoch().count();
}
[[nodiscard]] inline Instant restored(std::int64_t milliseconds) {
  return Instant(std::chrono::milliseconds(milliseconds));
}

/// One row of an answer, for as long as its visitor runs. Columns count from 0 and must be of the
/// asked type; no column of ours is ever NULL.
class SqlRow {
 public:
  virtual ~SqlRow() = default;
  [[nodiscard]] virtual std::int64_t integer(int column) const = 0;
  [[nodiscard]] virtual double real(int column) const = 0;
  [[nodiscard]] virtual std::string text(int column) const = 0;
};

using SqlVisitor = std::function<void(const SqlRow&)>;

/// Puts many rows into one table, one after the other: far faster than a statement for each. All
/// operations throw DatabaseError, and Stopped; the transaction is of no further use then.
class SqlInsertion {
 public:
  virtual ~SqlInsertion() = default;
  /// `values`: one for each column.
  virtual void add(const SqlValues& values) = 0;
  /// Once, after all rows. Without it there may be none of them.
  virtual void end() = 0;
};

/// A transaction under way; at the end of its life it is undone unless it was committed. Values
/// stand in the statement as $1, $2 and so on. All operations throw DatabaseError, and Stopped.
class SqlTransaction {
 public:
  virtual ~SqlTransaction() = default;

  /// Returns how many rows were inserted, changed or removed.
  virtual std::int64_t run(const std::string& sql, const SqlValues& values) = 0;
  std::int64_t run(const std::string& sql) { return run(sql, {}); }

  /// Calls `visit` for each row of the answer in turn. The visitor asks nothing of the transaction.
  virtual void each(const std::string& sql, const SqlValues& values, const SqlVisitor& visit) = 0;

  /// Of nothing else may be asked until the insertion has ended.
  [[nodiscard]] virtual std::unique_ptr<SqlInsertion> insertion(
      const std::string& table, const std::vector<std::string>& columns) = 0;

  virtual void commit() = 0;
};

enum class SqlAccess {
  read,   ///< sees one state of the database throughout
  write,  ///< may run beside others that write
  alone,  ///< of all with this access one at a time
};

/// Where the words differ.
struct SqlDialect {
  std::string_view tableEnd;    ///< closes the definition of a table of short rows found by key
  std::string_view skipLocked;  ///< ends a SELECT whose rows no other transaction may take
  std::string_view findTable;   ///< a SELECT that has a row if there is the table $1
  std::string_view lockTable;   ///< keeps others from writing to the table {};
                                ///< empty: whoever writes is alone
  std::string_view columnsOf;   ///< a SELECT of names and types of the table $1's columns
};

/// A database as the collector needs it. One transaction at a time.
class SqlDatabase {
 public:
  virtual ~SqlDatabase() = default;

  /// Throws DatabaseError, and Stopped.
  [[nodiscard]] virtual std::unique_ptr<SqlTransaction> begin(SqlAccess access) = 0;
  [[nodiscard]] virtual SqlDialect dialect() const = 0;

  /// Where the database is an SQLite file, copies it as it is at this moment into the SQLite file
  /// `copy` while others go on writing, and returns true. Throws DatabaseError, and Stopped.
  [[nodiscard]] virtual bool copyTo(const std::filesystem::path& copy) = 0;

  /// Gives the file system the space of rows that are no more, where the database does not do so
  /// itself in time. Nobody else writes meanwhile. Throws DatabaseError, and Stopped.
  virtual void giveSpaceBack() = 0;
  /// How much room the record takes, in bytes, with all that belongs to it. To be called between
  /// transactions. Throws DatabaseError, and Stopped.
  [[nodiscard]] virtual std::int64_t size() = 0;
};

/// Runs `operation` on a transaction, commits, and returns what it returned. When it throws,
/// nothing has happened.
template <typename Operation>
auto inTransaction(SqlDatabase& database, SqlAccess access, Operation operation) {
  const auto transaction = database.begin(access);
  if constexpr (std::is_void_v<std::invoke_result_t<Operation&, SqlTransaction&>>) {
    operation(*transaction);
    transaction->commit();
  } else {
    auto result = operation(*transaction);
    transaction->commit();
    return result;
  }
}

/// How long a transaction goes on after a stop: enough to end well on a server that is there.
inline constexpr std::chrono::milliseconds kGraceOfTransactions{500};

enum class IfMissing { fail, make };

/// Opens the database that `address` names: a PostgreSQL server's for "postgresql://…",
/// "postgres://…" or "host=… dbname=…", else the SQLite file of that path. Throws DatabaseError,
/// also for another "scheme://…". No wait of the database's lasts longer than kGraceOfTransactions
/// after a stop: Stopped is thrown then, here too.
[[nodiscard]] std::unique_ptr<SqlDatabase> openDatabase(const std::string& address,
                                                        const StopWatch& stop,
                                                        IfMissing ifMissing = IfMissing::fail);

/// Opens an SQLite file that is only read, and that nothing of is changed. Throws DatabaseError.
[[nodiscard]] std::unique_ptr<SqlDatabase> openToRead(const std::filesystem::path& file,
                                                      const StopWatch& stop);

}  // namespace quillet

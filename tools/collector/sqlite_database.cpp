// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/sqlite_database.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include <chrono>
#include <system_error>

#include "base/errors.h"

namespace quillet {

namespace {

/// How long one process waits while another writes. A transaction takes milliseconds; making a
/// round of two million apps takes seconds.
constexpr std::chrono::milliseconds kPatience{60'000};
constexpr std::chrono::milliseconds kBetweenTries{10};

/// After so many steps of the database's machine, some milliseconds, the stop is looked for.
constexpr int kStepsBetweenLooks = 200'000;

/// A copy looks for it after so many: 8 MB.
constexpr int kPagesAtATime = 2'000;

[[noreturn]] void fail(const SQLite::Exception& error) {
  throw DatabaseError(fmt::format("The database failed: {}.", error.what()));
}

class Row final : public SqlRow {
 public:
  explicit Row(SQLite::Statement& statement) : statement_(statement) {}

  [[nodiscard]] std::int64_t integer(int column) const override {
    return statement_.getColumn(column).getInt64();
  }
  [[nodiscard]] double real(int column) const override {
    return statement_.getColumn(column).getDouble();
  }
  [[nodiscard]] std::string text(int column) const override {
    return statement_.getColumn(column).getString();
  }

 private:
  SQLite::Statement& statement_;
};

/// Called while another process writes; 0 gives up.
int waitForOthers(void* stop, int tries) noexcept {
  try {
    static_cast<StopWatch*>(stop)->pause(kBetweenTries);
  } catch (const std::exception&) {
    return 0;
  }
  return tries < kPatience / kBetweenTries ? 1 : 0;
}

/// Called while a statement runs; other than 0 ends it.
int isToEnd(void* stop) noexcept { return static_cast<StopWatch*>(stop)->isOver() ? 1 : 0; }

SQLite::Statement prepared(SQLite::Database& database, const std::string& sql,
                           const SqlValues& values) {
  SQLite::Statement statement(database, sql);
  for (std::size_t i = 0; i < values.size(); ++i) {
    const std::string name = fmt::format("${}", i + 1);
    std::visit([&](const auto& value) { statement.bind(name, value); }, values[i]);
  }
  return statement;
}

/// A statement that is carried out once for each row.
class Insertion final : public SqlInsertion {
 public:
  Insertion(SQLite::Database& database, StopWatch& stop, const std::string& sql)
      : stop_(stop), statement_(database, sql) {}

  void add(const SqlValues& values) override {
    try {
      for (std::size_t i = 0; i < values.size(); ++i) {
        const int place = static_cast<int>(i) + 1;
        std::visit([&](const auto& value) { statement_.bind(place, value); }, values[i]);
      }
      statement_.exec();
      statement_.reset();
    } catch (const SQLite::Exception& error) {
      stop_.require();
      fail(error);
    }
  }
  void end() override { stop_.require(); }

 private:
  StopWatch& stop_;
  SQLite::Statement statement_;
};

class Transaction final : public SqlTransaction {
 public:
  Transaction(SQLite::Database& database, StopWatch& stop, SqlAccess access)
      : database_(database), stop_(stop) {
    attempt([&] { database_.exec(access == SqlAccess::read ? "BEGIN" : "BEGIN IMMEDIATE"); });
  }
  ~Transaction() override {
    if (!isCommitted_) database_.tryExec("ROLLBACK");
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  std::int64_t run(const std::string& sql, const SqlValues& values) override {
    std::int64_t rows = 0;
    attempt([&] { rows = prepared(database_, sql, values).exec(); });
    return rows;
  }

  void each(const std::string& sql, const SqlValues& values, const SqlVisitor& visit) override {
    attempt([&] {
      SQLite::Statement statement = prepared(database_, sql, values);
      while (statement.executeStep()) visit(Row(statement));
    });
  }

  [[nodiscard]] std::unique_ptr<SqlInsertion> insertion(
      const std::string& table, const std::vector<std::string>& columns) override {
    std::unique_ptr<SqlInsertion> insertion;
    attempt([&] {
      const std::vector<char> places(columns.size(), '?');
      insertion =
          std::make_unique<Insertion>(database_, stop_,
                                      fmt::format("INSERT INTO {} ({}) VALUES ({})", table,
                                                  fmt::join(columns, ","), fmt::join(places, ",")));
    });
    return insertion;
  }

  void commit() override {
    attempt([&] { database_.exec("COMMIT"); });
    isCommitted_ = true;
  }

 private:
  template <typename Operation>
  void attempt(Operation operation) {
    stop_.require();
    try {
      operation();
    } catch (const SQLite::Exception& error) {
      stop_.require();
      fail(error);
    }
  }

  SQLite::Database& database_;
  StopWatch& stop_;
  bool isCommitted_ = false;
};

/// How the file is opened; one that is to be made gets its folder.
int flagsFor(const std::filesystem::path& file, SqliteUse use) {
  if (use == SqliteUse::make) {
    if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path());
    return SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE;
  }
  if (use == SqliteUse::read) return SQLite::OPEN_READONLY;
  std::error_code error;
  if (!std::filesystem::exists(file, error) && !error) {
    throw DatabaseError(
        fmt::format("There is no database {}: quillet-collector init makes one.", file.string()));
  }
  return SQLite::OPEN_READWRITE;
}

SQLite::Database opened(const std::filesystem::path& file, StopWatch& stop, SqliteUse use) {
  try {
    SQLite::Database database(file.string(), flagsFor(file, use));
    sqlite3_busy_handler(database.getHandle(), waitForOthers, &stop);
    sqlite3_progress_handler(database.getHandle(), kStepsBetweenLooks, isToEnd, &stop);
    if (use == SqliteUse::read) return database;
    // FULL: what was reported as recorded survives a power cut, not only a crash.
    database.exec("PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL");
    return database;
  } catch (const SQLite::Exception& error) {
    stop.require();
    throw DatabaseError(
        fmt::format("The database {} could not be opened: {}.", file.string(), error.what()));
  } catch (const std::filesystem::filesystem_error& error) {
    throw DatabaseError(fmt::format("The database {} could not be made: {}.", file.string(),
                                    error.code().message()));
  }
}

}  // namespace

SqliteDatabase::SqliteDatabase(const std::filesystem::path& file, const StopWatch& stop,
                               SqliteUse use)
    : file_(file),
      stop_(stop.withGrace(kGraceOfTransactions)),
      database_(opened(file, stop_, use)) {}

std::unique_ptr<SqlTransaction> SqliteDatabase::begin(SqlAccess access) {
  return std::make_unique<Transaction>(database_, stop_, access);
}

/// The transaction sees one state throughout. Without it, each write of another process would make
/// the copying begin anew; with it none waits for us, for they append to the journal.
bool SqliteDatabase::copyTo(const std::filesystem::path& copy) {
  const Transaction state(database_, stop_, SqlAccess::read);
  try {
    database_.execAndGet("SELECT COUNT(*) FROM sqlite_master");
    SQLite::Database target(copy.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    SQLite::Backup backup(target, database_);
    while (backup.executeStep(kPagesAtATime) != SQLITE_DONE) stop_.require();
  } catch (const SQLite::Exception& error) {
    stop_.require();
    fail(error);
  }
  return true;
}

void makeOneFile(const std::filesystem::path& file) {
  try {
    SQLite::Database(file.string(), SQLite::OPEN_READWRITE).exec("PRAGMA journal_mode = DELETE");
  } catch (const SQLite::Exception& error) {
    fail(error);
  }
}

void SqliteDatabase::giveSpaceBack() {
  try {
    database_.exec("VACUUM; PRAGMA wal_checkpoint(TRUNCATE)");
  } catch (const SQLite::Exception& error) {
    stop_.require();
    fail(error);
  }
}

/// With what is written beside the file until it is taken in.
std::int64_t SqliteDatabase::size() {
  std::int64_t bytes = 0;
  for (const char* end : {"", "-wal"}) {
    std::error_code error;
    const auto size = std::filesystem::file_size(file_.string() + end, error);
    if (!error) bytes += static_cast<std::int64_t>(size);
  }
  return bytes;
}

}  // namespace quillet

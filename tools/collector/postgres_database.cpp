// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/postgres_database.h"

#include <fmt/format.h>

#include <charconv>

#include "base/errors.h"
#include "collector/postgres_connection.h"

namespace quillet {

namespace {

/// The lock of SqlAccess::alone; any number that no other program takes in the same database.
constexpr const char* kLockAlone = "SELECT pg_advisory_xact_lock(7183554301)";

/// Rows that are fetched at a time, so that a large answer never lies in memory as a whole.
constexpr int kRowsAtATime = 10'000;

/// So much text is handed over at a time.
constexpr std::size_t kCopiedAtATime = std::size_t{64} * 1024;

template <typename Number>
Number numberIn(std::string_view field) {
  Number number{};
  std::from_chars(field.data(), field.data() + field.size(), number);
  return number;
}

class Row final : public SqlRow {
 public:
  Row(const PostgresResult& rows, int row) : rows_(rows), row_(row) {}

  [[nodiscard]] std::int64_t integer(int column) const override {
    return numberIn<std::int64_t>(rows_.field(row_, column));
  }
  [[nodiscard]] double real(int column) const override {
    return numberIn<double>(rows_.field(row_, column));
  }
  [[nodiscard]] std::string text(int column) const override {
    return std::string(rows_.field(row_, column));
  }

 private:
  const PostgresResult& rows_;
  int row_;
};

/// A value as COPY's text has it.
std::string copied(const SqlValue& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
  if (const auto* real = std::get_if<double>(&value)) return fmt::format("{}", *real);
  std::string text;
  for (const char c : std::get<std::string>(value)) {
    switch (c) {
      case '\\': text += "\\\\"; break;
      case '\t': text += "\\t"; break;
      case '\n': text += "\\n"; break;
      case '\r': text += "\\r"; break;
      default: text += c;
    }
  }
  return text;
}

class Insertion final : public SqlInsertion {
 public:
  Insertion(PostgresConnection& connection, const std::string& sql) : connection_(connection) {
    connection_.beginCopy(sql);
  }

  void add(const SqlValues& values) override {
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (i > 0) text_ += '\t';
      text_ += copied(values[i]);
    }
    text_ += '\n';
    if (text_.size() >= kCopiedAtATime) put();
  }
  void end() override {
    put();
    connection_.endCopy();
  }

 private:
  void put() {
    connection_.put(text_);
    text_.clear();
  }

  PostgresConnection& connection_;
  std::string text_;
};

class Transaction final : public SqlTransaction {
 public:
  Transaction(PostgresConnection& connection, SqlAccess access) : connection_(connection) {
    connection_.ask(access == SqlAccess::read ? "BEGIN ISOLATION LEVEL REPEATABLE READ, READ ONLY"
                                              : "BEGIN");
  }
  ~Transaction() override {
    if (!isCommitted_) undo();
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void lockOthersOut() { connection_.ask(kLockAlone); }

  std::int64_t run(const std::string& sql, const SqlValues& values) override {
    return connection_.ask(sql, values).changedRows();
  }

  void each(const std::string& sql, const SqlValues& values, const SqlVisitor& visit) override {
    connection_.ask("DECLARE answer NO SCROLL CURSOR FOR " + sql, values);
    const std::string fetch = fmt::format("FETCH {} FROM answer", kRowsAtATime);
    for (PostgresResult rows = connection_.ask(fetch); rows.rows() > 0;
         rows = connection_.ask(fetch)) {
      for (int row = 0; row < rows.rows(); ++row) visit(Row(rows, row));
    }
    connection_.ask("CLOSE answer");
  }

  [[nodiscard]] std::unique_ptr<SqlInsertion> insertion(
      const std::string& table, const std::vector<std::string>& columns) override {
    return std::make_unique<Insertion>(
        connection_, fmt::format("COPY {} ({}) FROM STDIN", table, fmt::join(columns, ",")));
  }

  /// A transaction in which a statement failed ends here too, though otherwise.
  void commit() override {
    if (connection_.ask("COMMIT").kind() != "COMMIT")
      throw DatabaseError("The database failed: the transaction was undone.");
    isCommitted_ = true;
  }

 private:
  /// Where that fails, the connection is made anew before the next transaction.
  void undo() {
    try {
      if (connection_.isIdle()) connection_.ask("ROLLBACK");
    } catch (const std::exception&) {
      return;
    }
  }

  PostgresConnection& connection_;
  bool isCommitted_ = false;
};

}  // namespace

PostgresDatabase::PostgresDatabase(const std::string& address, const StopWatch& stop)
    : address_(address),
      stop_(stop.withGrace(kGraceOfTransactions)),
      connection_(std::make_unique<PostgresConnection>(address_, stop_)) {}

PostgresDatabase::~PostgresDatabase() = default;

/// A server that was restarted meanwhile is noticed only by asking it something.
void PostgresDatabase::requireConnection() {
  try {
    connection_->ask("SELECT 1");
  } catch (const DatabaseError&) {
    connection_ = std::make_unique<PostgresConnection>(address_, stop_);
  }
}

std::unique_ptr<SqlTransaction> PostgresDatabase::begin(SqlAccess access) {
  requireConnection();
  auto transaction = std::make_unique<Transaction>(*connection_, access);
  if (access == SqlAccess::alone) transaction->lockOthersOut();
  return transaction;
}

/// Of all tables beside the record's, with their indexes.
std::int64_t PostgresDatabase::size() {
  std::int64_t bytes = 0;
  const auto transaction = begin(SqlAccess::read);
  transaction->each(
      "SELECT CAST(SUM(pg_total_relation_size(oid)) AS BIGINT) FROM pg_class WHERE relkind = 'r' "
      "AND relnamespace = (SELECT relnamespace FROM pg_class WHERE oid = to_regclass('record'))",
      {}, [&](const SqlRow& row) { bytes = row.integer(0); });
  return bytes;
}

}  // namespace quillet

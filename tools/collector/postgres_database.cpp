// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/postgres_database.h"

#include <fmt/format.h>
#include <pqxx/pqxx>

#include <charconv>

#include "base/errors.h"
#include "base/text.h"

namespace quillet {

namespace {

/// The lock of SqlAccess::alone; any number that no other program takes in the same database.
constexpr const char* kLockAlone = "SELECT pg_advisory_xact_lock(7183554301)";

/// Rows that are fetched at a time, so that a large answer never lies in memory as a whole.
constexpr int kRowsAtATime = 10'000;

/// The server's words are several lines, the first of which says what happened.
std::string firstLineOf(const std::exception& error) {
  std::string line = printable(split(error.what(), '\n').front());
  if (line.ends_with('.')) line.pop_back();
  return line;
}

[[noreturn]] void fail(const std::exception& error) {
  throw DatabaseError(fmt::format("The database failed: {}.", firstLineOf(error)));
}

template <typename Number>
Number numberIn(const pqxx::field& field) {
  Number number{};
  std::from_chars(field.c_str(), field.c_str() + field.size(), number);
  return number;
}

class Row final : public SqlRow {
 public:
  explicit Row(const pqxx::row& row) : row_(row) {}

  [[nodiscard]] std::int64_t integer(int column) const override {
    return numberIn<std::int64_t>(row_[column]);
  }
  [[nodiscard]] double real(int column) const override { return numberIn<double>(row_[column]); }
  [[nodiscard]] std::string text(int column) const override {
    return {row_[column].c_str(), row_[column].size()};
  }

 private:
  const pqxx::row& row_;
};

std::string textOf(std::int64_t number) { return std::to_string(number); }
std::string textOf(double number) { return fmt::format("{}", number); }
std::string textOf(const std::string& text) { return text; }

std::vector<std::string> textsOf(const SqlValues& values) {
  std::vector<std::string> texts;
  texts.reserve(values.size());
  for (const SqlValue& value : values)
    texts.push_back(std::visit([](const auto& known) { return textOf(known); }, value));
  return texts;
}

pqxx::result answerTo(pqxx::transaction_base& work, const std::string& sql,
                      const SqlValues& values) {
  const std::vector<std::string> texts = textsOf(values);
  return work.exec_params(sql, pqxx::prepare::make_dynamic_params(texts));
}

template <typename Work>
class Transaction final : public SqlTransaction {
 public:
  explicit Transaction(pqxx::connection& connection) : work_(connection) {}

  std::int64_t run(const std::string& sql, const SqlValues& values) override {
    try {
      return static_cast<std::int64_t>(answerTo(work_, sql, values).affected_rows());
    } catch (const std::exception& error) {
      fail(error);
    }
  }

  void each(const std::string& sql, const SqlValues& values, const SqlVisitor& visit) override {
    try {
      answerTo(work_, "DECLARE answer NO SCROLL CURSOR FOR " + sql, values);
      const std::string fetch = fmt::format("FETCH {} FROM answer", kRowsAtATime);
      for (pqxx::result rows = work_.exec(fetch); !rows.empty(); rows = work_.exec(fetch)) {
        for (const pqxx::row& row : rows) visit(Row(row));
      }
      work_.exec("CLOSE answer");
    } catch (const pqxx::pqxx_exception& error) {
      fail(error.base());
    }
  }

  void commit() override {
    try {
      work_.commit();
    } catch (const std::exception& error) {
      fail(error);
    }
  }

 private:
  Work work_;
};

using Reading = pqxx::transaction<pqxx::repeatable_read, pqxx::read_only>;
using Writing = pqxx::work;

}  // namespace

class PostgresDatabase::Connection {
 public:
  explicit Connection(const std::string& address) : connection_(address) {}
  pqxx::connection& get() { return connection_; }

 private:
  pqxx::connection connection_;
};

PostgresDatabase::PostgresDatabase(const std::string& address) : address_(address) { connect(); }

PostgresDatabase::~PostgresDatabase() = default;

void PostgresDatabase::connect() {
  try {
    connection_ = std::make_unique<Connection>(address_);
  } catch (const std::exception& error) {
    throw DatabaseError(
        fmt::format("The database server could not be reached: {}.", firstLineOf(error)));
  }
}

/// A server that was restarted meanwhile is noticed only by asking it something.
void PostgresDatabase::requireConnection() {
  try {
    pqxx::nontransaction(connection_->get()).exec("SELECT 1");
  } catch (const std::exception&) {
    connect();
  }
}

std::unique_ptr<SqlTransaction> PostgresDatabase::begin(SqlAccess access) {
  requireConnection();
  try {
    if (access == SqlAccess::read)
      return std::make_unique<Transaction<Reading>>(connection_->get());
    auto writing = std::make_unique<Transaction<Writing>>(connection_->get());
    if (access == SqlAccess::alone) writing->each(kLockAlone, {}, [](const SqlRow&) {});
    return writing;
  } catch (const pqxx::pqxx_exception& error) {
    fail(error.base());
  }
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <libpq-fe.h>

#include <memory>
#include <string>

#include "collector/sql_database.h"
#include "collector/stop_watch.h"

namespace quillet {

/// Whether the text is a connection string of keywords and values: "host=… dbname=…".
[[nodiscard]] bool isConnectionString(const std::string& text);

/// What a server answered to a statement.
class PostgresResult {
 public:
  explicit PostgresResult(PGresult* result) : result_(result, &PQclear) {}

  [[nodiscard]] bool isNone() const { return !result_; }
  [[nodiscard]] bool hasFailed() const;
  /// What the server says of a failure.
  [[nodiscard]] std::string reason() const { return PQresultErrorMessage(result_.get()); }
  [[nodiscard]] int rows() const { return PQntuples(result_.get()); }
  /// How many rows the statement inserted, changed or removed.
  [[nodiscard]] std::int64_t changedRows() const;
  /// Which kind of statement was carried out: "COMMIT".
  [[nodiscard]] std::string_view kind() const { return PQcmdStatus(result_.get()); }
  [[nodiscard]] std::string_view field(int row, int column) const;

 private:
  std::unique_ptr<PGresult, decltype(&PQclear)> result_;
};

/// A connection to a PostgreSQL server whose every wait a stop ends.
class PostgresConnection {
 public:
  /// Throws DatabaseError, also when the address's "connect_timeout" has passed, and Stopped. A
  /// host's name is looked up by the system's own call, which takes as long as it takes.
  PostgresConnection(const std::string& address, StopWatch& stop);

  /// Carries one statement out. Throws DatabaseError, and Stopped; after that the connection is of
  /// no further use.
  PostgresResult ask(const std::string& sql, const SqlValues& values = {});

  /// Begins a "COPY … FROM STDIN", of which put() hands over the text piece by piece, until
  /// endCopy(). Throw as ask() does.
  void beginCopy(const std::string& sql);
  void put(const std::string& text);
  void endCopy();

  /// Whether the connection waits for a statement, with no answer still to come.
  [[nodiscard]] bool isIdle() const;

 private:
  void connect();
  void begin(const std::string& sql, const SqlValues& values);
  void send();
  [[nodiscard]] PostgresResult received();
  void receiveSome();
  void await(short events);
  [[noreturn]] void fail() const;

  StopWatch& stop_;
  std::unique_ptr<PGconn, decltype(&PQfinish)> connection_;
};

}  // namespace quillet

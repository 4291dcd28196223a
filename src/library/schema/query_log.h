// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "base/log_sink.h"

namespace quillet {

/// Tells of what is asked of a library's database, in one line each:
///
///   db open  /home/someone/.local/share/quillet/default.store
///   db     0.31 ms      25 rows    SELECT ZTRACKID, ZNAME FROM ZWATCHEDAPP WHERE ZCOUNTRY = ?
///   db    12.02 ms     100 changed INSERT INTO ZPRICEPOINT (ZTRACKID, ZPRICE) VALUES (?, ...)
///   db close
///
/// the time from a query's first row to its last, that of whoever took the rows included, how many
/// rows were read or changed, and the query with "?" for its values: a log may be passed on, and a
/// library is its owner's. Lines come on the thread that asks.
class QueryLog {
 public:
  /// Only differences mean anything.
  using Stopwatch = std::function<std::chrono::microseconds()>;

  /// `sink` is not empty.
  explicit QueryLog(LogSink sink);
  QueryLog(LogSink sink, Stopwatch stopwatch);
  QueryLog(const QueryLog&) = delete;
  QueryLog& operator=(const QueryLog&) = delete;

  /// Tells that the connection is open, and of all that follows on it. The log outlives it.
  void watch(sqlite3* connection);

 private:
  struct Run {
    std::chrono::microseconds start;
    std::int64_t rows = 0;
    int changesBefore = 0;  ///< of the connection, in all
  };

  static int onEvent(unsigned event, void* log, void* subject, void* detail);
  Run& runOf(sqlite3_stmt* statement);
  void end(sqlite3_stmt* statement);

  LogSink sink_;
  Stopwatch stopwatch_;
  std::map<sqlite3_stmt*, Run> running_;
};

/// A query in one line, with "?" for each number and quoted text, and "?, ..." for several in a
/// row.
[[nodiscard]] std::string withoutValues(std::string_view sql);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/schema/query_log.h"

#include <fmt/format.h>

#include <utility>

#include "base/text.h"

namespace quillet {

namespace {

using std::chrono::microseconds;

constexpr unsigned kEvents =
    SQLITE_TRACE_STMT | SQLITE_TRACE_ROW | SQLITE_TRACE_PROFILE | SQLITE_TRACE_CLOSE;

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kManyValues = "?, ...";

/// SQLite's own measure of a query has the milliseconds of the wall clock.
microseconds steadyReading() {
  return std::chrono::duration_cast<microseconds>(
      std::chrono::steady_clock::now().time_since_epoch());
}

bool isWordCharacter(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
         c == '.' || static_cast<unsigned char>(c) >= 0x80;
}

/// The length of the quoted text at the start of `sql`; a doubled quote is one of its characters,
/// and reads as two texts, of which one follows the other.
std::size_t quotedLength(std::string_view sql) {
  const std::size_t end = sql.find(sql.front(), 1);
  return end == std::string_view::npos ? sql.size() : end + 1;
}

std::size_t wordLength(std::string_view sql) {
  std::size_t length = 0;
  while (length < sql.size() && isWordCharacter(sql[length])) ++length;
  return length;
}

/// The length of the piece at the start of `sql`: a text, a word, a number, blanks or a sign.
std::size_t pieceLength(std::string_view sql) {
  if (sql.front() == '\'') return quotedLength(sql);
  if (kBlanks.find(sql.front()) != std::string_view::npos) {
    return std::min(sql.find_first_not_of(kBlanks), sql.size());
  }
  return std::max<std::size_t>(wordLength(sql), 1);
}

/// Without a comma at the end and the blanks around it; all of it where there is none.
std::string_view beforeComma(std::string_view line) {
  std::string_view rest = trimmed(line);
  if (!rest.ends_with(',')) return line;
  rest.remove_suffix(1);
  return trimmed(rest);
}

void addValue(std::string& line) {
  const std::string_view before = beforeComma(line);
  const bool follows = before.size() < line.size() && before.ends_with('?');
  if (follows || before.ends_with(kManyValues)) {
    line.resize(before.size());
    if (follows) line += ", ...";
  } else if (!line.ends_with('?')) {
    line += '?';
  }
}

bool isValue(char first) { return first == '\'' || first == '?' || (first >= '0' && first <= '9'); }

}  // namespace

std::string withoutValues(std::string_view sql) {
  std::string line;
  for (sql = trimmed(sql); !sql.empty();) {
    const std::string_view piece = sql.substr(0, pieceLength(sql));
    if (isValue(piece.front())) {
      addValue(line);
    } else if (kBlanks.find(piece.front()) != std::string_view::npos) {
      line += ' ';
    } else {
      line += piece;
    }
    sql.remove_prefix(piece.size());
  }
  return printable(line);
}

QueryLog::QueryLog(LogSink sink) : QueryLog(std::move(sink), steadyReading) {}

QueryLog::QueryLog(LogSink sink, Stopwatch stopwatch)
    : sink_(std::move(sink)), stopwatch_(std::move(stopwatch)) {}

void QueryLog::watch(sqlite3* connection) {
  const char* file = sqlite3_db_filename(connection, "main");
  sink_(fmt::format("db open  {}", printable(file == nullptr ? "" : file)));
  sqlite3_trace_v2(connection, kEvents, onEvent, this);
}

int QueryLog::onEvent(unsigned event, void* log, void* subject, void* /*detail*/) {
  auto& self = *static_cast<QueryLog*>(log);
  auto* statement = static_cast<sqlite3_stmt*>(subject);
  switch (event) {
    case SQLITE_TRACE_STMT: self.runOf(statement); break;
    case SQLITE_TRACE_ROW: ++self.runOf(statement).rows; break;
    case SQLITE_TRACE_PROFILE: self.end(statement); break;
    case SQLITE_TRACE_CLOSE: self.sink_("db close"); break;
    default: break;
  }
  return 0;
}

/// Begun by now, if not before: what a query sets off (the rows that go with a parent's) begins
/// inside it, as itself, and one that starts anew since a table changed does not say so.
QueryLog::Run& QueryLog::runOf(sqlite3_stmt* statement) {
  const auto found = running_.find(statement);
  if (found != running_.end()) return found->second;
  const int changes = sqlite3_total_changes(sqlite3_db_handle(statement));
  return running_.emplace(statement, Run{stopwatch_(), 0, changes}).first->second;
}

void QueryLog::end(sqlite3_stmt* statement) {
  const auto found = running_.extract(statement);
  if (found.empty()) return;
  const Run& run = found.mapped();
  // Changes are counted for the connection: those of others come in between.
  const bool reads = sqlite3_stmt_readonly(statement) != 0;
  const std::int64_t rows =
      reads ? run.rows : sqlite3_total_changes(sqlite3_db_handle(statement)) - run.changesBefore;
  const std::chrono::duration<double, std::milli> time = stopwatch_() - run.start;
  sink_(fmt::format("db {:>8.2f} ms {:>7} {:<7} {}", time.count(), rows, reads ? "rows" : "changed",
                    withoutValues(sqlite3_sql(statement))));
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/postgres_connection.h"

#include <fmt/format.h>
#include <poll.h>

#include <algorithm>
#include <new>
#include <optional>

#include "base/errors.h"
#include "base/numbers.h"
#include "base/text.h"

namespace quillet {

namespace {

using Milliseconds = StopWatch::Milliseconds;
using Options = std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)>;

/// The server's words are several lines, the first of which says what happened.
std::string firstLineOf(std::string_view words) {
  std::string line = printable(split(words, '\n').front());
  if (line.ends_with('.')) line.pop_back();
  return line;
}

/// How long a server is given to connect, unless the address says so, and to say the next thing: it
/// may have to sort all prices of a storefront, or wait for another collector that makes a round.
constexpr std::chrono::seconds kTimeToConnect{30};
constexpr std::chrono::minutes kTimeToAnswer{10};

/// The library leaves this one to whoever connects without blocking.
Milliseconds timeToConnect(PGconn* connection) {
  const Options options(PQconninfo(connection), &PQconninfoFree);
  std::optional<std::int64_t> seconds;
  for (auto* option = options.get(); option && option->keyword; ++option) {
    if (std::string_view(option->keyword) == "connect_timeout" && option->val)
      seconds = parseWhole(option->val);
  }
  const bool isLimited = seconds && *seconds > 0;
  return isLimited ? std::chrono::seconds(std::min<std::int64_t>(*seconds, 86'400))
                   : kTimeToConnect;
}

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

/// The result, unless it tells of a failure.
PostgresResult succeeded(PostgresResult result) {
  if (!result.hasFailed()) return result;
  throw DatabaseError(fmt::format("The database failed: {}.", firstLineOf(result.reason())));
}

}  // namespace

bool isConnectionString(const std::string& text) {
  return text.find('=') != std::string::npos &&
         Options(PQconninfoParse(text.c_str(), nullptr), &PQconninfoFree) != nullptr;
}

bool PostgresResult::hasFailed() const {
  const ExecStatusType status = PQresultStatus(result_.get());
  return status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK && status != PGRES_COPY_IN;
}

std::int64_t PostgresResult::changedRows() const {
  return parseWhole(PQcmdTuples(result_.get())).value_or(0);
}

std::string_view PostgresResult::field(int row, int column) const {
  return {PQgetvalue(result_.get(), row, column),
          static_cast<std::size_t>(PQgetlength(result_.get(), row, column))};
}

PostgresConnection::PostgresConnection(const std::string& address, StopWatch& stop)
    : stop_(stop), connection_(PQconnectStart(address.c_str()), &PQfinish) {
  if (!connection_) throw std::bad_alloc();
  connect();
  PQsetnonblocking(connection_.get(), 1);
  // What the server remarks, such as that a table is there already, is nobody's business.
  PQsetNoticeProcessor(connection_.get(), [](void*, const char*) {}, nullptr);
}

void PostgresConnection::connect() {
  PGconn* const connection = connection_.get();
  const auto unreachable = [](std::string_view reason) {
    return DatabaseError(
        fmt::format("The database server could not be reached: {}.", firstLineOf(reason)));
  };
  if (PQstatus(connection) == CONNECTION_BAD) throw unreachable(PQerrorMessage(connection));
  const auto end = std::chrono::steady_clock::now() + timeToConnect(connection);
  for (auto state = PGRES_POLLING_WRITING; state != PGRES_POLLING_OK;) {
    const auto left = std::chrono::ceil<Milliseconds>(end - std::chrono::steady_clock::now());
    const short events = state == PGRES_POLLING_READING ? POLLIN : POLLOUT;
    if (!stop_.wait(PQsocket(connection), events, left)) throw unreachable("timeout expired");
    state = PQconnectPoll(connection);
    if (state == PGRES_POLLING_FAILED) throw unreachable(PQerrorMessage(connection));
  }
}

void PostgresConnection::begin(const std::string& sql, const SqlValues& values) {
  const std::vector<std::string> texts = textsOf(values);
  std::vector<const char*> pointers;
  for (const std::string& text : texts) pointers.push_back(text.c_str());
  if (PQsendQueryParams(connection_.get(), sql.c_str(), static_cast<int>(pointers.size()), nullptr,
                        pointers.data(), nullptr, nullptr, 0) == 0)
    fail();
  send();
}

PostgresResult PostgresConnection::ask(const std::string& sql, const SqlValues& values) {
  begin(sql, values);
  return succeeded(received());
}

/// While text is awaited, the server says so again and again: one result is enough.
void PostgresConnection::beginCopy(const std::string& sql) {
  begin(sql, {});
  receiveSome();
  (void)succeeded(PostgresResult(PQgetResult(connection_.get())));
}

void PostgresConnection::put(const std::string& text) {
  const auto size = static_cast<int>(text.size());
  for (;;) {
    const int taken = PQputCopyData(connection_.get(), text.data(), size);
    if (taken < 0) fail();
    send();
    if (taken > 0) return;
  }
}

void PostgresConnection::endCopy() {
  int taken = 0;
  while ((taken = PQputCopyEnd(connection_.get(), nullptr)) == 0) send();
  if (taken < 0) fail();
  send();
  (void)succeeded(received());
}

bool PostgresConnection::isIdle() const {
  return PQtransactionStatus(connection_.get()) != PQTRANS_ACTIVE &&
         PQstatus(connection_.get()) == CONNECTION_OK;
}

/// The server may have to say something before it takes more.
void PostgresConnection::send() {
  for (;;) {
    const int left = PQflush(connection_.get());
    if (left < 0) fail();
    if (left == 0) return;
    await(POLLIN | POLLOUT);
    if (PQconsumeInput(connection_.get()) == 0) fail();
  }
}

/// A statement has one result; then comes the word that there are no more.
PostgresResult PostgresConnection::received() {
  receiveSome();
  PostgresResult result(PQgetResult(connection_.get()));
  for (;;) {
    receiveSome();
    const PostgresResult more(PQgetResult(connection_.get()));
    if (more.isNone()) return result;
  }
}

void PostgresConnection::receiveSome() {
  while (PQisBusy(connection_.get()) != 0) {
    await(POLLIN);
    if (PQconsumeInput(connection_.get()) == 0) fail();
  }
}

void PostgresConnection::await(short events) {
  if (stop_.wait(PQsocket(connection_.get()), events, kTimeToAnswer)) return;
  throw DatabaseError("The database failed: the server does not answer.");
}

void PostgresConnection::fail() const {
  throw DatabaseError(
      fmt::format("The database failed: {}.", firstLineOf(PQerrorMessage(connection_.get()))));
}

}  // namespace quillet

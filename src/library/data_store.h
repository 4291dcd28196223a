// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <QThreadPool>
#include <filesystem>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>

#include "library/library_changes.h"
#include "library/library_connection.h"
#include "net/task.h"
#include "net/worker.h"

namespace quillet {

/// The library's only writer. It owns a thread and, on it, the writable connection; what is asked
/// for runs there in the order of asking. The operations stand in the headers beside this one:
///
///   const std::vector<AppKey> added = co_await store.change(watchApps, apps);
///   const std::vector<WatchedApp> rows = co_await store.read(watchedApps);
///
/// Several that belong together are one function that calls them, so that they are one transaction.
class DataStore : public QObject {
  Q_OBJECT

 public:
  /// Opens the library, making or bringing it up to date. Throws DatabaseError as
  /// LibraryConnection does. `queryLog`, unless it is empty, is told of each query, on the store's
  /// thread.
  static Task<std::unique_ptr<DataStore>> open(std::filesystem::path file, LogSink queryLog = {});

  /// Waits until all that was asked for is done.
  ~DataStore() override;

  /// Calls `operation(database, arguments…)` on the store's thread and returns its result. Throws
  /// DatabaseError.
  template <typename Operation, typename... Arguments>
  auto read(Operation operation, Arguments... arguments)
      -> Task<std::invoke_result_t<Operation&, SQLite::Database&, Arguments&...>>;

  /// Calls `operation(transaction, arguments…)` on the store's thread, commits, tells what changed
  /// and returns the operation's result. Throws DatabaseError, or what the operation throws; then
  /// nothing has changed.
  template <typename Operation, typename... Arguments>
  auto change(Operation operation, Arguments... arguments)
      -> Task<std::invoke_result_t<Operation&, WriteTransaction&, Arguments&...>>;

 Q_SIGNALS:
  /// After each commit that touched anything, on the event loop, before the one who asked for the
  /// change goes on.
  void changed(const quillet::LibraryChanges& changes);

 private:
  DataStore();

  void tell(const LibraryChanges& changes);

  QThreadPool thread_;
  std::unique_ptr<LibraryConnection> connection_;
};

template <typename Operation, typename... Arguments>
auto DataStore::read(Operation operation, Arguments... arguments)
    -> Task<std::invoke_result_t<Operation&, SQLite::Database&, Arguments&...>> {
  auto job = [connection = connection_.get(), operation = std::move(operation),
              kept = std::make_tuple(std::move(arguments)...)]() mutable {
    return connection->read([&](SQLite::Database& database) {
      return std::apply([&](auto&... each) { return operation(database, each...); }, kept);
    });
  };
  return onPool(&thread_, std::move(job));
}

template <typename Operation, typename... Arguments>
auto DataStore::change(Operation operation, Arguments... arguments)
    -> Task<std::invoke_result_t<Operation&, WriteTransaction&, Arguments&...>> {
  using Result = std::invoke_result_t<Operation&, WriteTransaction&, Arguments&...>;
  const QPointer<DataStore> self(this);
  auto changes = std::make_shared<LibraryChanges>();
  auto job = [changes, connection = connection_.get(), operation = std::move(operation),
              kept = std::make_tuple(std::move(arguments)...)]() mutable {
    return connection->change(*changes, [&](WriteTransaction& transaction) {
      return std::apply([&](auto&... each) { return operation(transaction, each...); }, kept);
    });
  };
  Task<Result> working = onPool(&thread_, std::move(job));
  if constexpr (std::is_void_v<Result>) {
    co_await working;
    if (self) self->tell(*changes);
  } else {
    Result result = co_await working;
    if (self) self->tell(*changes);
    co_return result;
  }
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <filesystem>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "desktop/services/library_watch.h"
#include "library/data_store.h"
#include "net/completion.h"

namespace quillet {

/// How all windows reach the library; nothing above names the data store. It is there before the
/// library is open: what is asked for meanwhile waits.
///
/// An object of the event-loop thread, which outlives all views.
class LibraryGateway : public QObject {
  Q_OBJECT

 public:
  /// Called once, when the library is open. The store outlives all that is asked for.
  void use(DataStore& store);
  /// Then, to notice as well what other programs write to that file.
  void watch(const std::filesystem::path& library);

  [[nodiscard]] bool isOpen() const { return store_ != nullptr; }

  /// As DataStore::read, once the library is open. Throws DatabaseError; never returns where it
  /// cannot be opened.
  template <typename Read, typename... Arguments>
  auto read(Read read, Arguments... arguments)
      -> Task<std::invoke_result_t<Read&, SQLite::Database&, Arguments&...>>;

  /// As DataStore::change, likewise.
  template <typename Change, typename... Arguments>
  auto change(Change change, Arguments... arguments)
      -> Task<std::invoke_result_t<Change&, WriteTransaction&, Arguments&...>>;

 Q_SIGNALS:
  void opened();
  /// After each change of the library by this program.
  void changed(const quillet::LibraryChanges& changes);
  /// By another one; anything may be different.
  void changedElsewhere();

 private:
  /// Returns when the library is open.
  Task<> isThere();

  DataStore* store_ = nullptr;
  std::unique_ptr<LibraryWatch> watch_;
  std::vector<Completion> waiting_;  ///< of whoever asked before the library was open
};

template <typename Read, typename... Arguments>
auto LibraryGateway::read(Read read, Arguments... arguments)
    -> Task<std::invoke_result_t<Read&, SQLite::Database&, Arguments&...>> {
  if (!isOpen()) co_await isThere();
  co_return co_await store_->read(std::move(read), std::move(arguments)...);
}

template <typename Change, typename... Arguments>
auto LibraryGateway::change(Change change, Arguments... arguments)
    -> Task<std::invoke_result_t<Change&, WriteTransaction&, Arguments&...>> {
  if (!isOpen()) co_await isThere();
  co_return co_await store_->change(std::move(change), std::move(arguments)...);
}

}  // namespace quillet

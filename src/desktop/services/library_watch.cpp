// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/library_watch.h"

#include <chrono>
#include <utility>

namespace quillet {

namespace {

constexpr std::chrono::milliseconds kRest{150};

/// Another number after each commit of another connection, and after none of this one's.
std::int64_t dataVersion(SQLite::Database& database) {
  return database.execAndGet("PRAGMA data_version").getInt64();
}

}  // namespace

LibraryWatch::LibraryWatch(DataStore& store, const std::filesystem::path& library) : store_(store) {
  rest_.setSingleShot(true);
  rest_.setInterval(kRest);
  // Commits go to the log beside the library, which is there as long as the library is open.
  files_.addPath(QString::fromStdString(library.string() + "-wal"));
  connect(&files_, &QFileSystemWatcher::fileChanged, this, [this] {
    if (!rest_.isActive()) rest_.start();
  });
  connect(&rest_, &QTimer::timeout, this, [this] { detach(look(this), "The library's version"); });
  detach(look(this), "The library's version");
}

Task<> LibraryWatch::look(QPointer<LibraryWatch> watch) {
  const std::int64_t version = co_await watch->store_.read(dataVersion);
  if (watch.isNull()) co_return;
  const auto before = std::exchange(watch->version_, version);
  if (before && *before != version) Q_EMIT watch->writtenElsewhere();
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <cstdint>
#include <filesystem>
#include <optional>

#include "library/data_store.h"

namespace quillet {

/// Notices that another program wrote to the library that is open here. Its store keeps other
/// Quillets out, but not SQLite's own shell or whatever else a user repairs a database with.
///
/// The store outlives it.
class LibraryWatch : public QObject {
  Q_OBJECT

 public:
  LibraryWatch(DataStore& store, const std::filesystem::path& library);

 Q_SIGNALS:
  /// What changed nobody knows.
  void writtenElsewhere();

 private:
  static Task<> look(QPointer<LibraryWatch> watch);

  DataStore& store_;
  QFileSystemWatcher files_;
  QTimer rest_;  ///< writes come in bursts, most of them ours
  std::optional<std::int64_t> version_;
};

}  // namespace quillet

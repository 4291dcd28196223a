// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <SQLiteCpp/Database.h>
#include <fmt/format.h>

#include <cstdint>
#include <cstdio>
#include <stdexcept>
#include <string>

#include "net/task.h"

namespace quillet {

/// A way to write to a library without pause, and to tell afterwards whether anything is torn.
/// Changes are numbered from 1 on for each library.
struct KilledWriter {
  const char* name;
  /// Goes on with the library of that file for ever; calls reportChange() for each change that it
  /// has been told is done.
  Task<> (*write)(std::string file);
  /// The number of the last change that the library holds; throws where it holds a part of one.
  std::int64_t (*lastChange)(SQLite::Database& database);
};

/// Imports of points, some of them larger than SQLite's cache.
extern const KilledWriter kImports;
/// Edits of every kind, undone and done again, by way of the window's history.
extern const KilledWriter kEdits;
/// Price checks of a watchlist whose prices are others each time.
extern const KilledWriter kPasses;

inline void reportChange(std::int64_t number) {
  fmt::print("{}\n", number);
  std::fflush(stdout);
}

inline void require(bool holds, const std::string& what) {
  if (!holds) throw std::runtime_error(what);
}

}  // namespace quillet

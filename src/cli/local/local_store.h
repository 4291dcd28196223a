// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <memory>

#include "base/log_sink.h"
#include "library/schema/query_log.h"
#include "system/environment.h"

namespace quillet {

/// The library's database, opened for reading: all that a command can name of it. What is read
/// through one store is one state of the library, however much is written meanwhile.
class CLILocalStore {
 public:
  /// Opens the user's database. Where another process holds it, or its folder does not let it be
  /// read, a private copy is read instead, which leaves nothing behind, even where Ctrl-C or a
  /// closed terminal ends the process. Throws CLIError: not found where there is no database,
  /// internal where none can be opened. `sink`, unless it is empty, is told of each query. Call it
  /// on one thread at a time.
  [[nodiscard]] static CLILocalStore open(const Environment& environment, const LogSink& sink = {});

  [[nodiscard]] sqlite3* handle() const { return handle_.get(); }

 private:
  struct Closer {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
  };
  using Connection = std::unique_ptr<sqlite3, Closer>;

  using Log = std::unique_ptr<QueryLog>;  ///< null where nobody asked for one

  CLILocalStore(Log log, Connection handle) : log_(std::move(log)), handle_(std::move(handle)) {}

  static Connection openReadOnly(const std::filesystem::path& database, const Log& log);
  static Connection openCopy(const std::filesystem::path& database,
                             const std::filesystem::path& temporaryDirectory, const Log& log);

  Log log_;  // outlives the connection
  Connection handle_;
};

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <memory>

#include "system/environment.h"

namespace quillet {

/// The library's database, opened for reading: all that a command can name of it. What is read
/// through one store is one state of the library, however much is written meanwhile.
class CLILocalStore {
 public:
  /// Opens the user's database. Where another process holds it, or its folder does not let it be
  /// read, a private copy is read instead, which leaves nothing behind, whatever ends the process.
  /// Throws CLIError: not found where there is no database, internal where none can be opened.
  [[nodiscard]] static CLILocalStore open(const Environment& environment);

  [[nodiscard]] sqlite3* handle() const { return handle_.get(); }

 private:
  struct Closer {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
  };
  using Connection = std::unique_ptr<sqlite3, Closer>;

  explicit CLILocalStore(Connection handle) : handle_(std::move(handle)) {}

  static Connection openReadOnly(const std::filesystem::path& database);
  static Connection openCopy(const std::filesystem::path& database,
                             const std::filesystem::path& temporaryDirectory);

  Connection handle_;
};

}  // namespace quillet

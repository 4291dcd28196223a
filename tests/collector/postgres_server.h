// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <sys/types.h>

#include <string>

#include "support/temporary_folder.h"

namespace quillet {

/// A database server of the tests' own: in a temporary folder, on a socket in there, as a user
/// without rights. It ends with this object, or with the test program at the latest.
class PostgresServer {
 public:
  /// Throws std::runtime_error, saying why, where there can be none.
  PostgresServer();
  ~PostgresServer();
  PostgresServer(const PostgresServer&) = delete;
  PostgresServer& operator=(const PostgresServer&) = delete;

  [[nodiscard]] std::string address() const;

 private:
  void waitUntilReady(int log) const;

  TemporaryFolder folder_;
  pid_t process_ = -1;
  int log_ = -1;
};

}  // namespace quillet

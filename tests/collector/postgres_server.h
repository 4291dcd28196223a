// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <fmt/format.h>

#include <stdexcept>
#include <string>

#include "support/program.h"
#include "support/temporary_folder.h"

namespace quillet {

/// A database server of the tests' own: in a temporary folder, on a socket in there, as a user
/// without rights, since it refuses root. It ends with this object, or with the test program at the
/// latest.
class PostgresServer {
 public:
  /// Throws std::runtime_error, saying why, where there can be none.
  PostgresServer() {
    std::string said;
    while (said.find("ready to accept connections") == std::string::npos) {
      const std::string line = server_.line();
      if (line.empty()) throw std::runtime_error("PostgreSQL does not start: " + said);
      said += line + ' ';
    }
  }
  ~PostgresServer() { (void)server_.end(SIGQUIT); }  // at once, without tidying up
  PostgresServer(const PostgresServer&) = delete;
  PostgresServer& operator=(const PostgresServer&) = delete;

  [[nodiscard]] std::string address() const {
    return fmt::format("postgresql://quillet@/postgres?host={}", folder());
  }
  /// Of its socket.
  [[nodiscard]] std::string folder() const { return folder_.path().string(); }

 private:
  static constexpr const char* kScript = R"sh(cd {} && exec 2>&1
    if [ "$(id -u)" = 0 ]; then
      chown postgres . && user="--reuid=postgres --regid=postgres --clear-groups"
    fi
    PATH="$PATH:$(echo /usr/lib/postgresql/*/bin | tr " " :)"
    exec setpriv $user --pdeathsig INT sh -c "
      initdb -D data -U quillet -A trust -E UTF8 --locale=C --no-sync >/dev/null &&
      exec postgres -D data -k $PWD -c fsync=off -c listen_addresses= -c log_checkpoints=off")sh";

  TemporaryFolder folder_;
  Program server_{fmt::format(kScript, folder_.path().string())};
};

}  // namespace quillet

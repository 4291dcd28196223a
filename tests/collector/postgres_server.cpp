// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/postgres_server.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <pwd.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <vector>

namespace quillet {
namespace {

namespace fs = std::filesystem;

fs::path programs() {
  std::error_code error;
  for (const auto& version : fs::directory_iterator("/usr/lib/postgresql", error)) {
    if (fs::exists(version.path() / "bin" / "initdb")) return version.path() / "bin";
  }
  throw std::runtime_error("PostgreSQL is not installed");
}

/// The server refuses root. Absent (null) for anybody else: then it runs as that user.
const passwd* serverUser() {
  if (::geteuid() != 0) return nullptr;
  const passwd* user = ::getpwnam("postgres");
  if (user == nullptr) throw std::runtime_error("there is no user postgres to run PostgreSQL");
  return user;
}

/// Starts the command in `folder` with its standard error going to `log`.
pid_t started(const fs::path& folder, const std::vector<std::string>& command, int log) {
  const passwd* user = serverUser();
  std::vector<char*> arguments;
  for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  const pid_t child = ::fork();
  if (child != 0) return child;
  const bool isOther =
      user == nullptr || (::setgid(user->pw_gid) == 0 && ::setuid(user->pw_uid) == 0);
  ::prctl(PR_SET_PDEATHSIG, SIGINT);  // after the change of user, which clears it
  ::dup2(log, STDERR_FILENO);
  ::dup2(log, STDOUT_FILENO);
  if (isOther && ::chdir(folder.c_str()) == 0) ::execv(arguments[0], arguments.data());
  ::_exit(127);
}

int statusOf(pid_t child) {
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

PostgresServer::PostgresServer() {
  const fs::path bin = programs();
  if (const passwd* user = serverUser()) {
    if (::chown(folder_.path().c_str(), user->pw_uid, user->pw_gid) != 0)
      throw std::runtime_error("the folder cannot be given away");
  }
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  log_ = ends[0];
  const std::string data = folder_.path() / "data";
  const pid_t maker = started(folder_.path(),
                              {bin / "initdb", "-D", data, "-U", "quillet", "-A", "trust", "-E",
                               "UTF8", "--locale=C", "--no-sync"},
                              ends[1]);
  if (statusOf(maker) != 0) throw std::runtime_error("initdb failed");
  process_ = started(folder_.path(),
                     {bin / "postgres", "-D", data, "-k", folder_.path(), "-c", "fsync=off", "-c",
                      "listen_addresses=", "-c", "log_checkpoints=off"},
                     ends[1]);
  ::close(ends[1]);
  waitUntilReady(log_);
}

void PostgresServer::waitUntilReady(int log) const {
  std::string said;
  std::array<char, 1000> piece{};
  while (said.find("ready to accept connections") == std::string::npos) {
    const ssize_t length = ::read(log, piece.data(), piece.size());
    if (length <= 0) throw std::runtime_error("PostgreSQL does not start: " + said);
    said.append(piece.data(), static_cast<std::size_t>(length));
  }
}

PostgresServer::~PostgresServer() {
  ::kill(process_, SIGQUIT);  // at once, without tidying up
  statusOf(process_);
  ::close(log_);
}

std::string PostgresServer::address() const {
  return fmt::format("postgresql://quillet@/postgres?host={}", folder_.path().string());
}

}  // namespace quillet

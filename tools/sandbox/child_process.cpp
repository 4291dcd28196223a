// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/child_process.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "base/text.h"

namespace quillet::sandbox {

namespace {

constexpr int kNotFound = 127;
constexpr int kNotStarted = 126;
constexpr int kKilled = 128;

constexpr std::array<std::string_view, 3> kProxyNames{"http_proxy", "https_proxy", "all_proxy"};

sigset_t signalSet(std::initializer_list<int> signals) {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : signals) sigaddset(&set, signal);
  return set;
}

bool isProxy(std::string_view name) {
  const std::string lower = lowerAscii(name);
  return std::ranges::find(kProxyNames, std::string_view(lower)) != kProxyNames.end();
}

std::vector<char*> pointers(std::span<const std::string> texts) {
  std::vector<char*> result;
  for (const std::string& text : texts)
    result.push_back(const_cast<char*>(text.c_str()));  // as the spawning call declares it
  result.push_back(nullptr);
  return result;
}

/// What the child gets back of what this process changed for itself.
class SpawnAttributes {
 public:
  explicit SpawnAttributes(const sigset_t& mask) {
    posix_spawnattr_init(&attributes_);
    posix_spawnattr_setsigmask(&attributes_, &mask);
    // The HTTP library ignores SIGPIPE, which a child would inherit.
    const sigset_t pipe = signalSet({SIGPIPE});
    posix_spawnattr_setsigdefault(&attributes_, &pipe);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  }
  ~SpawnAttributes() { posix_spawnattr_destroy(&attributes_); }
  SpawnAttributes(const SpawnAttributes&) = delete;
  SpawnAttributes& operator=(const SpawnAttributes&) = delete;

  [[nodiscard]] const posix_spawnattr_t* get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_{};
};

/// A Ctrl-C at the terminal has reached the child already: the whole foreground group gets it.
bool isFromTerminal(const siginfo_t& info) {
  return info.si_signo == SIGINT && info.si_code == SI_KERNEL;
}

int statusOf(int waited) {
  return WIFSIGNALED(waited) ? kKilled + WTERMSIG(waited) : WEXITSTATUS(waited);
}

int waitForChild(pid_t child) {
  const sigset_t held = signalSet({SIGINT, SIGTERM, SIGCHLD});
  for (;;) {
    int waited = 0;
    if (::waitpid(child, &waited, WNOHANG) == child) return statusOf(waited);
    siginfo_t info{};
    if (::sigwaitinfo(&held, &info) < 0) continue;
    const bool isForChild = info.si_signo != SIGCHLD && !isFromTerminal(info);
    if (isForChild) ::kill(child, info.si_signo);
  }
}

}  // namespace

HeldSignals::HeldSignals() {
  const sigset_t held = signalSet({SIGINT, SIGTERM, SIGCHLD});
  ::pthread_sigmask(SIG_BLOCK, &held, &before_);
}

HeldSignals::~HeldSignals() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

void HeldSignals::waitForEnd() const {
  const sigset_t ends = signalSet({SIGINT, SIGTERM});
  int signal = 0;
  ::sigwait(&ends, &signal);
}

std::vector<std::string> childEnvironment(const Environment& added) {
  std::vector<std::string> lines;
  const auto isAdded = [&](std::string_view name) {
    return std::ranges::any_of(added, [&](const auto& entry) { return entry.first == name; });
  };
  for (char** entry = environ; *entry; ++entry) {
    const std::string_view line = *entry;
    const std::string_view name = line.substr(0, line.find('='));
    if (!isProxy(name) && !isAdded(name)) lines.emplace_back(line);
  }
  for (const auto& [name, value] : added) lines.push_back(name + '=' + value);
  return lines;
}

int runChild(std::span<const std::string> command, std::span<const std::string> environment,
             const HeldSignals& signals) {
  const SpawnAttributes attributes(signals.before());
  pid_t child = 0;
  const int error = ::posix_spawnp(&child, command.front().c_str(), nullptr, attributes.get(),
                                   pointers(command).data(), pointers(environment).data());
  if (error != 0) {
    fmt::print(stderr, "quillet-sandbox: {}: {}\n", command.front(), std::strerror(error));
    return error == ENOENT ? kNotFound : kNotStarted;
  }
  return waitForChild(child);
}

}  // namespace quillet::sandbox

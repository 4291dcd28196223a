// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/trial.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

namespace quillet {
namespace {

// It is killed before; this is for one whose own parent was.
constexpr unsigned kLongestSeconds = 30;

// Of a process that has only begun. What is open above them is nobody's here.
constexpr int kDescriptors = 256;

/// Locks and sockets of the process that tries would live on in this one.
void closeAllBut(int kept) {
  for (int each = STDERR_FILENO + 1; each < kDescriptors; ++each) {
    if (each != kept) ::close(each);
  }
}

void lead(int descriptor, int flags) {
  const int nowhere = ::open("/dev/null", flags);
  if (nowhere < 0) return;
  ::dup2(nowhere, descriptor);
  ::close(nowhere);
}

[[noreturn]] void run(const std::function<bool()>& attempt, int answer) {
  closeAllBut(answer);
  lead(STDIN_FILENO, O_RDONLY);
  lead(STDOUT_FILENO, O_WRONLY);
  lead(STDERR_FILENO, O_WRONLY);
  // To end so is expected here, and no crash to be kept for anyone.
  std::signal(SIGABRT, [](int) { ::_exit(1); });
  ::alarm(kLongestSeconds);
  try {
    const bool isPassed = attempt();
    ::_exit(isPassed && ::write(answer, "+", 1) == 1 ? 0 : 1);
  } catch (...) {
    ::_exit(1);
  }
}

}  // namespace

Trial::Trial(const std::function<bool()>& attempt) {
  std::array<int, 2> ends{-1, -1};
  if (::pipe(ends.data()) != 0) return;
  answer_ = Descriptor(ends[0]);
  const Descriptor writing(ends[1]);
  for (const int end : ends) ::fcntl(end, F_SETFD, FD_CLOEXEC);
  process_ = ::fork();
  if (process_ == 0) run(attempt, writing.get());
}

Trial::Trial(Trial&& other) noexcept
    : process_(std::exchange(other.process_, -1)),
      answer_(std::move(other.answer_)),
      state_(other.state_) {}

Trial::~Trial() { end(); }

/// What has answered is about to end by itself; until somebody waits for it, it stays listed.
void Trial::end() {
  if (process_ <= 0) return;
  ::kill(process_, SIGKILL);
  while (::waitpid(process_, nullptr, 0) < 0 && errno == EINTR) continue;
  process_ = -1;
}

TrialState Trial::state(std::chrono::milliseconds patience) {
  if (state_ != TrialState::running) return state_;
  if (process_ <= 0) return state_ = TrialState::failed;
  pollfd waiting{.fd = answer_.get(), .events = POLLIN, .revents = 0};
  if (::poll(&waiting, 1, static_cast<int>(patience.count())) <= 0) return state_;
  char answer = 0;
  state_ = ::read(answer_.get(), &answer, 1) == 1 ? TrialState::passed : TrialState::failed;
  end();
  return state_;
}

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/stop_signals.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace quillet {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kSignalStatus = 128;  // plus the signal, as a shell says it

// What goes through the pipe: the number of a signal, or one of these.
constexpr unsigned char kEndBegins = 0;
constexpr unsigned char kOver = 255;

/// Where the handler writes: all that it may do is write, whatever thread it interrupts.
std::atomic<int> signalPipe = -1;

void send(int pipe, unsigned char byte) {
  while (::write(pipe, &byte, 1) < 0 && errno == EINTR) continue;
}

extern "C" void passOn(int signal) {
  const int before = errno;
  send(signalPipe, static_cast<unsigned char>(signal));
  errno = before;
}

struct sigaction handleBy(int signal, void (*handler)(int)) {
  struct sigaction action{};
  struct sigaction before{};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  sigaction(signal, &action, &before);
  return before;
}

/// What poll() takes: rounded up, since it would turn in circles in the last millisecond.
int millisecondsUntil(const std::optional<Clock::time_point>& deadline) {
  if (!deadline) return -1;
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(*deadline - Clock::now());
  return static_cast<int>(std::max(left, std::chrono::milliseconds::zero()).count());
}

/// The next byte; absent when the deadline comes first.
std::optional<unsigned char> receive(int pipe, const std::optional<Clock::time_point>& deadline) {
  for (;;) {
    pollfd waiting{.fd = pipe, .events = POLLIN, .revents = 0};
    unsigned char byte = 0;
    if (::poll(&waiting, 1, millisecondsUntil(deadline)) == 0) return {};
    if (waiting.revents != 0 && ::read(pipe, &byte, 1) == 1) return byte;
  }
}

}  // namespace

/// Not by pipe2(), which not every system has.
StopSignals::Pipe StopSignals::makePipe() {
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
  for (const int end : ends) ::fcntl(end, F_SETFD, FD_CLOEXEC);
  return {Descriptor(ends[0]), Descriptor(ends[1])};
}

StopSignals::StopSignals(std::optional<std::chrono::milliseconds> longestEnd, LateStatus lateStatus)
    : longestEnd_(longestEnd), lateStatus_(lateStatus), received_(makePipe()), told_(makePipe()) {
  signalPipe = received_.writing.get();
  watcher_ = std::thread([this] { watch(); });
  interruptBefore_ = handleBy(SIGINT, passOn);
  terminateBefore_ = handleBy(SIGTERM, passOn);
}

StopSignals::~StopSignals() {
  sigaction(SIGINT, &interruptBefore_, nullptr);
  sigaction(SIGTERM, &terminateBefore_, nullptr);
  send(received_.writing.get(), kOver);
  watcher_.join();
}

void StopSignals::beginEnd() const { send(received_.writing.get(), kEndBegins); }

void StopSignals::note(int signal) {
  signal_ = signal;
  stop_.requestStop();
}

/// On a thread of its own: the event loop may be held by what is to be ended.
void StopSignals::watch() {
  int first = 0;
  std::optional<Clock::time_point> deadline;
  for (;;) {
    const auto received = receive(received_.reading.get(), deadline);
    if (!received) {
      const bool isSuccess = lateStatus_ == LateStatus::success || first == 0;
      std::_Exit(isSuccess ? EXIT_SUCCESS : kSignalStatus + first);
    }
    if (*received == kOver) return;
    if (!deadline && longestEnd_) deadline = Clock::now() + *longestEnd_;
    if (*received == kEndBegins) continue;
    if (first != 0) std::_Exit(kSignalStatus + *received);
    first = *received;
    QMetaObject::invokeMethod(
        &context_, [this, signal = *received] { note(signal); }, Qt::QueuedConnection);
    send(told_.writing.get(), *received);
  }
}

}  // namespace quillet

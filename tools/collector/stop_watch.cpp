// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/stop_watch.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace quillet {

namespace {

using Milliseconds = StopWatch::Milliseconds;

constexpr Milliseconds kNoLimit = std::chrono::hours(24);

/// poll() passes over descriptors below 0. A signal may end it early.
bool isAnyReady(std::array<pollfd, 2>& polled, Milliseconds limit) {
  const int count = ::poll(polled.data(), polled.size(), static_cast<int>(limit.count()));
  if (count < 0 && errno != EINTR) throw std::system_error(errno, std::generic_category(), "poll");
  return count > 0;
}

}  // namespace

StopWatch::StopWatch(StopToken stop, int descriptor)
    : stop_(std::move(stop)), descriptor_(descriptor) {}

StopWatch StopWatch::withGrace(Milliseconds grace) const {
  StopWatch copy = *this;
  copy.grace_ = grace;
  return copy;
}

bool StopWatch::isSeen() {
  if (seen_) return true;
  std::array<pollfd, 2> polled{{{descriptor_, POLLIN, 0}, {-1, 0, 0}}};
  if (stop_.stopRequested() || isAnyReady(polled, Milliseconds(0))) seen_ = Clock::now();
  return seen_.has_value();
}

bool StopWatch::isOver() { return isSeen() && Clock::now() >= *seen_ + grace_; }

void StopWatch::require() {
  if (isOver()) throw Stopped();
}

bool StopWatch::wait(int descriptor, short events, Milliseconds limit) {
  const auto end = Clock::now() + limit;
  for (;;) {
    require();
    const auto until = seen_ ? std::min(end, *seen_ + grace_) : end;
    const auto left = std::chrono::ceil<Milliseconds>(until - Clock::now());
    std::array<pollfd, 2> polled{{{descriptor, events, 0}, {seen_ ? -1 : descriptor_, POLLIN, 0}}};
    (void)isAnyReady(polled, std::max(left, Milliseconds(0)));
    if (polled.front().revents != 0) return true;
    if (Clock::now() >= end) return false;
  }
}

void StopWatch::wait(int descriptor, short events) {
  while (!wait(descriptor, events, kNoLimit)) continue;
}

void StopWatch::pause(Milliseconds time) { (void)wait(-1, 0, time); }

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/platform/wake_watch.h"

#include <QSocketNotifier>
#include <cerrno>
#include <cstdint>

#ifdef __linux__
#include <sys/timerfd.h>
#include <unistd.h>
#endif

namespace quillet {

WakeWatch::WakeWatch() = default;
WakeWatch::~WakeWatch() = default;

void WakeWatch::begin() {
#ifdef __linux__
  jumps_ = Descriptor(::timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK));
  if (!jumps_.isOpen()) return;
  arm();
  news_ = std::make_unique<QSocketNotifier>(jumps_.get(), QSocketNotifier::Read);
  connect(news_.get(), &QSocketNotifier::activated, this, &WakeWatch::listen);
#endif
}

/// For a time that never comes: what counts is that a jump cancels it.
void WakeWatch::arm() const {
#ifdef __linux__
  constexpr std::int64_t kNever = std::int64_t{1} << 40;  // seconds since 1970
  itimerspec at{};
  at.it_value.tv_sec = kNever;
  ::timerfd_settime(jumps_.get(), TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &at, nullptr);
#endif
}

void WakeWatch::listen() {
#ifdef __linux__
  std::uint64_t expired = 0;
  if (::read(jumps_.get(), &expired, sizeof expired) >= 0 || errno != ECANCELED) return;
  arm();
  Q_EMIT woke();
#endif
}

void WakeWatch::useBus(const QDBusConnection& bus) {
  bus_.emplace(bus);
  bus_->connect(QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
                QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("PrepareForSleep"),
                this, SLOT(takeSleep(bool)));
}

void WakeWatch::takeSleep(bool begins) {
  if (!begins) Q_EMIT woke();
}

}  // namespace quillet

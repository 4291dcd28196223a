// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/loop_watch.h"

#include <fmt/format.h>

#include <QMetaEnum>
#include <QScopedValueRollback>
#include <QThread>
#include <chrono>
#include <ctime>
#include <string>

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kFrame = 16ms;

std::chrono::nanoseconds processorTime() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

std::string nameOf(QEvent::Type type) {
  const char* name = QMetaEnum::fromType<QEvent::Type>().valueToKey(type);
  return name == nullptr ? fmt::format("event {}", static_cast<int>(type)) : name;
}

}  // namespace

bool WatchedApplication::notify(QObject* receiver, QEvent* event) {
  QThread* const here = QThread::currentThread();
  const int level = here->loopLevel();
  if (here != thread() || level == level_) return QApplication::notify(receiver, event);
  const QScopedValueRollback inside(level_, level);
  // Neither need be there afterwards.
  const std::string what =
      fmt::format("{} of {}", nameOf(event->type()), receiver->metaObject()->className());
  const auto before = processorTime();
  const auto inLoopsBefore = inLoops_;
  const bool isHandled = QApplication::notify(receiver, event);
  const auto took = processorTime() - before;
  const auto worked =
      std::chrono::duration_cast<std::chrono::milliseconds>(took - (inLoops_ - inLoopsBefore));
  inLoops_ = inLoopsBefore + took;
  if (worked > kFrame) log_(fmt::format("loop {:7} ms  {}", worked.count(), what));
  return isHandled;
}

}  // namespace quillet

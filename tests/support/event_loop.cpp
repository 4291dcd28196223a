// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "support/event_loop.h"

#include <QCoreApplication>
#include <QThreadPool>

namespace quillet {
namespace {

/// One turn of the loop does not tell whether it did anything, nor handles what it posted.
class EventCounter final : public QObject {
 public:
  EventCounter() { QCoreApplication::instance()->installEventFilter(this); }

  bool eventFilter(QObject* /*watched*/, QEvent* /*event*/) override {
    ++count;
    return false;
  }

  int count = 0;
};

}  // namespace

void handlePendingEvents() {
  EventCounter events;
  int before = 0;
  do {
    before = events.count;
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
  } while (events.count > before);
}

}  // namespace quillet

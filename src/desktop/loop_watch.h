// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QApplication>
#include <chrono>

#include "base/log_sink.h"

namespace quillet {

/// An application that tells of each event whose handling held the event loop for longer than a
/// frame of a display lasts, by the processor time that it took: what other programs took meanwhile
/// is not its own, nor are the events of a loop within it, as an open menu has one.
class WatchedApplication final : public QApplication {
  Q_OBJECT

 public:
  /// Arguments as QApplication takes them.
  WatchedApplication(int& count, char** words, LogSink log)
      : QApplication(count, words), log_(std::move(log)) {}

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  LogSink log_;
  int level_ = -1;  ///< the loop whose event is handled; those it sends are its own
  std::chrono::nanoseconds inLoops_{};  ///< what events of loops took so far
};

}  // namespace quillet

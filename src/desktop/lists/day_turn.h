// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTimer>
#include <chrono>

#include "desktop/models/view_world.h"

namespace quillet {

/// Tells when rows that say "today" are to be read anew.
class DayTurn : public QObject {
  Q_OBJECT

 public:
  explicit DayTurn(const ViewWorld& world);

  /// Rows are read now: waits for the next day.
  void await();
  /// A machine that slept has not counted the time: turns at once if it is another day.
  void look();

 Q_SIGNALS:
  void turned();

 private:
  [[nodiscard]] std::chrono::local_days today() const;

  ViewWorld world_;
  std::chrono::local_days day_;
  QTimer midnight_;
};

}  // namespace quillet

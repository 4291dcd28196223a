// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "analysis/maintenance_health.h"

namespace quillet {

/// What the thresholds come to: each verdict with what it means now.
class VerdictList : public QWidget {
  Q_OBJECT

 public:
  VerdictList();

  void setThresholds(const MaintenanceThresholds& thresholds);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] double line() const;
  /// Whether what a verdict means stands below it: in large text there is no room beside.
  [[nodiscard]] bool isStacked(int width) const;

  MaintenanceThresholds thresholds_;
};

}  // namespace quillet

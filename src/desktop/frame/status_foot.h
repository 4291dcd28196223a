// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTimer>
#include <QWidget>

#include "desktop/frame/check_state.h"
#include "net/clock.h"

namespace quillet {

/// The foot of the sidebar: when prices were checked and will be, and of which storefront. In the
/// rail its icon alone.
class StatusFoot : public QWidget {
  Q_OBJECT

 public:
  /// The clock outlives the foot.
  StatusFoot(Clock& clock, UtcOffsetAt zone, QWidget* parent = nullptr);

  void setState(const CheckState& state);
  void setRail(bool isRail);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void say();
  void paintLines(QPainter& painter) const;

  Clock& clock_;
  UtcOffsetAt zone_;
  CheckState state_;
  CheckWords words_;
  bool isRail_ = false;
  QTimer minute_;  ///< while it is seen: "12 min ago" grows old
};

}  // namespace quillet

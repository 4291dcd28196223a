// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/frame/sidebar_view.h"
#include "desktop/frame/status_foot.h"

namespace quillet {

/// Where the user can go, at the left of the window, above what the window says of price checks.
class Sidebar : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kWidth = 219;  ///< and the handle beside it

  /// All outlive the sidebar.
  Sidebar(SidebarModel& places, Clock& clock, UtcOffsetAt zone);

  void setShape(SidebarShape shape);
  [[nodiscard]] SidebarView& view() { return *view_; }
  [[nodiscard]] StatusFoot& foot() { return *foot_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  SidebarView* view_;
  StatusFoot* foot_;
};

}  // namespace quillet

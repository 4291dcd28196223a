// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QWidget>

#include "desktop/models/view_world.h"

namespace quillet {

class ReportWindow;

/// The window of an app's report: one, which turns to the app that it is asked for.
class ReportWindows {
 public:
  /// It stands before `window`. What the world refers to outlives this.
  ReportWindows(QWidget& window, const ViewWorld& world) : window_(window), world_(world) {}

  void show(const AppKey& app);
  /// Likewise, and asks for a printer.
  void print(const AppKey& app);

 private:
  QWidget& window_;
  ViewWorld world_;
  QPointer<ReportWindow> report_;
};

}  // namespace quillet

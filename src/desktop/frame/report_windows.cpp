// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/report_windows.h"

#include "desktop/dialogs/report_window.h"
#include "desktop/look/widgets.h"

namespace quillet {

void ReportWindows::show(const AppKey& app) {
  if (report_ == nullptr) report_ = new ReportWindow(world_, &window_);
  report_->show(app);
  bringUp(*report_);
}

void ReportWindows::print(const AppKey& app) {
  show(app);
  report_->printWhenKnown();
}

}  // namespace quillet

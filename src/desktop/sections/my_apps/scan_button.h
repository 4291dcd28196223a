// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPushButton>

#include "desktop/services/installed_apps.h"

namespace quillet {

/// Scans the Applications folder, or ends the scan that runs. Where the bar that it is in has no
/// room for its text, the icon has to do.
class ScanButton : public QPushButton {
  Q_OBJECT

 public:
  /// The service outlives it.
  explicit ScanButton(const InstalledApps& apps);

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void follow();
  void fit();

  const InstalledApps& apps_;
};

}  // namespace quillet

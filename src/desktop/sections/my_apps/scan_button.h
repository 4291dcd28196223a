// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPushButton>

#include "desktop/services/installed_apps.h"

namespace quillet {

/// Scans the Applications folder, or ends the scan that runs. Where its text has no room, the icon
/// has to do.
class ScanButton : public QPushButton {
  Q_OBJECT

 public:
  /// The service outlives it.
  explicit ScanButton(const InstalledApps& apps);

  [[nodiscard]] QSize sizeHint() const override { return whole_; }
  [[nodiscard]] QSize minimumSizeHint() const override { return iconAlone_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void follow();
  void measure();
  void fit();

  const InstalledApps& apps_;
  QSize whole_;
  QSize iconAlone_;
};

}  // namespace quillet

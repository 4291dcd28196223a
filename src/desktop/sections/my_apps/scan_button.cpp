// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/my_apps/scan_button.h"

#include "desktop/look/button_look.h"
#include "desktop/look/widgets.h"

namespace quillet {

ScanButton::ScanButton(const InstalledApps& apps) : apps_(apps) {
  setIconName(*this, QStringLiteral("search"));
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  connect(&apps, &InstalledApps::changed, this, &ScanButton::follow);
  follow();
}

/// Said only when it turns: a scan tells of each step.
void ScanButton::follow() {
  const QString text = apps_.isScanning() ? tr("Stop Scan") : tr("Scan Applications Folder");
  if (text == accessibleName()) return;
  setAccessibleName(text);
  setToolTip(text);
  measure();
}

void ScanButton::measure() {
  setText({});
  iconAlone_ = QPushButton::sizeHint();
  setText(accessibleName());
  whole_ = QPushButton::sizeHint();
  updateGeometry();
  fit();
}

void ScanButton::fit() { setText(width() < whole_.width() ? QString() : accessibleName()); }

void ScanButton::resizeEvent(QResizeEvent* event) {
  QPushButton::resizeEvent(event);
  fit();
}

void ScanButton::changeEvent(QEvent* event) {
  QPushButton::changeEvent(event);
  if (changesSizes(*event) && !accessibleName().isEmpty()) measure();
}

}  // namespace quillet

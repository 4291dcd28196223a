// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/my_apps/scan_button.h"

#include <QEvent>
#include <QLayout>

#include "desktop/look/button_look.h"

namespace quillet {

ScanButton::ScanButton(const InstalledApps& apps) : apps_(apps) {
  setIconName(*this, QStringLiteral("folder2"));
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  connect(&apps, &InstalledApps::changed, this, &ScanButton::follow);
  follow();
}

/// Said only when it turns: a scan tells of each step.
void ScanButton::follow() {
  const QString text = apps_.isScanning() ? tr("Stop Scan") : tr("Scan Applications Folder");
  if (text == accessibleName()) return;
  setAccessibleName(text);
  setToolTip(text);
  fit();
}

void ScanButton::fit() {
  setText(accessibleName());
  const QWidget* bar = parentWidget();
  if (bar == nullptr || bar->layout() == nullptr) return;
  if (bar->layout()->sizeHint().width() > bar->width()) setText({});
}

void ScanButton::showEvent(QShowEvent* event) {
  QPushButton::showEvent(event);
  if (parentWidget() != nullptr) parentWidget()->installEventFilter(this);
  fit();
}

bool ScanButton::eventFilter(QObject* watched, QEvent* event) {
  if (watched == parentWidget() && event->type() == QEvent::Resize && isVisible()) fit();
  return QPushButton::eventFilter(watched, event);
}

}  // namespace quillet

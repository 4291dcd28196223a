// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/widgets.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QTimer>

namespace quillet {

void bringUp(QWidget& window) {
  QTimer::singleShot(0, &window, [&window] {
    window.show();
    window.raise();
    window.activateWindow();
  });
}

bool changesSizes(const QEvent& event) {
  return event.type() == QEvent::FontChange || event.type() == QEvent::StyleChange ||
         event.type() == QEvent::LayoutDirectionChange;
}

bool steers(QAbstractItemView& list, const QObject* watched, QEvent& event) {
  if (event.type() != QEvent::KeyPress || watched == &list) return false;
  switch (static_cast<QKeyEvent&>(event).key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: QCoreApplication::sendEvent(&list, &event); return true;
    default: return false;
  }
}

QString controlText(QString text) { return text.replace(u'&', QStringLiteral("&&")); }

QString textOfControl(QString shown) {
  return shown.replace(QStringLiteral("&&"), QStringLiteral("&"));
}

bool isReturn(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const int key = static_cast<const QKeyEvent&>(event).key();
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace quillet

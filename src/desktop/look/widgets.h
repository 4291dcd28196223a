// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QAbstractItemView;
class QEvent;
class QObject;
class QWidget;

namespace quillet {

/// Shows a window in front of the others, with the focus; in an event of its own, for making it and
/// showing it would be a long one.
void bringUp(QWidget& window);

/// Whether widgets that lay out their own texts must do so again after `event`.
[[nodiscard]] bool changesSizes(const QEvent& event);

/// A field that keeps the focus steers the list below it: passes on a key press that moves the
/// choice there, and tells whether it was one. What `watched` the list itself gets stays its own.
bool steers(QAbstractItemView& list, const QObject* watched, QEvent& event);

/// `text` for a button or a menu, which take an ampersand for the mark of a key.
[[nodiscard]] QString controlText(QString text);
/// What was made so.
[[nodiscard]] QString textOfControl(QString shown);

/// Whether `event` presses Return or Enter.
[[nodiscard]] bool isReturn(const QEvent& event);

}  // namespace quillet

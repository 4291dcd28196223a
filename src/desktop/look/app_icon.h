// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QIcon>

namespace quillet {

/// The application's icon in the sizes that windows and dialogs ask for.
[[nodiscard]] QIcon applicationIcon();

/// What the icon in a desktop's tray tells.
enum class TrayNews { none, unread };

/// The application's sign in one colour, for the tray; with a dot where there are unread alerts.
[[nodiscard]] QIcon trayIcon(const QColor& ink, const QColor& dot, TrayNews news);

}  // namespace quillet

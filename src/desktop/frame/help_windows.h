// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QWidget>

namespace quillet {

/// The windows of the menu Help. Each is made when it is first asked for.
class HelpWindows {
 public:
  /// They stand before `window`.
  explicit HelpWindows(QWidget& window) : window_(window) {}

  void showGuide();
  void showShortcuts();
  void showAbout();

 private:
  QWidget& window_;
  QPointer<QWidget> guide_;
  QPointer<QWidget> shortcuts_;
  QPointer<QWidget> about_;
};

}  // namespace quillet

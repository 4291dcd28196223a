// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/help_windows.h"

#include "desktop/frame/about_window.h"
#include "desktop/frame/guide_window.h"
#include "desktop/frame/shortcuts_window.h"
#include "desktop/look/widgets.h"

namespace quillet {

void HelpWindows::showGuide() {
  if (guide_ == nullptr) guide_ = new GuideWindow(&window_);
  bringUp(*guide_);
}

void HelpWindows::showShortcuts() {
  if (shortcuts_ == nullptr) shortcuts_ = new ShortcutsWindow(&window_);
  bringUp(*shortcuts_);
}

void HelpWindows::showAbout() {
  if (about_ == nullptr) about_ = new AboutWindow(&window_);
  bringUp(*about_);
}

}  // namespace quillet

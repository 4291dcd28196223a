// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QButtonGroup>
#include <QDialog>

#include "desktop/dialogs/settings_edit.h"
#include "desktop/models/view_world.h"

namespace quillet {

class NoticeBar;
class StorefrontList;

/// What somebody who is new is asked: where they buy apps, and for what. Whoever skips it has the
/// storefront of their locale, as before.
class WelcomeWindow : public QDialog {
  Q_OBJECT

 public:
  /// What the world refers to outlives the window.
  WelcomeWindow(const ViewWorld& world, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QWidget* makeSide();
  [[nodiscard]] QWidget* makePlatforms();
  void keep();

  SettingsEdit edit_;
  StorefrontList* storefronts_;
  /// The platform that new searches begin on; its place in kPlatformWords is a button's ID.
  QButtonGroup* platforms_;
  NoticeBar* notice_;
};

/// Whether it is to be shown by itself: to somebody who starts for the first time. Told so once.
[[nodiscard]] bool isNewHere(const Settings& settings, const StateFile& remembered);
void rememberWelcome(StateFile& state);

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <vector>

#include "desktop/dialogs/welcome_steps.h"

class QPushButton;
class QStackedWidget;

namespace quillet {

class NoticeBar;
class StepList;

/// What somebody who is new is asked, a step after the other. What a step asks is kept when the
/// user goes on from it; whoever skips it has what they had before.
class WelcomeWindow : public QDialog {
  Q_OBJECT

 public:
  /// What the world and the choices refer to outlives the window.
  WelcomeWindow(const ViewWorld& world, const SystemChoices& system, QWidget* parent);

 Q_SIGNALS:
  /// The window is gone, and the user wants to add apps to their own.
  void appsWanted();
  /// Likewise, and they are to be found among those that are installed.
  void scanWanted();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] std::vector<WelcomeStep> makeSteps();
  [[nodiscard]] QWidget* makeSide();
  [[nodiscard]] QLayout* makeButtons();
  [[nodiscard]] bool isAtLast() const;
  void showStep(std::size_t step);
  void goOn();
  void keep();

  ViewWorld world_;
  SystemChoices system_;
  SettingsEdit edit_;
  AppsWish wish_ = AppsWish::later;
  std::vector<WelcomeStep> steps_;
  std::size_t at_ = 0;
  StepList* list_;
  QStackedWidget* stack_;
  NoticeBar* notice_;
  QPushButton* back_ = nullptr;
  QPushButton* next_ = nullptr;
};

/// Whether it is to be shown by itself: to somebody who starts for the first time. Told so once.
[[nodiscard]] bool isNewHere(const Settings& settings, const StateFile& remembered);
void rememberWelcome(StateFile& state);

}  // namespace quillet

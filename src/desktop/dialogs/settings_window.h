// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <vector>

#include "desktop/dialogs/settings_edit.h"
#include "desktop/dialogs/system_choices.h"
#include "desktop/models/view_world.h"

class QStackedWidget;

namespace quillet {

class NoticeBar;
class SettingRow;
class SettingsIndex;
class SettingsPage;

/// The settings, page by page. What is changed holds at once, and what the controls show is what is
/// kept, whoever changed it.
class SettingsWindow : public QDialog {
  Q_OBJECT

 public:
  /// What the world and the choices refer to outlives the window.
  SettingsWindow(const ViewWorld& world, const SystemChoices& system, QWidget* parent);

  /// Goes to the first page.
  void showFirst();

  bool event(QEvent* event) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void showPage(SettingsPage& page);
  void showRow(SettingsPage& page, SettingRow& row);

  ViewWorld world_;
  SystemChoices system_;
  SettingsEdit edit_;
  std::vector<SettingsPage*> pages_;
  SettingsIndex* index_;
  NoticeBar* notice_;
  QStackedWidget* stack_;
};

}  // namespace quillet

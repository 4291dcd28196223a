// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

#include "desktop/services/prompts.h"
#include "desktop/services/updates.h"

class QPlainTextEdit;
class QPushButton;

namespace quillet {

class PageText;

/// Whether there is a newer Quillet: what it is called, what it says, and the way to its page.
class UpdatesWindow : public QDialog {
  Q_OBJECT

 public:
  /// Both outlive the window.
  UpdatesWindow(Updates& updates, Prompts& prompts, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void lay();
  void follow();
  void openPage();
  void turnSkip();

  Updates& updates_;
  Prompts& prompts_;
  PageText* state_;
  PageText* version_;
  QPlainTextEdit* notes_;
  QWidget* framedNotes_ = nullptr;
  QPushButton* skip_;
  QPushButton* look_;
  QPushButton* open_;
};

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

#include "desktop/services/command_tool.h"

class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace quillet {

class PageText;

/// Makes `quillet` a command of the user's, or takes that back: how it stands, each link before it
/// is made, and what the user has to add where commands are not looked for there.
class ToolWindow : public QDialog {
  Q_OBJECT

 public:
  ToolWindow(ToolPlaces places, QWidget* parent);

  /// How it stands by now.
  void look();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void lay();
  [[nodiscard]] QWidget* makeLine();
  void showLinks();
  void tell(const std::vector<std::string>& failures);

  ToolPlaces places_;
  CommandTool tool_;
  PageText* state_;
  QVBoxLayout* links_;
  QWidget* missing_;  ///< what is to be added for commands to be looked for there
  QLineEdit* line_;
  PageText* failures_;
  QPushButton* install_;
  QPushButton* remove_;
};

}  // namespace quillet

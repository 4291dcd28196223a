// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QStringList>

class QLineEdit;
class QPushButton;

namespace quillet {

class TextLabel;

/// What is to be named, and how.
struct NameQuestion {
  QString title;   ///< "Save Search"
  QString name;    ///< to begin with
  QString action;  ///< "Save"
  /// What the action is called where the name is another one's; empty where that is refused.
  QString replacing;
  QStringList taken;    ///< by others, letter case aside
  QString takenRemark;  ///< what is said of one
  QString label = {};   ///< of what is typed, where that is no name but leads to one
  int mostLetters = 200;
};

/// Asks for a name. It has one, and may have it, when it is accepted.
class NameDialog : public QDialog {
  Q_OBJECT

 public:
  NameDialog(NameQuestion question, QWidget* parent);

  [[nodiscard]] QString name() const;
  /// Whether it is another one's, which is accepted where that may be.
  [[nodiscard]] bool isTaken() const;

 protected:
  /// Puts more to be chosen between the name and the buttons, in the order of the tab key too.
  void ask(QWidget* more);

 private:
  void judge();

  NameQuestion question_;
  QLineEdit* field_;
  TextLabel* remark_;
  QPushButton* cancel_;
  QPushButton* action_;
};

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <vector>

class QAction;
class QPushButton;

namespace quillet {

class TextLabel;

/// What stands in the place of a page where several apps are chosen: how many, what they cost
/// together, and what can be done with all of them.
class ChoiceSummary : public QWidget {
  Q_OBJECT

 public:
  ChoiceSummary();

  /// Each has a button, which is seen while it can be run. They outlive this.
  void setActions(const std::vector<QAction*>& actions);
  /// `sums`: "$77.95 · 1 unknown"; empty for nothing.
  void show(int apps, const QString& sums);

 private:
  QPushButton* buttonOf(QAction& action);

  TextLabel* count_;
  TextLabel* sums_;
  QWidget* buttons_;
};

}  // namespace quillet

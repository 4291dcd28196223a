// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <vector>

#include "desktop/models/row_filter_model.h"

class QComboBox;

namespace quillet {

class TextLabel;
class UpgradeResult;

/// "If I upgrade to macOS …": which version, and how many of the apps that is known to stop.
class UpgradeChooser : public QWidget {
  Q_OBJECT

 public:
  UpgradeChooser();

  /// Of kMacSystems; another is the last of them. Nobody is told.
  void choose(const QString& system);
  void show(const RowFilterModel& rows);
  using QWidget::show;

  [[nodiscard]] QSize sizeHint() const override;
  /// Without the words before the version.
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// By the user.
  void systemChosen(const QString& system);
  /// One of those that the version stops, or that ask for a later one.
  void appChosen(const quillet::RowKey& row);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void arrange();

  TextLabel* name_;
  QComboBox* system_;
  UpgradeResult* result_;
};

}  // namespace quillet

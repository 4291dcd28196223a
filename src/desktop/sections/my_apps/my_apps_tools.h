// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace quillet {

class SegmentedControl;

enum class MyAppsSight { list, board };

/// What stands in the toolbar over My Apps: as what the apps are seen, and a button behind it.
class MyAppsTools : public QWidget {
  Q_OBJECT

 public:
  MyAppsTools();

  /// As narrow as it can be where there is no room; owned from now on.
  void setButton(QWidget* button);
  /// Nobody is told.
  void show(MyAppsSight sight);
  using QWidget::show;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// By the user.
  void sightChosen(quillet::MyAppsSight sight);

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void arrange();

  SegmentedControl* sights_;
  QWidget* button_ = nullptr;
};

}  // namespace quillet

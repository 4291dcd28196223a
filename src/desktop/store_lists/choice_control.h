// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "desktop/lists/section.h"

class QActionGroup;

namespace quillet {

class MenuButton;
class SegmentedControl;

/// One choice of a few words: side by side or, where there is no room for that, in a menu.
class ChoiceControl : public QWidget {
  Q_OBJECT

 public:
  /// `name` is what is chosen: "Platform".
  ChoiceControl(const QString& name, std::vector<SelectorChoice> choices,
                QWidget* parent = nullptr);

  /// The same choices, of which another is made, or others can be made. Nobody is told.
  void show(std::vector<SelectorChoice> choices);
  using QWidget::show;
  void setShort(bool isShort);
  /// Gives it to the choice that is made.
  void takeFocus(Qt::FocusReason reason);

  [[nodiscard]] QSize sizeOf(bool isShort) const;
  [[nodiscard]] QSize sizeHint() const override { return sizeOf(isShort_); }

 Q_SIGNALS:
  /// By the user.
  void chosenChanged(const std::string& id);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void take(int index);

  QString name_;
  std::vector<SelectorChoice> choices_;
  SegmentedControl* segments_;
  MenuButton* button_;
  QActionGroup* actions_;
  bool isShort_ = false;
};

}  // namespace quillet

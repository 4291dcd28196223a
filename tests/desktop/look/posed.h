// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMenuBar>
#include <QStyleOption>
#include <QTabBar>
#include <QWidget>
#include <type_traits>

namespace quillet {

/// What the pointer and the keys do with a control, as a style is told.
using Pose = QStyle::State;

inline constexpr Pose kAllPoses = QStyle::State_Enabled | QStyle::State_MouseOver |
                                  QStyle::State_Sunken | QStyle::State_HasFocus |
                                  QStyle::State_KeyboardFocusChange;

/// A real control that tells its style to be in a state that only a pointer could bring about.
template <typename Control, typename Option>
class Posed : public Control {
 public:
  template <typename... Arguments>
  explicit Posed(Pose pose, Arguments&&... arguments)
      : Control(std::forward<Arguments>(arguments)...), pose_(pose) {
    this->setEnabled(pose.testFlag(QStyle::State_Enabled));
  }

 protected:
  void initStyleOption(Option* option) const override {
    Control::initStyleOption(option);
    option->state = (option->state & ~kAllPoses) | pose_;
    // The parts of a control that the pointer is over.
    if constexpr (std::is_base_of_v<QStyleOptionSpinBox, Option>) {
      option->activeSubControls = QStyle::SC_SpinBoxUp;
    }
  }

 private:
  Pose pose_;
};

/// The same of tabs: the first has the focus, the pointer is over the second.
class PosedTabs : public QTabBar {
 public:
  explicit PosedTabs(Pose pose) : pose_(pose) { setEnabled(pose.testFlag(QStyle::State_Enabled)); }

 protected:
  void initStyleOption(QStyleOptionTab* option, int index) const override {
    QTabBar::initStyleOption(option, index);
    const Pose other = index == 0 ? QStyle::State_MouseOver | QStyle::State_Sunken
                                  : QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    option->state = (option->state & ~kAllPoses) | (pose_ & ~other);
  }

 private:
  Pose pose_;
};

/// The same of a menu bar: the pointer is over the second entry. Really there, it would open.
class PosedMenuBar : public QMenuBar {
 protected:
  void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override {
    QMenuBar::initStyleOption(option, action);
    option->state.setFlag(QStyle::State_Selected, actions().indexOf(action) == 1);
  }
};

}  // namespace quillet

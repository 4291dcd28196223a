// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <functional>
#include <vector>

namespace quillet {

/// Puts what the tab key reaches in `pane` behind all else of its window. A widget that is made
/// late comes last by itself, wherever it stands.
void putLastInTabOrder(QWidget& pane);

/// The panes of a window in the order in which F6 goes through them.
class PaneRing {
 public:
  struct Pane {
    QWidget* pane;
    std::function<void()> takeFocus;
  };

  /// `leave`: what Esc does where there is the focus.
  PaneRing(std::vector<Pane> panes, std::function<void()> leave);

  /// To the one after (1) or before (-1) the one that has the focus; hidden ones are passed over.
  void goBy(int step);
  void leave() const { leave_(); }

  /// Whether the focus is in it.
  [[nodiscard]] static bool hasFocus(const QWidget& pane);

 private:
  std::vector<Pane> panes_;
  std::function<void()> leave_;
};

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <vector>

#include "desktop/look/menu_button.h"

namespace quillet {

/// One of the choices of such a button.
struct ButtonChoice {
  QString text;   ///< in its menu
  QString shown;  ///< on the button; empty for the same

  friend bool operator==(const ButtonChoice&, const ButtonChoice&) = default;
};

/// A choice of one out of several at the right of a block's title, in a menu.
class ChoiceButton : public MenuButton {
  Q_OBJECT

 public:
  /// `name` is what is chosen: "Range".
  explicit ChoiceButton(const QString& name, QWidget* parent = nullptr);

  /// The first one is chosen then. What is chosen stays where the choices are the same.
  void setChoices(std::vector<ButtonChoice> choices);
  [[nodiscard]] std::size_t chosen() const { return chosen_; }
  void choose(std::size_t index);

 Q_SIGNALS:
  /// By the user.
  void chosenChanged();

 private:
  void fill();

  QString name_;
  std::vector<ButtonChoice> choices_;
  std::size_t chosen_ = 0;
};

}  // namespace quillet

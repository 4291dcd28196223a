// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMenu>
#include <span>

#include "desktop/models/row_table.h"

namespace quillet {

/// The orders of the list that is shown, one of which is chosen.
class SortMenu : public QMenu {
  Q_OBJECT

 public:
  explicit SortMenu(QWidget* parent = nullptr);

  /// `chosen`: an ID; another than theirs is the first.
  void setChoices(std::span<const SortChoice> choices, const std::string& chosen);
  /// Whether there is anything to choose.
  [[nodiscard]] bool hasChoices() const { return actions().size() > 1; }
  /// What the chosen one is called.
  [[nodiscard]] QString chosenText() const;

 Q_SIGNALS:
  void chosen(const std::string& id);

 private:
  void rebuild(std::span<const SortChoice> choices);

  const SortChoice* shown_ = nullptr;
};

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/sections/my_apps/upkeep_list.h"

namespace quillet {

/// One column of the board: its title with the number of its apps, and below that their cards.
class UpkeepPile : public QWidget {
  Q_OBJECT

 public:
  /// The rows and the pictures outlive it.
  UpkeepPile(const RowFilterModel& rows, UpkeepColumn column, RowPictures& pictures,
             QWidget* parent);

  [[nodiscard]] UpkeepCards& cards() { return *cards_; }
  [[nodiscard]] UpkeepList& list() { return *list_; }
  void take(std::vector<RowKey> keys);

  /// The narrowest in which names can be told apart, for the text size of the widget.
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  [[nodiscard]] int headHeight() const;
  void arrange();

  UpkeepCards* cards_;
  UpkeepList* list_;
};

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QListView>
#include <QTimer>

#include "desktop/images/image_store.h"
#include "desktop/sections/my_apps/upkeep_cards.h"

namespace quillet {

class RowPictures;

/// One column of the board as it scrolls: its cards, of which the chosen one may offer to look for
/// another app.
class UpkeepList : public QListView {
  Q_OBJECT

 public:
  /// Both outlive it.
  UpkeepList(UpkeepCards& cards, RowPictures& pictures, QWidget* parent);

  /// That card alone, or none for -1; it is brought into sight.
  void chooseCard(int card);
  /// How far the middle of the chosen card is below the upper edge; absent where none is chosen.
  [[nodiscard]] std::optional<int> chosenHeight() const;
  /// The card nearest to there.
  void chooseNearest(int height);
  /// Brings back what was chosen and the scroll, after other cards came.
  void take(std::vector<RowKey> keys);
  /// What its cards show, from the first that is seen to the last.
  [[nodiscard]] std::vector<ImageKey> pictures() const;
  [[nodiscard]] bool isReplaced(const QModelIndex& index) const;

 Q_SIGNALS:
  /// By the user.
  void chosen(const quillet::RowKey& row);
  void opened(const quillet::RowKey& row);
  void menuAsked(const QPoint& at);
  /// The user wants another app in the place of this one.
  void replacementAsked(const quillet::RowKey& row);
  /// The user goes to the column before (-1) or behind.
  void stepped(int by);
  /// Other cards are seen.
  void rested();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void focusInEvent(QFocusEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  UpkeepCards& cards_;
  bool isTold_ = true;  ///< whether a choice is the user's
  QTimer rest_;
};

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QScrollArea>
#include <QTimer>
#include <array>
#include <functional>

#include "desktop/lists/row_pictures.h"
#include "desktop/sections/my_apps/upkeep_pile.h"

namespace quillet {

class UpkeepShare;

/// How the apps of a list are cared for: a column for each verdict, and for those that need Rosetta
/// or are gone. Where it has no room for all columns they scroll sideways.
class UpkeepBoard : public QWidget {
  Q_OBJECT

 public:
  /// All outlive it.
  UpkeepBoard(const RowFilterModel& rows, ImageStore& images, std::function<Instant()> now);
  ~UpkeepBoard() override;

  /// Chooses the card of that row, where it stands first unless it is chosen already; nobody is
  /// told.
  void choose(const std::optional<RowKey>& row);

 Q_SIGNALS:
  /// By the user.
  void chosen(const quillet::RowKey& row);
  void opened(const quillet::RowKey& row);
  void menuAsked(const QPoint& at);
  void replacementAsked(const quillet::RowKey& row);

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  void listen(UpkeepPile& pile);
  void fill();
  void showChosen();
  void step(const UpkeepPile& from, int by);
  [[nodiscard]] UpkeepPile& firstPile();
  void askForSeen();

  const RowFilterModel& rows_;
  ImageStore& images_;
  std::function<Instant()> now_;
  RowPictures pictures_;
  UpkeepShare* share_;
  QScrollArea* across_;
  std::array<UpkeepPile*, kUpkeepColumns> piles_{};
  std::optional<RowKey> chosen_;
  QTimer fillTimer_;  ///< rows come in bursts
  QTimer seenTimer_;  ///< several columns rest at once
};

}  // namespace quillet

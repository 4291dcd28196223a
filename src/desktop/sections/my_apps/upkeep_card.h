// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStyledItemDelegate>

namespace quillet {

class RowPictures;
class UpkeepList;

inline constexpr double kCardArtwork = 32;

/// Paints one app of a column: picture, name, and what the column says of it.
class UpkeepCard : public QStyledItemDelegate {
  Q_OBJECT

 public:
  /// The list owns it; the pictures outlive it.
  UpkeepCard(UpkeepList& list, RowPictures& pictures);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;
  /// Tells the whole name where a part of it is shown.
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

  /// Where a chosen card offers to look for another app.
  [[nodiscard]] static QRect offerIn(const QRect& card, const QWidget& list);

 private:
  UpkeepList& list_;
  RowPictures& pictures_;
};

}  // namespace quillet

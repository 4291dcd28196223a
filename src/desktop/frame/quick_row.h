// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStyledItemDelegate>

namespace quillet {

/// In which list an app was found.
inline constexpr int QuickListRole = Qt::UserRole + 1;

/// A row of what was found: the name, and the list at the end.
class QuickRowDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  static constexpr int kHeight = 32;

  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;
};

}  // namespace quillet

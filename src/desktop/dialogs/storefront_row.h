// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStyledItemDelegate>

namespace quillet {

enum StorefrontRole {
  StorefrontCodeRole = Qt::UserRole,
  StorefrontCurrencyRole,
};

/// A row of the list of storefronts: a radio button's mark, name, code and currency.
class StorefrontRowDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;
};

}  // namespace quillet

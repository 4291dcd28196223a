// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStyledItemDelegate>

namespace quillet {

/// Rows that are ticked before their text, by a click on the box or by the space bar; those of
/// which the model says nothing of a tick have no box. What else stands in a row its heir paints.
class CheckedRowDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  /// Where the box begins, and the text behind it.
  static constexpr int kBoxLeft = 12;
  static constexpr int kTextLeft = 40;

  /// `height`: of a row at a text size of 100 %.
  CheckedRowDelegate(int height, QObject* parent) : QStyledItemDelegate(parent), height_(height) {}

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;
  /// The ground of what is chosen, and the box.
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

 private:
  int height_;
};

}  // namespace quillet

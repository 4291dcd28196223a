// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStyledItemDelegate>

#include "desktop/frame/sidebar_view.h"

namespace quillet {

struct Look;

/// How a row of the sidebar stands.
struct SidebarRow {
  SidebarShape shape = SidebarShape::full;
  bool isSelected = false;
  bool isHovered = false;
  bool hasRing = false;
  bool isTarget = false;  ///< of what is dragged over it
};

/// Paints one row over the whole width of the view.
void paintSidebarRow(QPainter& painter, Look& look, const QRect& rect, const QModelIndex& index,
                     const SidebarRow& row);

/// How high the rows are; the view paints them.
class SidebarDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  explicit SidebarDelegate(SidebarView* view) : QStyledItemDelegate(view), view_(view) {}

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;

 private:
  SidebarView* view_;
};

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/page/item_layout.h"

namespace quillet {

/// Places a page's header and, below it, what blocks are seen: one below the other, or in pairs
/// where there is width for them, but for the wide ones, which reach to the edge of the view. The
/// width is that of the view: a scroll bar stands in the inset.
class PageLayout : public ItemLayout {
 public:
  /// `view` is what the page is scrolled in. The first widget that is added is the header.
  PageLayout(const QWidget& view, QWidget* page);

  [[nodiscard]] int heightForWidth(int width) const override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSize() const override;
  void setGeometry(const QRect& rect) override;

  /// How far the content is from both edges of the view.
  [[nodiscard]] int inset() const;

  /// Where the widget stands, or would if it were seen; the lower end of all without one.
  [[nodiscard]] int topOf(const QWidget* widget) const;

 private:
  /// Calls `place(item, rect)` for each item; returns the height of all.
  template <typename Place>
  int arrange(Place place) const;

  const QWidget& view_;
};

}  // namespace quillet

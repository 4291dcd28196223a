// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLayout>
#include <vector>

namespace quillet {

/// Places a page's header and, below it, what blocks are seen: one below the other, or in pairs
/// where there is width for them. The width is that of the view: a scroll bar stands in the inset.
class PageLayout : public QLayout {
 public:
  /// `view` is what the page is scrolled in. The first widget that is added is the header.
  PageLayout(const QWidget& view, QWidget* page);
  ~PageLayout() override;

  void addItem(QLayoutItem* item) override { items_.push_back(item); }
  [[nodiscard]] int count() const override { return static_cast<int>(items_.size()); }
  [[nodiscard]] QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSize() const override;
  void setGeometry(const QRect& rect) override;

  /// How far the content is from both edges of the view.
  [[nodiscard]] int inset() const;

 private:
  /// Calls `place(item, rect)` for each item; returns the height of all.
  template <typename Place>
  int arrange(Place place) const;

  const QWidget& view_;
  std::vector<QLayoutItem*> items_;
};

}  // namespace quillet

// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <vector>

#include "desktop/page/item_layout.h"
#include "desktop/page/page_marks.h"

namespace quillet {

/// One mark, read by assistive technology as a text.
class MarkLabel : public QLabel {
  Q_OBJECT

 public:
  explicit MarkLabel(QWidget* parent);

  void show(const PageMark& mark);
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  PageMark mark_;
};

/// One that tells more when it is opened.
class MarkButton : public QAbstractButton {
  Q_OBJECT

 public:
  explicit MarkButton(QWidget* parent);

  void show(const PageMark& mark);
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void open();

  PageMark mark_;
};

/// Places what it holds in lines, as words in a text.
class FlowLayout : public ItemLayout {
 public:
  using ItemLayout::ItemLayout;

  [[nodiscard]] int heightForWidth(int width) const override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSize() const override { return {0, 0}; }
  void setGeometry(const QRect& rect) override;

 private:
  /// Calls `place(item, rect)` for each item; returns the height of all.
  template <typename Place>
  int flow(int width, Place place) const;
};

/// The marks of an app.
class MarkFlow : public QWidget {
  Q_OBJECT

 public:
  explicit MarkFlow(QWidget* parent = nullptr);
  void show(const std::vector<PageMark>& marks);

 private:
  void makeView(const PageMark& mark);

  std::vector<PageMark> shown_;
  std::vector<QWidget*> views_;  ///< a button or a label for each
};

}  // namespace quillet

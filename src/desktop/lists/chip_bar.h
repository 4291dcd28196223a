// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCheckBox>
#include <QWidget>
#include <span>
#include <string>
#include <vector>

#include "desktop/models/row_table.h"

class QMenu;

namespace quillet {

class MoreChip;
class TextLabel;

/// One chip: a check box in another shape.
class Chip : public QCheckBox {
  Q_OBJECT

 public:
  explicit Chip(const QString& text, QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override;

 Q_SIGNALS:
  /// An arrow key: to the chip before (-1) or behind.
  void stepped(int by);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  [[nodiscard]] bool hitButton(const QPoint& point) const override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// At the end; empty for none.
  [[nodiscard]] QString icon() const;
};

/// The chips above a list, and how many rows they leave. Those without room are in a menu.
class ChipBar : public QWidget {
  Q_OBJECT

 public:
  /// `name` is the list's.
  ChipBar(const QString& name, const RowTable& table);

  /// Shows these as set; nobody is told.
  void setChosen(const std::vector<std::string>& ids);
  /// `shown` of `all` rows.
  void setCount(int shown, int all);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// By the user. In the order of the table.
  void chosenChanged(const std::vector<std::string>& ids);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  [[nodiscard]] std::vector<Chip*> makeChips();
  [[nodiscard]] std::vector<std::string> chosen() const;
  void tell();
  void clear();
  void arrange();
  void fillMenu();
  void step(QWidget* from, int by);
  /// How many chips have room within `width`, with the menu for the others.
  [[nodiscard]] std::size_t fitting(int width) const;

  std::span<const ChipChoice> choices_;
  CountTexts countTexts_;
  std::vector<Chip*> chips_;
  MoreChip* more_ = nullptr;
  QMenu* menu_;
  QAbstractButton* clear_ = nullptr;
  TextLabel* count_;
  std::size_t shown_ = 0;  ///< chips that have room
  bool isTold_ = true;     ///< whether a change is the user's
};

}  // namespace quillet

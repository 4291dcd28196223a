// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCheckBox>
#include <QPushButton>

namespace quillet {

inline constexpr int kChipHeight = 26;

/// `line`, which holds one line of text, for the text size of the widget.
[[nodiscard]] int grownLine(const QWidget& widget, int line);

/// One chip: a check box in another shape.
class Chip : public QCheckBox {
  Q_OBJECT

 public:
  enum class Kind {
    filter,  ///< set, it shows a cross
    preset,  ///< stands for several filters; tinted while they are set
  };

  explicit Chip(const QString& text, QWidget* parent, Kind kind = Kind::filter);

  /// Plain: what would mark a letter in it does not.
  void setPlainText(const QString& text);
  [[nodiscard]] const QString& plainText() const { return text_; }

  [[nodiscard]] QSize sizeHint() const override;

 Q_SIGNALS:
  /// An arrow key: to the chip before (-1) or behind.
  void stepped(int by);

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  [[nodiscard]] bool hitButton(const QPoint& point) const override;
  void paintEvent(QPaintEvent* event) override;

 private:
  Kind kind_;
  QString text_;
};

/// The button of the menu with the chips that have no room.
class MoreChip final : public QPushButton {
  Q_OBJECT

 public:
  explicit MoreChip(QWidget* parent);

  /// The texts of those that are set.
  void setChosen(const QStringList& texts);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace quillet

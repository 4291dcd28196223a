// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>
#include <limits>
#include <optional>

#include "desktop/look/palette.h"
#include "desktop/page/wrapped_text.h"

namespace quillet {

enum class TextUse {
  read,
  copy,  ///< can be selected with the mouse and copied
};

/// How a text of a page is set.
struct TextLook {
  TypeStyle type;
  Token ink = Token::text;
  double lineHeight = 18;                       ///< at a text size of 100 %
  int lines = std::numeric_limits<int>::max();  ///< the last one ends in an ellipsis where it must
  TextUse use = TextUse::read;
};

/// A plain text that wraps to its width, anywhere where it must, and so never asks for more. A
/// label, so that assistive technology reads the whole text, however much of it is shown.
class PageText : public QLabel {
  Q_OBJECT

 public:
  explicit PageText(const TextLook& look, QWidget* parent = nullptr);

  void setLines(int lines);
  /// Sets a part of the text that is shown heavier: the figure that a sentence is about. Another
  /// text has none.
  void stress(qsizetype start, qsizetype length);
  /// Hidden without a text.
  void show(const QString& text);
  /// Whether `width` is too narrow for the whole text in the lines that it may have.
  [[nodiscard]] bool isCutAt(int width) const;
  [[nodiscard]] QString selected() const;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void changeEvent(QEvent* event) override;

  /// How parts of the text are drawn otherwise.
  [[nodiscard]] virtual TextFormats formats() const { return {}; }
  /// How much of the text stands in lines that are drawn whole.
  [[nodiscard]] int shownLength() const;
  /// The character under a point; absent beside the lines.
  [[nodiscard]] std::optional<int> characterAt(const QPoint& point) const;

 private:
  const WrappedText& laidOut(int width) const;
  [[nodiscard]] TextFormats stressed() const;
  [[nodiscard]] double lineHeight() const;
  [[nodiscard]] int positionAt(const QPoint& point) const;
  void select(int from, int to);
  void copy() const;

  TextLook look_;
  int stressStart_ = 0;
  int stressLength_ = 0;
  mutable WrappedText laid_;
  mutable int laidWidth_ = -1;
  int anchor_ = 0;
  int cursor_ = 0;
};

}  // namespace quillet
